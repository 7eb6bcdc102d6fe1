#pragma once

#include <string_view>

namespace chromalog {

/// What follows the path's last slash, the whole where it has none: a part of the text that was given.
constexpr std::string_view fileNameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

} // namespace chromalog
