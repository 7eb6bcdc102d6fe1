#include "spaces/picture_histogram.h"

namespace chromalog {
namespace {

constexpr std::uint32_t kBits = 6;
constexpr std::uint32_t kSide = 1u << kBits;
constexpr std::uint32_t kRest = 8 - kBits; ///< bits of a channel that do not choose the bin
constexpr std::size_t kMostColours = std::size_t{1} << 15;

/// What fell into one bin, or into a cube of them.
struct Tally {
    double count = 0, red = 0, green = 0, blue = 0; ///< sums of bytes
};

WeightedColour meanOf(const Tally& tally) {
    const double whole = 255 * tally.count;
    return {oklabOf(Rgb{tally.red / whole, tally.green / whole, tally.blue / whole}), tally.count};
}

} // namespace

PictureHistogram::PictureHistogram() : bins_(std::size_t{kSide} * kSide * kSide) {}

void PictureHistogram::add(std::span<const std::uint32_t> pixels) {
    constexpr std::uint32_t rest = (1u << kRest) - 1;
    for (std::size_t i = 0; i < pixels.size();) {
        const std::uint32_t pixel = pixels[i];
        std::uint32_t run = 1; // flat areas would wait for the same bin again and again
        while (++i < pixels.size() && pixels[i] == pixel)
            ++run;
        if (pixel >> 24 < 128) continue;
        const std::uint32_t red = (pixel >> 16) & 0xFF, green = (pixel >> 8) & 0xFF, blue = pixel & 0xFF;
        Bin& bin = bins_[(red >> kRest) << 2 * kBits | (green >> kRest) << kBits | blue >> kRest];
        bin.count += run;
        bin.red += run * (red & rest);
        bin.green += run * (green & rest);
        bin.blue += run * (blue & rest);
    }
}

std::vector<WeightedColour> PictureHistogram::colours() const {
    const auto used = std::ranges::count_if(bins_, [](const Bin& bin) { return bin.count > 0; });
    const std::uint32_t step = static_cast<std::size_t>(used) > kMostColours ? 2 : 1;
    std::vector<WeightedColour> colours;
    const auto tallyOf = [&](std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
        Tally tally;
        for (std::uint32_t r = red; r < red + step; ++r)
            for (std::uint32_t g = green; g < green + step; ++g)
                for (std::uint32_t b = blue; b < blue + step; ++b) {
                    const Bin& bin = bins_[r << 2 * kBits | g << kBits | b];
                    const double count = bin.count;
                    tally.count += count;
                    tally.red += bin.red + count * (r << kRest);
                    tally.green += bin.green + count * (g << kRest);
                    tally.blue += bin.blue + count * (b << kRest);
                }
        return tally;
    };
    for (std::uint32_t red = 0; red < kSide; red += step)
        for (std::uint32_t green = 0; green < kSide; green += step)
            for (std::uint32_t blue = 0; blue < kSide; blue += step)
                if (const Tally tally = tallyOf(red, green, blue); tally.count > 0)
                    colours.push_back(meanOf(tally));
    return colours;
}

} // namespace chromalog
