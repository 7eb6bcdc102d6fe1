#pragma once

#include "base/bitmap.h"
#include "base/colour.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace chromalog {

/// What stands over the wheel's picture on the screen: the surround outside the disc, and a soft rim between
/// the two. Pixels of the disc itself, all that a pick can hit, stay as they are: the rim's colours run out
/// over the first pixel outside. Transparent over the disc; of the picture's size.
class WheelRim {
  public:
    /// `disc` tells one state of a picture from another of its size, as its brightness does.
    const Bitmap& around(const Bitmap& wheel, float disc, const Colour& surround);

  private:
    struct RimPixel {
        std::size_t at, from; ///< takes the colour of the picture's pixel `from`
        float share;          ///< of that colour; the rest is the surround's
    };

    void measure(const Bitmap& wheel);
    void measureRow(const Bitmap& wheel, int y);
    void addPixel(const Bitmap& wheel, int x, int y);
    void blend(const Bitmap& wheel);

    Bitmap bitmap_;
    std::vector<RimPixel> rim_;
    std::uint32_t surround_ = 0; ///< opaque once anything was measured
    float disc_ = -1;
};

} // namespace chromalog
