#pragma once

#include <string>

namespace chromalog::standalone {

/// What `chromalog recover` is asked for.
struct RecoverRequest {
    bool list = false;  ///< show the copies; else bring one back
    std::string name;   ///< the copy
    std::string folder; ///< in the place of the user's applications directory; empty: that one
};

/// Shows or brings back lists that were kept, without the plug-in and without a display. The exit code: 0, or
/// 2 after one line on standard error.
int runRecover(const RecoverRequest&);

} // namespace chromalog::standalone
