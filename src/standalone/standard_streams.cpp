#include "standalone/standard_streams.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace chromalog::standalone {

void holdStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0) // open takes the lowest number that is free: this one
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    std::signal(SIGPIPE, SIG_IGN);
}

std::string flushStandardOutput() {
    if (std::cout.flush()) return {};
    return std::string("cannot write to standard output: ") + std::strerror(errno);
}

} // namespace chromalog::standalone
