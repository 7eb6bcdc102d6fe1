#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace chromalog::drive {

/// The whole text as a finite number, or nothing. No locale, no blanks.
inline std::optional<double> readNumber(std::string_view text) {
    double value = 0;
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace chromalog::drive
