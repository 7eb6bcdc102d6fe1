#include "swatches/nearest.h"

#include <cmath>

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

float closeness(float distance) {
    return static_cast<float>(distance / -1.732 / 65535.0 * 4.0 + 1.0) * 10.0F;
}

} // namespace chromalog
