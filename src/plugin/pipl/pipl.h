#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace chromalog {

using Bytes = std::vector<std::uint8_t>;

/// What the host reads about the plug-in before it loads it: a list of properties, big-endian as on macOS.
struct PiplProperty {
    const char* key; ///< four characters
    Bytes data;      ///< without padding
};

/// The properties of this picker. `entry` is the name of the exported function.
std::vector<PiplProperty> pickerProperties(const std::string& name, const std::string& entry);

/// The property list as the host reads it: every property padded to four bytes.
Bytes piplBytes(const std::vector<PiplProperty>& properties);

/// A resource file (of the data-fork kind) with one resource: `type` is four characters.
Bytes resourceFile(const char* type, std::int16_t id, const Bytes& resource);

} // namespace chromalog
