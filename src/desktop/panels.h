#pragma once

#include "base/translated.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// A modal alert with one button.
struct Alert {
    std::string message;
    std::string informative; ///< shown as it stands, never used as a format
    std::string button = "ok";
};

/// Answers with the chosen path, or with nothing when the person cancelled.
using PanelAnswer = std::function<void(std::optional<std::string> path)>;

/// A sheet for one file, no directories.
struct OpenPanel {
    std::vector<std::string> types;                ///< extensions without a dot
    std::string kind = translated("Swatch files"); ///< what they are, for people
    std::string title{};                           ///< what for; empty: "Open"
};

/// A sheet for a name to save under; the panel asks before an existing file is replaced.
struct SavePanel {
    std::string suggestedName;
    std::string extension; ///< replaces what was typed, so that the panel asks about the file that is written
    std::string title{};   ///< what for; empty: "Save"
};

} // namespace chromalog
