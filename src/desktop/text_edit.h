#pragma once

#include "base/geometry.h"

#include <functional>
#include <string>

namespace chromalog {

/// A text that a person edits in place, over a view. Return and leaving it end the edit, Escape drops it.
struct TextEdit {
    Rect where;                                           ///< in the view's coordinates
    std::string text;                                     ///< UTF-8, all selected
    int most = 0;                                         ///< UTF-16 units
    std::function<std::string(const std::string&)> kept;  ///< what would be kept of a text
    std::function<void(const std::string& text)> entered; ///< once, where the edit was not dropped
};

} // namespace chromalog
