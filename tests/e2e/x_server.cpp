#include "e2e/x_server.h"

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog::test {

namespace {

[[noreturn]] void becomeServer(int readyPipe, const char* whenAlone, const char* screen) {
    const int quiet = open("/dev/null", O_WRONLY);
    dup2(quiet, STDERR_FILENO);
    dup2(quiet, STDOUT_FILENO);
    const std::string descriptor = std::to_string(readyPipe);
    execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", screen, "-nolisten", "tcp",
           whenAlone, static_cast<char*>(nullptr));
    _exit(127);
}

/// What comes through the pipe up to the line's end: the server writes its number once it takes connections.
std::string readLine(int descriptor) {
    std::string line;
    for (char c = 0; read(descriptor, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

} // namespace

XServer::XServer(WhenAlone whenAlone, const char* screen) {
    int ready[2];
    if (pipe(ready) != 0) return;
    process_ = fork();
    if (process_ == 0) {
        close(ready[0]);
        becomeServer(ready[1], whenAlone == WhenAlone::stays ? "-noreset" : "-reset", screen);
    }
    close(ready[1]);
    const std::string number = process_ > 0 ? readLine(ready[0]) : "";
    close(ready[0]);
    if (!number.empty()) display_ = ":" + number;
}

XServer::~XServer() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

} // namespace chromalog::test
