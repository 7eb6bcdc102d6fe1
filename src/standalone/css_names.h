#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace chromalog::standalone {

/// 0xRRGGBB of a CSS colour name; upper and lower case are the same.
std::optional<std::uint32_t> cssColour(std::string_view name);

} // namespace chromalog::standalone
