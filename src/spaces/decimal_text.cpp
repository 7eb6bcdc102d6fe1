#include "spaces/decimal_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace chromalog {
namespace {

// Every one of them is exact in a double.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kExponentLimit = 400; ///< beyond the range of a double either way

bool startsWithDigit(std::string_view text) {
    return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

/// Takes a sign; true for minus.
bool takeSign(std::string_view& text) {
    const bool minus = text.starts_with('-');
    if (minus || text.starts_with('+')) text.remove_prefix(1);
    return minus;
}

/// The digits so far: 17 or more of them fix the value, the rest only counts.
struct Digits {
    std::uint64_t value = 0;
    int exponent = 0; ///< of ten

    void take(std::string_view& text, bool fraction) {
        for (; startsWithDigit(text); text.remove_prefix(1)) {
            const bool counts = value < 100'000'000'000'000'000;
            if (counts) value = value * 10 + static_cast<std::uint64_t>(text[0] - '0');
            exponent = std::clamp(exponent + !counts - fraction, -kExponentLimit, kExponentLimit);
        }
    }
};

/// "e-3" and the like; 0 where none follows.
int takeExponent(std::string_view& text) {
    std::string_view rest = text;
    if (!rest.starts_with('e') && !rest.starts_with('E')) return 0;
    rest.remove_prefix(1);
    const bool minus = takeSign(rest);
    if (!startsWithDigit(rest)) return 0;
    int exponent = 0;
    for (; startsWithDigit(rest); rest.remove_prefix(1))
        exponent = std::min(exponent * 10 + (rest[0] - '0'), kExponentLimit);
    text = rest;
    return minus ? -exponent : exponent;
}

double scaled(std::uint64_t digits, int exponent) {
    double value = static_cast<double>(digits);
    for (int left = std::abs(exponent); left > 0; left -= 22) {
        const double power = kPowersOfTen[std::min(left, 22)];
        value = exponent < 0 ? value / power : value * power;
    }
    return value;
}

/// The value times 10^decimals as a rounded count.
std::int64_t countOf(double value, int decimals) {
    return value == value ? std::llround(std::clamp(value, -1e9, 1e9) * kPowersOfTen[decimals]) : 0;
}

} // namespace

std::optional<double> takeDecimal(std::string_view& text) {
    std::string_view rest = text;
    const bool minus = takeSign(rest);
    const bool fractionFollows = rest.starts_with('.') && startsWithDigit(rest.substr(1));
    if (!startsWithDigit(rest) && !fractionFollows) return std::nullopt;
    Digits digits;
    digits.take(rest, false);
    if (rest.starts_with('.') && startsWithDigit(rest.substr(1))) {
        rest.remove_prefix(1);
        digits.take(rest, true);
    }
    const int exponent = digits.exponent + takeExponent(rest);
    text = rest;
    const double value = std::min(scaled(digits.value, exponent), 1e15);
    return minus ? -value : value;
}

std::string fixedDecimalText(double value, int decimals) {
    const std::int64_t count = countOf(value, decimals);
    std::string digits = std::to_string(std::abs(count));
    if (static_cast<int>(digits.size()) <= decimals)
        digits.insert(0, static_cast<std::size_t>(decimals) + 1 - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
    return count < 0 ? "-" + digits : digits;
}

std::string decimalText(double value, int decimals) {
    std::string text = fixedDecimalText(value, decimals);
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

} // namespace chromalog
