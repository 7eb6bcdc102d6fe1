#include "support/started_program.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {

namespace {

[[noreturn]] void becomeProgram(const std::vector<std::string>& command,
                                const std::map<std::string, std::string>& environment) {
    for (const auto& [name, value] : environment)
        value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

} // namespace

StartedProgram::StartedProgram(const std::vector<std::string>& command,
                               const std::map<std::string, std::string>& environment, int out, int err)
    : process_(fork()) {
    if (process_ < 0) throw std::runtime_error("cannot start " + command.front());
    if (process_ > 0) return;
    if (out >= 0) dup2(out, STDOUT_FILENO);
    if (err >= 0) dup2(err, STDERR_FILENO);
    becomeProgram(command, environment);
}

StartedProgram::~StartedProgram() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    wait();
}

void StartedProgram::ended(int status) {
    process_ = -1;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool StartedProgram::runs() {
    int status = 0;
    if (process_ > 0 && waitpid(process_, &status, WNOHANG) == process_) ended(status);
    return process_ > 0;
}

void StartedProgram::signal(int number) const {
    if (process_ > 0) kill(process_, number);
}

int StartedProgram::wait() {
    int status = 0;
    if (process_ > 0 && waitpid(process_, &status, 0) == process_) ended(status);
    return exitCode_;
}

} // namespace chromalog
