#include "support/run_program.h"

#include "support/started_program.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
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

} // namespace

ProgramResult runProgram(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment) {
    const Capture out, err;
    const int exitCode = StartedProgram(command, environment, out.descriptor, err.descriptor).wait();
    return {exitCode, out.text(), err.text()};
}

bool othersReach(const std::filesystem::path& file) {
    using std::filesystem::perms;
    for (auto folder = file.parent_path(); folder.has_relative_path(); folder = folder.parent_path())
        if ((std::filesystem::status(folder).permissions() & perms::others_exec) == perms::none) return false;
    return true;
}

} // namespace chromalog
