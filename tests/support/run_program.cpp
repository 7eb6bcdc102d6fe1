#include "support/run_program.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {

namespace {

/// A file without a name in the end: removed once it is read.
struct Capture {
    std::string path = "/tmp/chromalog_test_XXXXXX";
    int descriptor = mkstemp(path.data());
    ~Capture() {
        close(descriptor);
        unlink(path.c_str());
    }
    std::string text() const {
        std::ostringstream all;
        all << std::ifstream(path).rdbuf();
        return all.str();
    }
};

[[noreturn]] void becomeProgram(const std::vector<std::string>& command,
                                const std::map<std::string, std::string>& environment) {
    for (const auto& [name, value] : environment)
        value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

} // namespace

ProgramResult runProgram(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment) {
    const Capture out, err;
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start " + command.front());
    if (child == 0) {
        dup2(out.descriptor, STDOUT_FILENO);
        dup2(err.descriptor, STDERR_FILENO);
        becomeProgram(command, environment);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), out.text(), err.text()};
}

bool othersReach(const std::filesystem::path& file) {
    using std::filesystem::perms;
    for (auto folder = file.parent_path(); folder.has_relative_path(); folder = folder.parent_path())
        if ((std::filesystem::status(folder).permissions() & perms::others_exec) == perms::none) return false;
    return true;
}

} // namespace chromalog
