#include "views/wheel_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace chromalog {
namespace {

constexpr double pi = 3.141592653589793;
constexpr double backgroundBrightness = 0.93;
constexpr float fullAlpha = 0.9999f; // saturation up to which the disc is opaque

std::uint32_t byteOf(double component) {
    return static_cast<std::uint32_t>(component * 255);
}

std::uint32_t wordOf(const Colour& c, float alpha) {
    const auto a = static_cast<std::uint32_t>(alpha * 255);
    return a << 24 | byteOf(c.red()) << 16 | byteOf(c.green()) << 8 | byteOf(c.blue());
}

/// The last ten-thousandth of the radius fades out.
float alphaOf(float saturation) {
    return saturation <= fullAlpha ? 1.0f : (1 - saturation) * 100;
}

/// Shifts of the largest, the middle and the smallest channel in a pixel, by sextant of the hue.
constexpr ChannelShifts shiftsOf[6] = {{16, 8, 0}, {8, 16, 0}, {8, 0, 16},
                                       {0, 8, 16}, {0, 16, 8}, {16, 0, 8}};

struct Factors {
    int sextant;
    double middle;
};

/// As Colour::hsb has them. A hue of a full turn or no number counts as 0.
Factors factorsOf(double hue, double saturation) {
    if (!(hue < 1)) hue = 0;
    const int sextant = static_cast<int>(6 * hue);
    const double f = 6 * hue - sextant;
    return {sextant, 1 - saturation * (sextant % 2 ? f : 1 - f)};
}

} // namespace

void getColorWheelValue(int x, int y, float* hue, float* saturation, float radius) {
    const float nx = (x - radius) / radius;
    const float ny = (y - radius) / radius;
    *saturation = std::sqrt(nx * nx + ny * ny);
    *hue = static_cast<float>(std::acos(nx / *saturation) / pi / 2.0);
    if (ny < 0) *hue = 1 - *hue;
}

std::uint32_t wheelPixel(int x, int y, float radius, float brightness) {
    float hue, saturation;
    getColorWheelValue(x, y, &hue, &saturation, radius);
    if (saturation >= 1) return wordOf(Colour::hsb(0, 0, backgroundBrightness), 1);
    const float alpha = alphaOf(saturation);
    return wordOf(Colour::hsb(hue, saturation, brightness, alpha), alpha);
}

Bitmap plainWheelPicture(int size, float brightness) {
    Bitmap picture{size, size, std::vector<std::uint32_t>(static_cast<std::size_t>(size) * size)};
    auto pixel = picture.pixels.begin();
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            *pixel++ = wheelPixel(x, y, size / 2.0f, brightness);
    return picture;
}

void WheelPicture::render(int size, float brightness) {
    size = std::max(size, 0);
    if (size != bitmap_.width) measure(size);
    const float held = brightness > 0 ? std::min(brightness, 1.0f) : 0; // as a colour holds it
    const BrightnessScale scale(held);
    for (const Run& run : runs_)
        fill(run, scale, held);
    for (const RimPixel& pixel : rim_) {
        std::uint32_t& word = bitmap_.pixels[pixel.index];
        word = (word & 0xFFFFFF) | pixel.alpha;
    }
}

void WheelPicture::measure(int size) {
    const auto area = static_cast<std::size_t>(size) * size;
    bitmap_ = {size, size,
               std::vector<std::uint32_t>(area, wordOf(Colour::hsb(0, 0, backgroundBrightness), 1))};
    const int middleRow = (size + 1) / 2; // the first row that is not above the centre
    const auto planeSize = static_cast<std::size_t>(size - middleRow) * size;
    middle_.assign(planeSize + wheelBlock, 0); // a short run reads past its end
    low_.assign(planeSize + wheelBlock, 0);
    runs_.clear();
    rim_.clear();
    std::size_t plane = 0;
    for (int row = middleRow; row < size; ++row, plane += size)
        measureRow(row, size - row, plane);
}

void WheelPicture::measureRow(int row, int mirror, std::size_t plane) {
    const int size = bitmap_.width;
    const float radius = size / 2.0f;
    mirrored_.clear();
    for (int x = 0; x < size; ++x) {
        float hue, saturation;
        getColorWheelValue(x, row, &hue, &saturation, radius);
        if (saturation >= 1) continue;
        const Factors factors = factorsOf(hue, saturation);
        middle_[plane + x] = static_cast<float>(factors.middle);
        low_[plane + x] = static_cast<float>(1.0 - saturation);
        notePixel(runs_, {row, x, x + 1, factors.sextant, plane});
        if (mirror != row)
            notePixel(mirrored_, {mirror, x, x + 1, factorsOf(1 - hue, saturation).sextant, plane});
        const float alpha = alphaOf(saturation);
        if (alpha == 1) continue;
        const auto word = static_cast<std::uint32_t>(alpha * 255) << 24;
        rim_.push_back({static_cast<std::size_t>(row) * size + x, word});
        if (mirror != row) rim_.push_back({static_cast<std::size_t>(mirror) * size + x, word});
    }
    runs_.insert(runs_.end(), mirrored_.begin(), mirrored_.end());
}

void WheelPicture::notePixel(std::vector<Run>& runs, const Run& pixel) {
    if (!runs.empty() && runs.back().row == pixel.row && runs.back().sextant == pixel.sextant)
        runs.back().end = pixel.end;
    else
        runs.push_back(pixel);
}

void WheelPicture::fill(const Run& run, const BrightnessScale& scale, float brightness) {
    std::uint32_t* row = bitmap_.pixels.data() + static_cast<std::size_t>(run.row) * bitmap_.width;
    const int length = run.end - run.begin;
    if (scale.top == 0) { // every byte is less than that of factor 1
        std::fill_n(row + run.begin, length, 0xFF000000u);
        return;
    }
    const float* middle = middle_.data() + run.plane;
    const float* low = low_.data() + run.plane;
    std::array<std::uint32_t, wheelBlock> shortRun;
    const int count = std::min(length, wheelBlock);
    for (int x = run.begin; x < run.end; x += wheelBlock) {
        x = std::max(run.begin, std::min(x, run.end - wheelBlock)); // the last block overlaps the one before
        std::uint32_t* out = length < wheelBlock ? shortRun.data() : row + x;
        const bool doubtful = fillWheelBlock(middle + x, low + x, out, scale, shiftsOf[run.sextant]);
        if (length < wheelBlock) std::copy_n(out, count, row + x);
        if (!doubtful) continue;
        for (int i = x; i < x + count; ++i)
            if (scale.doubtful(middle[i]) || scale.doubtful(low[i]))
                row[i] = wheelPixel(i, run.row, bitmap_.width / 2.0f, brightness);
    }
}

} // namespace chromalog
