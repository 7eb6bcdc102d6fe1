#pragma once

#include <string>
#include <string_view>

namespace chromalog {

/// A name as a swatch keeps it, in Mac OS Roman: on one line, composed, at most 255 bytes. A letter that is
/// not there loses its accent, anything else becomes "?".
std::string macRomanName(std::string_view utf8);

} // namespace chromalog
