#pragma once

#include <string>
#include <vector>

namespace chromalog::golden {

/// One start of the program, or a command of the shell between two.
struct Step {
    enum class Kind { run, shell };

    Kind kind = Kind::run;
    std::vector<std::string> options; ///< of the command line
    std::string text;                 ///< the script, empty where the run has none; the shell's command
};

/// The steps of a file of ours. "#> OPTION..." begins a run, whose script the lines below it are; "#!
/// COMMAND" is the shell's. Lines before the first of them are a run without options, where there are
/// commands.
std::vector<Step> stepsOf(const std::string& file);

} // namespace chromalog::golden
