#include "views/wheel_rim.h"

#include "views/wheel_picture.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

std::uint32_t opaquePixel(const Colour& c) {
    const auto byte = [](double v) { return static_cast<std::uint32_t>(std::lround(v * 255)); };
    return kOpaque | byte(c.red()) << 16 | byte(c.green()) << 8 | byte(c.blue());
}

std::uint32_t mixed(std::uint32_t a, std::uint32_t b, float shareOfA) {
    std::uint32_t out = kOpaque;
    for (int shift = 0; shift <= 16; shift += 8) {
        const auto from = static_cast<float>((a >> shift) & 0xFF),
                   to = static_cast<float>((b >> shift) & 0xFF);
        out |= static_cast<std::uint32_t>(from * shareOfA + to * (1 - shareOfA) + 0.5F) << shift;
    }
    return out;
}

} // namespace

const Bitmap& WheelRim::around(const Bitmap& wheel, float disc, const Colour& surround) {
    const std::uint32_t ground = opaquePixel(surround);
    const bool measured = bitmap_.width == wheel.width && surround_ == ground;
    if (!measured) {
        surround_ = ground;
        measure(wheel);
    }
    if (!measured || disc_ != disc) blend(wheel);
    disc_ = disc;
    return bitmap_;
}

void WheelRim::measure(const Bitmap& wheel) {
    bitmap_.width = bitmap_.height = 0; // measured anew, should there be no memory for it now
    rim_.clear();
    bitmap_.pixels.assign(wheel.pixels.size(), 0);
    bitmap_.cut = true;
    for (int y = 0; y < wheel.height; ++y)
        measureRow(wheel, y);
    bitmap_.width = wheel.width;
    bitmap_.height = wheel.height;
}

/// From the row's end inwards to the disc, and the other half likewise: most pixels are never looked at.
void WheelRim::measureRow(const Bitmap& wheel, int y) {
    const double radius = wheel.width / 2.0, dy = y - radius;
    const auto row = bitmap_.pixels.begin() + static_cast<std::ptrdiff_t>(y) * wheel.width;
    const auto isIn = [&](int x, double within) {
        return within > 0 && (x - radius) * (x - radius) + dy * dy <= within * within;
    };
    int left = 0, right = wheel.width; // what the disc with its rim leaves of the row
    while (left < right && !isIn(left, radius + 1))
        ++left;
    while (right > left && !isIn(right - 1, radius + 1))
        --right;
    std::fill(row, row + left, surround_);
    std::fill(row + right, row + wheel.width, surround_);
    for (; left < right && !isIn(left, radius - 1); ++left)
        addPixel(wheel, left, y);
    for (int x = right; x > left && !isIn(x - 1, radius - 1); --x)
        addPixel(wheel, x - 1, y);
}

/// A pixel near the rim. The picture's own edge of the disc may let the ground through: it is shown opaque,
/// as picks read it.
void WheelRim::addPixel(const Bitmap& wheel, int x, int y) {
    const auto radius = static_cast<float>(wheel.width / 2.0);
    const std::size_t at = static_cast<std::size_t>(y) * wheel.width + x;
    float hue = 0, saturation = 0;
    getColorWheelValue(x, y, &hue, &saturation, radius);
    if (saturation < 1) {
        if (wheel.pixels[at] < kOpaque) rim_.push_back({at, at, 1});
        return;
    }
    const float distance = saturation * radius, inward = (radius - 1) / distance;
    const auto moved = [&](int v) {
        return std::clamp(std::lround(radius + (static_cast<float>(v) - radius) * inward), 0L,
                          wheel.width - 1L);
    };
    rim_.push_back({at, static_cast<std::size_t>(moved(y)) * wheel.width + moved(x),
                    std::clamp(1 - (distance - radius), 0.0F, 1.0F)});
}

void WheelRim::blend(const Bitmap& wheel) {
    for (const RimPixel& pixel : rim_)
        bitmap_.pixels[pixel.at] = mixed(wheel.pixels[pixel.from], surround_, pixel.share);
}

} // namespace chromalog
