#pragma once

#include <string>

namespace chromalog::standalone {

/// Puts something in the place of a standard stream that is closed: else the next file that is opened, a
/// window system's connection even, would take what is printed. Writing to it still fails.
void holdStandardStreams();

/// Empty where everything printed so far has reached standard output; else what went wrong, in one line.
std::string flushStandardOutput();

} // namespace chromalog::standalone
