#include "base/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale.h>
#if __has_include(<xlocale.h>) // where macOS keeps the locales of threads
#include <xlocale.h>
#endif

namespace chromalog {
namespace {

/// For its life this thread reads and writes numbers with a point, whatever the process's locale is. The
/// conversions of <charconv> would do without, but the C++ library of macOS does not read doubles with them.
class PlainNumbers {
  public:
    PlainNumbers() : plain_(newlocale(LC_ALL_MASK, "C", nullptr)), before_(uselocale(plain_)) {}
    ~PlainNumbers() {
        uselocale(before_);
        if (plain_) freelocale(plain_);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

  private:
    locale_t plain_, before_;
};

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

/// Where the digits that begin at `from` end.
std::size_t digitsEnd(std::string_view text, std::size_t from) {
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

/// A number without a sign at the start of a text.
struct Decimal {
    double value = 0;       ///< infinite where it is too large, 0 where it is too small
    std::size_t length = 0; ///< 0: no number starts here
    bool inRange = true;
};

/// Whether a point may end a number.
enum class LastPoint { belongs, doesNot };

/// Reads digits with or without a point among them and an exponent behind them. strtod alone would also take
/// hexadecimal digits, "inf" and "nan".
Decimal readDecimal(std::string_view text, LastPoint lastPoint = LastPoint::belongs) {
    std::size_t end = digitsEnd(text, 0);
    std::size_t digits = end;
    if (end < text.size() && text[end] == '.') {
        const std::size_t point = end, last = digitsEnd(text, point + 1);
        if (last > point + 1 || lastPoint == LastPoint::belongs) {
            end = last;
            digits = end - 1;
        }
    }
    if (digits == 0) return {};
    const std::string_view mantissa = text.substr(0, end);
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const bool sign = end + 1 < text.size() && (text[end + 1] == '+' || text[end + 1] == '-');
        const std::size_t first = end + (sign ? 2 : 1), last = digitsEnd(text, first);
        if (last > first) end = last;
    }
    const PlainNumbers plain;
    Decimal read{std::strtod(std::string(text.substr(0, end)).c_str(), nullptr), end};
    read.inRange = std::isfinite(read.value) &&
                   (read.value != 0 || mantissa.find_first_of("123456789") == std::string_view::npos);
    return read;
}

} // namespace

float floatValue(std::string_view text) {
    const bool minus = skipSign(text);
    const Decimal read = readDecimal(text);
    if (read.length == 0) return 0;
    constexpr double largest = std::numeric_limits<float>::max();
    const float magnitude = static_cast<float>(std::min(read.value, largest));
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

std::optional<double> finiteNumber(std::string_view text) {
    const bool minus = text.starts_with('-');
    if (minus) text.remove_prefix(1);
    const Decimal read = readDecimal(text);
    if (read.length == 0 || read.length != text.size() || !read.inRange) return std::nullopt;
    return minus ? -read.value : read.value;
}

std::optional<double> takeDecimal(std::string_view& text) {
    constexpr double largest = 1e15;
    const bool minus = text.starts_with('-');
    const std::size_t sign = minus || text.starts_with('+') ? 1 : 0;
    const Decimal read = readDecimal(text.substr(sign), LastPoint::doesNot);
    if (read.length == 0) return std::nullopt;
    text.remove_prefix(sign + read.length);
    const double value = std::min(read.value, largest);
    return minus ? -value : value;
}

std::string fixedText(double value, int decimals) {
    char text[400]; // the longest double has 309 digits before the point
    const PlainNumbers plain;
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string decimalText(double value, int decimals) {
    constexpr double largest = 1e9;
    const double scale = std::pow(10.0, decimals);
    const double bounded = std::isnan(value) ? 0 : std::clamp(value, -largest, largest);
    std::string text = fixedText(std::round(bounded * scale) / scale, decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::int16_t saturated16(double value) {
    if (value >= std::numeric_limits<std::int16_t>::max()) return std::numeric_limits<std::int16_t>::max();
    if (value <= std::numeric_limits<std::int16_t>::min()) return std::numeric_limits<std::int16_t>::min();
    return value == value ? static_cast<std::int16_t>(value) : 0;
}

} // namespace chromalog
