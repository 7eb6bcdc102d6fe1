#pragma once

#include <filesystem>
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

/// Whether everybody may pass all folders above the file: a tree in a private folder hides its programs from
/// other users.
bool othersReach(const std::filesystem::path& file);

} // namespace chromalog
