#include "pictures/picture_sample.h"

#include <algorithm>

namespace chromalog {

std::optional<Colour> sampleAt(const Picture& picture, int column, int row, int edge) {
    const int around = edge / 2;
    double red = 0, green = 0, blue = 0, count = 0;
    for (int y = std::max(row - around, 0); y <= std::min(row + around, picture.height - 1); ++y)
        for (int x = std::max(column - around, 0); x <= std::min(column + around, picture.width - 1); ++x) {
            const std::uint32_t pixel = picture.at(x, y);
            if (pixel >> 24 < 128) continue;
            red += (pixel >> 16) & 0xFF;
            green += (pixel >> 8) & 0xFF;
            blue += pixel & 0xFF;
            ++count;
        }
    if (count == 0) return std::nullopt;
    return Colour::rgb(red / count / 255, green / count / 255, blue / count / 255);
}

} // namespace chromalog
