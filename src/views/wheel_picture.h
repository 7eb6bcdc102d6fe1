#pragma once

#include "desktop/bitmap.h"
#include "views/wheel_blocks.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace chromalog {

/// The wheel's colour model for one pixel of a picture of radius `radius`; y counts rows from the top.
/// Saturation 0 at the centre (where the hue is no number), 1 at the rim, above 1 outside. Hue as a fraction
/// of a turn. Single precision.
void getColorWheelValue(int x, int y, float* hue, float* saturation, float radius);

/// One pixel of the wheel: the disc at that brightness, its rim softened, a light grey around it.
std::uint32_t wheelPixel(int x, int y, float radius, float brightness);

/// The wheel pixel by pixel: what every other way of making it is measured against.
Bitmap plainWheelPicture(int size, float brightness);

/// A square picture of the wheel that is rebuilt quickly at another brightness, every byte as in
/// plainWheelPicture.
///
/// The largest channel of a pixel is the brightness itself; the two others are the brightness times a factor
/// that only the place decides. The factors are kept in single precision, for the lower half alone: the upper
/// half mirrors it. Where a product comes so close to a whole number that truncating it might differ, that
/// pixel is computed plainly.
class WheelPicture {
  public:
    void render(int size, float brightness);
    const Bitmap& bitmap() const { return bitmap_; }

  private:
    /// Neighbours in a row whose hues share a sextant, and therefore the order of the channels.
    struct Run {
        int row, begin, end;
        int sextant;
        std::size_t plane; ///< of the row's first pixel in the planes of factors
    };
    struct RimPixel {
        std::size_t index;
        std::uint32_t alpha; ///< in the highest byte
    };

    void measure(int size);
    void measureRow(int row, int mirror, std::size_t plane);
    void notePixel(std::vector<Run>& runs, const Run& pixel);
    void fill(const Run&, const BrightnessScale&, float brightness);

    Bitmap bitmap_;
    std::vector<float> middle_, low_; ///< factors of the middle and the smallest channel
    std::vector<Run> runs_;
    std::vector<RimPixel> rim_;
    std::vector<Run> mirrored_; ///< of the row being measured
};

} // namespace chromalog
