#pragma once

#include <string>
#include <string_view>

namespace chromalog::standalone {

/// Makes every standard stream fail like a file. Something takes the place of one that is closed: else the
/// next file that is opened, a window system's connection even, would take what is printed. A pipe that
/// nobody reads any more is an error and does not end the program.
void holdStandardStreams();

/// Empty where everything printed so far has reached standard output; else what went wrong, in one line.
std::string flushStandardOutput();

struct NobodyReads {};

/// The same for commands that belong into pipes: throws NobodyReads where the reader has gone (head has seen
/// enough), std::runtime_error where anything else went wrong.
void finishStandardOutput();

/// One line on standard error. Control characters are shown as numbers: texts of the plug-in and names of
/// files are among what is said, and a terminal would obey them.
void say(std::string_view text);

} // namespace chromalog::standalone
