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

/// Takes the longest decimal number from the front of a text: a sign, digits, a fraction, an exponent, each
/// but the digits optional (".5" too; a point needs digits behind it). Clamped to +-1e15. The text is left
/// alone where no number stands. The same under every locale.
std::optional<double> takeDecimal(std::string_view& text);

/// So many decimals and a point, whatever the process's locale is: "0.500000".
std::string fixedText(double value, int decimals = 6);

/// With at most so many decimals (0..9), halves away from zero, without trailing zeros: "0.5", "12", never
/// "-0". Values are clamped to +-1e9, no number is "0".
std::string decimalText(double value, int decimals);

/// Truncates toward zero and saturates on the way to 16 bits.
std::int16_t saturated16(double value);

} // namespace chromalog
