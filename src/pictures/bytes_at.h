#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace chromalog {

/// Up to `count` bytes of a file from there on; fewer at its end.
using BytesAt = std::function<std::vector<std::uint8_t>(std::uint64_t offset, std::size_t count)>;

} // namespace chromalog
