#pragma once

#include <cstdint>
#include <string_view>

namespace chromalog {

/// How a value field is read as a number: white space, a sign and the longest decimal prefix; 0 where there
/// is none. No hexadecimal, no infinity, no locale.
float floatValue(std::string_view text);          ///< "99.5" is 99.5, "1e2" is 100
std::int64_t integerValue(std::string_view text); ///< "99.5" is 99, "1e2" is 1; held to the 64-bit range

/// Truncates toward zero and saturates on the way to 16 bits.
std::int16_t saturated16(double value);

} // namespace chromalog
