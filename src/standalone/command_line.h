#pragma once

#include "standalone/picker.h"
#include "standalone/recover.h"

#include <map>
#include <optional>
#include <string>

namespace chromalog::standalone {

/// What the user asked for.
struct CommandLine {
    HostColour colour;
    Format format = Format::hex;
    Scale scale = Scale::sixteen;
    ServicesKind services = ServicesKind::lcms;
    std::string cmykProfile; ///< empty: the installed one, if any
    std::string plugin;      ///< empty: the one beside the program
    std::string fail;        ///< "", "new" or "lock"
    int hostVersion = 16;
    int picks = 1;
    bool about = false;
    bool fromScreen = false; ///< colours from the screen instead of picks
    bool verbose = false;
    std::optional<RecoverRequest> recover;    ///< instead of picks
    std::map<std::string, std::string> given; ///< every option that was given, by its long name; flags as "1"
};

/// Reads the arguments. Where the program ends here (help, version, a mistake) there is no result: the text
/// is already printed and `exitCode` is set (0, or 2 after one line on standard error).
std::optional<CommandLine> parseCommandLine(int argc, const char* const* argv, int& exitCode);

} // namespace chromalog::standalone
