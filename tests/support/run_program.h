#pragma once

#include <map>
#include <string>
#include <vector>

namespace chromalog {

struct ProgramResult {
    int exitCode; ///< 128 + signal where a signal ended the program
    std::string out, err;
};

/// Runs a program to its end. `environment` is set on top of the test's own; an empty value removes a
/// variable.
ProgramResult runProgram(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment = {});

} // namespace chromalog
