#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// Cyan, magenta, yellow and black in percent, 0..100.
using InkPercents = std::array<double, 4>;

/// Four inks as people write them: "60 20 0 10", with commas, semicolons, slashes or percent signs, with
/// their letters ("C60 M20 Y0 K10", "c: 60"), within cmyk(...) or device-cmyk(...); any letter case. Nothing
/// for fewer or more numbers, for one outside 0..100 and for any other text.
std::optional<InkPercents> readInks(std::string_view text);

/// "60 20 0 10", with at most one decimal.
std::string inksText(const InkPercents&);

} // namespace chromalog
