#pragma once

#include "base/bitmap.h"
#include "base/colour.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace chromalog {

/// What stands over the wheel's picture on the screen: the surround outside the disc, and a soft rim between
/// the two. Pixels of the disc itself, all that a pick can hit, stay as they are: the rim's colours run out
/// over the first pixel outside. Transparent over the disc.
class WheelRim {
  public:
    /// A part of it, with its place in the picture.
    struct Piece {
        int x = 0, y = 0;
        Bitmap bitmap{};
    };
    enum class Cut {
        whole, ///< one piece, of the picture's size
        frame  ///< four around the middle of the disc, where there is nothing: half the memory
    };

    /// `disc` tells one state of a picture from another of its size, as its brightness does.
    const std::vector<Piece>& around(const Bitmap& wheel, float disc, const Colour& surround, Cut);

  private:
    struct RimPixel {
        std::uint32_t at, from; ///< takes the colour of the picture's pixel `from`
        float share;            ///< of that colour; the rest is the surround's
        std::uint32_t piece;
    };

    void measure(const Bitmap& wheel, Cut);
    void measureRow(const Bitmap& wheel, int y);
    void fill(int y, int begin, int end);
    void addPixel(const Bitmap& wheel, int x, int y);
    void blend(const Bitmap& wheel);

    std::vector<Piece> pieces_;
    std::vector<RimPixel> rim_;
    int size_ = 0; ///< of the picture that was measured to its end
    Cut cut_ = Cut::whole;
    std::uint32_t surround_ = 0; ///< opaque once anything was measured
    float disc_ = -1;
};

} // namespace chromalog
