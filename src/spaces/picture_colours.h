#pragma once

#include "spaces/rgb.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace chromalog {

struct PictureColour {
    Rgb rgb;          ///< the mean in OKLab of the pixels that it stands for, inside sRGB
    double share = 0; ///< of the pixels that count; all of them together 1
};

/// By amount: the largest share first. By hue: by the hue in OKLCH from 0 degrees, then greys (chroma below
/// 0.02) from dark to light.
enum class PictureOrder { amount, hue };

/// Told the part that is done, 0..1, several times a tenth of a second; false ends the work.
using PictureProgress = std::function<bool(double done)>;

/// The dominant colours of a picture, `count` (2..64) of them or as many as it has: median cut and k-means in
/// OKLab over a histogram. Pixels are words of alpha, red, green, blue from the highest byte down, as a
/// Bitmap has them; those with alpha below 128 do not count. The same pixels give the same colours. A picture
/// of few flat colours gives just these. Of more than 2^30 pixels the first 2^30 are taken. Empty where no
/// pixel counts; nothing where the progress said no.
std::optional<std::vector<PictureColour>> pictureColours(std::span<const std::uint32_t> pixels, int count,
                                                         PictureOrder order,
                                                         const PictureProgress& progress = {});

} // namespace chromalog
