#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// How a value field is read as a number: white space, a sign and the longest decimal prefix; 0 where there
/// is none. No hexadecimal, no infinity, no locale.
float floatValue(std::string_view text);          ///< "99.5" is 99.5, "1e2" is 100
std::int64_t integerValue(std::string_view text); ///< "99.5" is 99, "1e2" is 1; clamped to the 64-bit range

/// The whole text as a finite number, or nothing. No locale, no blanks, no sign but minus; what is not 0 and
/// too small for a double is nothing as well.
std::optional<double> finiteNumber(std::string_view text);

/// Six decimals and a point, whatever the process's locale is: "0.500000".
std::string fixedText(double value);

/// Truncates toward zero and saturates on the way to 16 bits.
std::int16_t saturated16(double value);

} // namespace chromalog
