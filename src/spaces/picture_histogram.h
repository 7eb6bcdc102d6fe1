#pragma once

#include "spaces/oklab.h"

#include <cstdint>
#include <span>
#include <vector>

namespace chromalog {

/// A colour and how many pixels have it or one beside it.
struct WeightedColour {
    Oklab colour;
    double weight = 0;
};

/// How often each colour of a picture appears, in bins of 6 bits a channel that remember the mean of what
/// fell into them, so that what follows costs the same for every size of picture. Counts up to 2^30 pixels.
class PictureHistogram {
  public:
    PictureHistogram();

    /// Words of alpha, red, green, blue from the highest byte down, as a Bitmap has them. Those with alpha
    /// below 128 do not count; the others count as opaque.
    void add(std::span<const std::uint32_t> pixels);

    /// The bins that are not empty, at most 32,768: bins of 5 bits a channel where a picture has more.
    std::vector<WeightedColour> colours() const;

  private:
    /// The bin tells the upper six bits of each channel, the sums add up the rest.
    struct Bin {
        std::uint32_t count = 0, red = 0, green = 0, blue = 0;
    };

    std::vector<Bin> bins_;
};

} // namespace chromalog
