#include "standalone/standard_streams.h"

#include "files/size_limit_signal.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace chromalog::standalone {

namespace {

/// A control character of the first half, or the second byte of one of the second half in UTF-8.
bool isControl(unsigned char byte, unsigned char before) {
    return byte < 0x20 || byte == 0x7F || (before == 0xC2 && byte >= 0x80 && byte < 0xA0);
}

} // namespace

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

void finishStandardOutput() {
    const std::string failure = flushStandardOutput();
    const bool unread = errno == EPIPE;
    if (failure.empty()) return;
    if (unread) throw NobodyReads();
    throw std::runtime_error(failure);
}

void say(std::string_view text) {
    const SizeLimitSignalBlock onlyFails;
    std::string line;
    unsigned char before = 0;
    for (const unsigned char byte : text) {
        if (isControl(byte, before)) {
            constexpr const char* digits = "0123456789abcdef";
            if (byte >= 0x80) line.pop_back(); // the first of the two
            line += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        } else {
            line += static_cast<char>(byte);
        }
        before = byte;
    }
    std::cerr << "chromalog: " << line << '\n';
}

} // namespace chromalog::standalone
