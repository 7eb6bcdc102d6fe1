#pragma once

#include "standalone/command_line.h"

namespace chromalog::standalone {

/// What the program tells by its exit code.
enum ExitCode {
    exitPicked = 0,
    exitAsOffered = 1,
    exitBadArguments = 2, ///< or a file, standard output among them, that cannot be read or written
    exitNoMemory = 3,
    exitMisuse = 4, ///< the plug-in misused the host, where CHROMALOG_STRICT=1 makes that fatal
    exitPluginError = 5
};

/// Loads the plug-in, runs the picks, prints colours on standard output and everything else on standard
/// error.
int runProgram(const CommandLine& line);

} // namespace chromalog::standalone
