#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// Takes the longest decimal number from the front of a text: a sign, digits, a fraction, an exponent, each
/// but the digits optional (".5" too). Right to the last bit up to 15 digits without an exponent above 22;
/// clamped to +-1e15. The text is left alone where no number stands. The same under every locale.
std::optional<double> takeDecimal(std::string_view& text);

/// With at most so many decimals (0..9), halves away from zero, without trailing zeros: "0.5", "12", never
/// "-0". Values are clamped to +-1e9, no number is "0".
std::string decimalText(double value, int decimals);

/// With exactly so many decimals (0..9): "0.500".
std::string fixedDecimalText(double value, int decimals);

} // namespace chromalog
