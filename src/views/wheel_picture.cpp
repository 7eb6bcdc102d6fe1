#include "views/wheel_picture.h"

#include "base/channels.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace chromalog {
namespace {

constexpr double backgroundBrightness = 0.93;
constexpr float opaqueSaturation = 0.9999f; // outside of it the disc fades out
constexpr std::uint32_t opaqueBlack = 0xFF000000u;

std::uint32_t byteOf(double component) {
    return static_cast<std::uint32_t>(eightBit(component));
}

std::uint32_t pixelOf(const Colour& c, float alpha) {
    return byteOf(alpha) << 24 | byteOf(c.red()) << 16 | byteOf(c.green()) << 8 | byteOf(c.blue());
}

std::uint32_t background() {
    return pixelOf(Colour::hsb(0, 0, backgroundBrightness), 1);
}

float alphaOf(float saturation) {
    return saturation <= opaqueSaturation ? 1.0f : (1 - saturation) * 100;
}

struct Factors {
    std::uint32_t order;
    double middle, low;
};

WheelMeasure kept;
bool keeps = false;

/// As Colour::hsb has them. A hue of a full turn or no number counts as 0.
Factors factorsOf(double hue, double saturation) {
    if (!(hue < 1)) hue = 0;
    const int sextant = static_cast<int>(6 * hue);
    const double f = 6 * hue - sextant;
    const double low = 1 - saturation;
    // Left of the centre two channels are the brightness itself, which is often a whole byte: a factor of 1
    // would leave half a row in doubt.
    if (sextant == 3 && f == 0) return {twoLargest, low, low};
    return {static_cast<std::uint32_t>(sextant), 1 - saturation * (sextant % 2 ? f : 1 - f), low};
}

} // namespace

void getColorWheelValue(int x, int y, float* hue, float* saturation, float radius) {
    const float nx = (x - radius) / radius;
    const float ny = (y - radius) / radius;
    *saturation = std::sqrt(nx * nx + ny * ny);
    *hue = static_cast<float>(std::acos(nx / *saturation) / std::numbers::pi / 2.0);
    if (ny < 0) *hue = 1 - *hue;
}

std::uint32_t wheelPixel(int x, int y, float radius, float brightness) {
    float hue, saturation;
    getColorWheelValue(x, y, &hue, &saturation, radius);
    if (saturation >= 1) return background();
    const float alpha = alphaOf(saturation);
    return pixelOf(Colour::hsb(hue, saturation, brightness, alpha), alpha);
}

Colour wheelColour(double column, double row, int size, float brightness) {
    if (size <= 0) return {};
    return Bitmap::colourOf(
        wheelPixel(Bitmap::clamped(column, size), Bitmap::clamped(row, size), size / 2.0f, brightness));
}

Bitmap plainWheelPicture(int size, float brightness) {
    Bitmap picture{size, size, std::vector<std::uint32_t>(static_cast<std::size_t>(size) * size)};
    auto pixel = picture.pixels.begin();
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            *pixel++ = wheelPixel(x, y, size / 2.0f, brightness);
    return picture;
}

WheelPicture::~WheelPicture() {
    if (keeps && size_ > 0) kept = std::move(static_cast<WheelMeasure&>(*this));
}

void WheelPicture::keepMeasure(bool wanted) {
    keeps = wanted;
    if (!wanted) kept = {};
}

void WheelPicture::render(int size, float brightness) {
    size = std::max(size, 0);
    if (size != size_ && size == kept.size_)
        static_cast<WheelMeasure&>(*this) = std::exchange(kept, {});
    else if (size != size_)
        measure(size);
    const float clamped = brightness > 0 ? std::min(brightness, 1.0f) : 0; // as a colour holds it
    if (byteOf(clamped) == 0)                                              // so is every byte
        for (const RowSpan& span : spans_)
            std::fill_n(&bitmap_.pixels[span.first], span.length, opaqueBlack);
    else
        fill(clamped);
    for (const RimPixel& pixel : rim_) {
        std::uint32_t& argb = bitmap_.pixels[pixel.index];
        argb = (argb & ~opaqueBlack) | pixel.alpha;
    }
}

void WheelPicture::measure(int size) {
    const auto area = static_cast<std::size_t>(size) * size;
    size_ = 0;
    bitmap_ = {size, size, std::vector<std::uint32_t>(area, background())};
    middle_.assign(size, 0);
    low_.assign(size, 0);
    chunks_.clear();
    factors_.clear();
    singles_.clear();
    spans_.clear();
    rim_.clear();
    // Half the disc, and a chunk for each of the up to seven runs of a row that overlaps its neighbour.
    const std::size_t chunks = area / 2 * 4 / 5 / chunkPixels + size * 2;
    chunks_.reserve(chunks);
    factors_.reserve(chunks * chunkFactors);
    for (int row = (size + 1) / 2; row < size; ++row) // the rows above the centre mirror those below
        measureRow(row);
    while (chunks_.size() % groupChunks != 0) { // the last chunk again
        chunks_.push_back(chunks_.back());
        for (int i = 0; i < chunkFactors; ++i)
            factors_.push_back(factors_[factors_.size() - chunkFactors]);
    }
    size_ = size;
}

void WheelPicture::measureRow(int row) {
    const int size = bitmap_.width;
    const std::size_t start = static_cast<std::size_t>(row) * size;
    const std::size_t mirror = static_cast<std::size_t>(size - row) * size;
    const bool mirrors = mirror != start; // all but the middle row of an even size
    runs_.clear();
    for (int x = 0; x < size; ++x) {
        float hue, saturation;
        getColorWheelValue(x, row, &hue, &saturation, size / 2.0f);
        if (saturation >= 1) continue;
        Factors factors = factorsOf(hue, saturation);
        if (mirrors) {
            const Factors mirrored = factorsOf(1 - hue, saturation); // the hue is rounded once more
            if (mirrored.order == mirroredOrder(factors.order))
                factors.middle = (factors.middle + mirrored.middle) / 2;
            else
                singles_.push_back(mirror + x);
        }
        middle_[x] = static_cast<float>(factors.middle);
        low_[x] = static_cast<float>(factors.low);
        if (runs_.empty() || runs_.back().order != factors.order) runs_.push_back({x, x, factors.order});
        runs_.back().end = x + 1;
        const float alpha = alphaOf(saturation);
        if (alpha == 1) continue;
        const auto argb = byteOf(alpha) << 24;
        rim_.push_back({start + x, argb});
        if (mirrors) rim_.push_back({mirror + x, argb});
    }
    if (runs_.empty()) return;
    const auto begin = static_cast<std::size_t>(runs_.front().begin);
    const std::size_t length = runs_.back().end - begin;
    spans_.push_back({start + begin, length});
    spans_.push_back({mirror + begin, length});
    cutIntoChunks(row);
}

/// A run's last chunk overlaps the one before. A run shorter than a chunk spills over a long neighbour, which
/// is written after it.
void WheelPicture::cutIntoChunks(int row) {
    const auto isLong = [](const Run& run) { return run.end - run.begin >= chunkPixels; };
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const Run& run = runs_[i];
        if (isLong(run)) continue;
        if (i + 1 < runs_.size() && isLong(runs_[i + 1]))
            addChunk(row, run.begin, run.order);
        else if (i > 0 && isLong(runs_[i - 1]))
            addChunk(row, run.end - chunkPixels, run.order);
        else
            addStrays(row, run);
    }
    for (const Run& run : runs_)
        for (int x = run.begin; isLong(run) && x < run.end; x += chunkPixels)
            addChunk(row, std::min(x, run.end - chunkPixels), run.order);
}

void WheelPicture::addStrays(int row, const Run& run) {
    for (int x = run.begin; x < run.end; ++x)
        for (int y : {row, bitmap_.width - row})
            singles_.push_back(static_cast<std::size_t>(y) * bitmap_.width + x);
}

void WheelPicture::addChunk(int row, int begin, std::uint32_t order) {
    const int size = bitmap_.width;
    chunks_.push_back({static_cast<std::uint32_t>(row * size + begin),
                       static_cast<std::uint32_t>((size - row) * size + begin), order});
    factors_.insert(factors_.end(), middle_.begin() + begin, middle_.begin() + begin + chunkPixels);
    factors_.insert(factors_.end(), low_.begin() + begin, low_.begin() + begin + chunkPixels);
}

void WheelPicture::fill(float brightness) {
    const BrightnessScale scale(brightness);
    const std::size_t groups = chunks_.size() / groupChunks;
    for (std::size_t group = 0;; ++group) {
        group = fillWheelChunks(chunks_.data(), factors_.data(), group, groups, bitmap_.pixels.data(), scale);
        if (group >= groups) break;
        for (int c = 0; c < groupChunks; ++c)
            recompute(group * groupChunks + c, scale, brightness);
    }
    for (std::size_t index : singles_)
        recomputePixel(index, brightness);
}

void WheelPicture::recompute(std::size_t chunk, const BrightnessScale& scale, float brightness) {
    const float* middle = &factors_[chunk * chunkFactors];
    const float* low = middle + chunkPixels;
    const auto doubtful = [&](int i) { return int{scale.doubtful(middle[i])} | int{scale.doubtful(low[i])}; };
    int count = 0;
    for (int i = 0; i < chunkPixels; ++i)
        count += doubtful(i);
    if (count == 0) return;
    for (int i = 0; i < chunkPixels; ++i)
        if (doubtful(i)) {
            recomputePixel(chunks_[chunk].first + i, brightness);
            recomputePixel(chunks_[chunk].mirror + i, brightness);
        }
}

void WheelPicture::recomputePixel(std::size_t index, float brightness) {
    const auto size = static_cast<std::size_t>(bitmap_.width);
    bitmap_.pixels[index] =
        wheelPixel(static_cast<int>(index % size), static_cast<int>(index / size), size / 2.0f, brightness);
}

} // namespace chromalog
