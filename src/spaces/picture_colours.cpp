#include "spaces/picture_colours.h"

#include "spaces/colour_clusters.h"
#include "spaces/gamut.h"

#include <tuple>

namespace chromalog {
namespace {

constexpr std::size_t kMostPixels = std::size_t{1} << 30;
constexpr std::size_t kPixelsAtOnce = std::size_t{1} << 21; ///< between two questions of the progress
constexpr double kCountingPart = 0.7;                       ///< of the progress; clustering is the rest
constexpr double kGreyChroma = 0.02;

/// Nothing where the progress said no.
std::optional<std::vector<WeightedColour>> histogramOf(std::span<const std::uint32_t> pixels,
                                                       const PictureProgress& progress) {
    PictureHistogram histogram;
    for (std::size_t done = 0; done < pixels.size(); done += kPixelsAtOnce) {
        const double part = static_cast<double>(done) / static_cast<double>(pixels.size());
        if (progress && !progress(kCountingPart * part)) return std::nullopt;
        histogram.add(pixels.subspan(done, std::min(kPixelsAtOnce, pixels.size() - done)));
    }
    return histogram.colours();
}

auto amountKey(const PictureColour& colour) {
    return std::tuple(-colour.share, bytesOf(colour.rgb));
}

auto hueKey(const PictureColour& colour) {
    const auto [lightness, chroma, hue] = oklchOf(colour.rgb);
    const bool grey = chroma < kGreyChroma;
    return std::tuple(grey, grey ? lightness : hue, bytesOf(colour.rgb));
}

} // namespace

std::optional<std::vector<PictureColour>> pictureColours(std::span<const std::uint32_t> pixels, int count,
                                                         PictureOrder order,
                                                         const PictureProgress& progress) {
    const auto colours = histogramOf(pixels.first(std::min(pixels.size(), kMostPixels)), progress);
    if (!colours) return std::nullopt;
    double done = kCountingPart;
    const auto goOn = [&] {
        done += (1 - done) / 8; // the number of rounds is not known before
        return !progress || progress(done);
    };
    const auto clusters = clustersOf(*colours, static_cast<std::size_t>(std::clamp(count, 2, 64)), goOn);
    if (!clusters) return std::nullopt;
    double weight = 0;
    for (const ColourCluster& cluster : *clusters)
        weight += cluster.weight;
    std::vector<PictureColour> result;
    for (const ColourCluster& cluster : *clusters)
        result.push_back({clippedToSrgb(rgbOf(cluster.colour)), cluster.weight / weight});
    if (order == PictureOrder::hue)
        std::ranges::sort(result, {}, hueKey);
    else
        std::ranges::sort(result, {}, amountKey);
    return result;
}

} // namespace chromalog
