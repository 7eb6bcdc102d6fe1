#include "swatches/nearest.h"

#include "record/name_text.h"

#include <cmath>
#include <string_view>

namespace chromalog {

NearestSwatch nearestSwatch(ConstListRecords shown, const Colour& colour) {
    const auto r = static_cast<float>(colour.red() * 65535.0);
    const auto g = static_cast<float>(colour.green() * 65535.0);
    const auto b = static_cast<float>(colour.blue() * 65535.0);
    float best = 9999999827968.0F; // the float nearest to 10^13
    int bestIndex = 0;
    for (int i = 0; const FCOStruct& record : shown) {
        const float red = r - static_cast<float>(record.SRed);
        const float green = g - static_cast<float>(record.SGreen);
        const float blue = b - static_cast<float>(record.SBlue);
        const float square = red * red + green * green + blue * blue;
        if (square < best) {
            best = square;
            bestIndex = i;
        }
        ++i;
    }
    return {bestIndex, std::sqrt(best)};
}

std::uint64_t listMark(ConstListRecords shown) {
    constexpr std::uint64_t kPrime = 1099511628211U;
    std::uint64_t mark = 14695981039346656037U + shown.size();
    const auto take = [&mark](std::uint64_t word) { mark = (mark ^ word) * kPrime; };
    for (const FCOStruct& record : shown) {
        for (const auto channel : {record.SRed, record.SGreen, record.SBlue})
            take(static_cast<std::uint64_t>(channel));
        take(std::hash<std::string_view>{}(zeroTerminatedName(record)));
    }
    return mark;
}

float closeness(float distance) {
    return static_cast<float>(distance / -1.732 / 65535.0 * 4.0 + 1.0) * 10.0F;
}

} // namespace chromalog
