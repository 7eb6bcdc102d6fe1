#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace chromalog {

/// A list name of the global record: length byte, then up to 255 characters; `field` reaches one byte
/// further, where the terminator of a name of 255 characters lands (kept).
using ListNameField = std::span<std::uint8_t, 257>;

/// Terminates the name right after its last character and returns it as text: up to the first zero byte,
/// ASCII. Nothing where it holds a byte above 127.
std::optional<std::string> terminatedListName(ListNameField field);

} // namespace chromalog
