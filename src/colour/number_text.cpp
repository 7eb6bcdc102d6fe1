#include "colour/number_text.h"

#include <charconv>
#include <limits>

namespace chromalog {
namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Skips white space and a sign; true where the sign was minus.
bool skipSign(std::string_view& text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    const bool minus = !text.empty() && text.front() == '-';
    if (minus || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    return minus;
}

/// Whether a decimal number starts here: from_chars would also take "inf" and "nan".
bool startsNumber(std::string_view text) {
    if (text.empty()) return false;
    return isDigit(text[0]) || (text[0] == '.' && text.size() > 1 && isDigit(text[1]));
}

} // namespace

float floatValue(std::string_view text) {
    const bool minus = skipSign(text);
    if (!startsNumber(text)) return 0;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too small for a double reads as 0, too large as the largest float.
        const auto exponent = text.substr(0, end - text.data()).find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos && text[exponent + 1] == '-';
        value = tiny ? 0 : std::numeric_limits<double>::max();
    }
    constexpr double largest = std::numeric_limits<float>::max();
    const float magnitude = static_cast<float>(value > largest ? largest : value);
    return minus ? -magnitude : magnitude;
}

std::int64_t integerValue(std::string_view text) {
    const bool minus = skipSign(text);
    if (text.empty() || !isDigit(text.front())) return 0;
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) value = std::numeric_limits<std::int64_t>::max();
    return minus ? -value : value;
}

std::int16_t saturated16(double value) {
    if (value >= std::numeric_limits<std::int16_t>::max()) return std::numeric_limits<std::int16_t>::max();
    if (value <= std::numeric_limits<std::int16_t>::min()) return std::numeric_limits<std::int16_t>::min();
    return value == value ? static_cast<std::int16_t>(value) : 0;
}

} // namespace chromalog
