#include "pictures/fitted_picture.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

/// The places of the source that one place of the target stands for; one at least.
struct Stretch {
    int from, to;
};

std::vector<Stretch> stretches(int source, int target) {
    std::vector<Stretch> all;
    for (std::int64_t i = 0; i < target; ++i) {
        const int from = static_cast<int>(i * source / target);
        all.push_back({from, std::max(from + 1, static_cast<int>((i + 1) * source / target))});
    }
    return all;
}

std::uint32_t meanOf(const Picture& picture, Stretch columns, Stretch rows) {
    if (columns.to - columns.from == 1 && rows.to - rows.from == 1)
        return picture.at(columns.from, rows.from);
    std::uint64_t red = 0, green = 0, blue = 0, alpha = 0;
    for (int row = rows.from; row < rows.to; ++row)
        for (int column = columns.from; column < columns.to; ++column) {
            const std::uint32_t pixel = picture.at(column, row), weight = pixel >> 24;
            red += weight * ((pixel >> 16) & 0xFF);
            green += weight * ((pixel >> 8) & 0xFF);
            blue += weight * (pixel & 0xFF);
            alpha += weight;
        }
    if (alpha == 0) return 0;
    const auto mean = [](std::uint64_t sum, std::uint64_t of) {
        return static_cast<std::uint32_t>((sum + of / 2) / of);
    };
    const auto count = static_cast<std::uint64_t>(columns.to - columns.from) *
                       static_cast<std::uint64_t>(rows.to - rows.from);
    return mean(alpha, count) << 24 | mean(red, alpha) << 16 | mean(green, alpha) << 8 | mean(blue, alpha);
}

} // namespace

Rect fittedRect(const Picture& picture, const Rect& bounds) {
    if (picture.empty() || bounds.w < 1 || bounds.h < 1) return {};
    const double scale = std::min(bounds.w / picture.width, bounds.h / picture.height);
    const double width = std::max(1.0, std::floor(picture.width * scale)),
                 height = std::max(1.0, std::floor(picture.height * scale));
    return {bounds.x + std::floor((bounds.w - width) / 2), bounds.y + std::floor((bounds.h - height) / 2),
            width, height};
}

Bitmap resized(const Picture& picture, int width, int height) {
    Bitmap bitmap{width, height, {}};
    bitmap.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const std::vector<Stretch> columns = stretches(picture.width, width);
    for (const Stretch rows : stretches(picture.height, height))
        for (const Stretch column : columns)
            bitmap.pixels.push_back(meanOf(picture, column, rows));
    return bitmap;
}

Picture overviewOf(const Picture& picture, int longest) {
    const double scale = static_cast<double>(longest) / std::max({picture.width, picture.height, 1});
    if (scale >= 1) return picture;
    const auto side = [scale](int pixels) {
        return std::max(1, static_cast<int>(std::lround(pixels * scale)));
    };
    auto small = std::make_shared<const Bitmap>(resized(picture, side(picture.width), side(picture.height)));
    return {small->width, small->height, small->pixels, small};
}

} // namespace chromalog
