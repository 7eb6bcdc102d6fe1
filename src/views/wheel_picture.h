#pragma once

#include "base/bitmap.h"
#include "views/wheel_chunks.h"

#include <cstdint>
#include <vector>

namespace chromalog {

/// The wheel's colour model for one pixel of a picture of radius `radius`; y counts rows from the top.
/// Saturation 0 at the centre (where the hue is no number), 1 at the rim, above 1 outside. Hue as a fraction
/// of a turn. Single precision.
void getColorWheelValue(int x, int y, float* hue, float* saturation, float radius);

/// One pixel of the wheel: the disc at that brightness, its rim softened, a light grey around it.
std::uint32_t wheelPixel(int x, int y, float radius, float brightness);

/// What Bitmap::colourAt reads from the wheel's picture of that size, without the picture.
Colour wheelColour(double column, double row, int size, float brightness);

/// The wheel pixel by pixel: what every faster way of making it must equal.
Bitmap plainWheelPicture(int size, float brightness);

/// What a wheel's size decides, at the brightness that it had last.
struct WheelMeasure {
    struct RowSpan { ///< the disc in one row
        std::size_t first;
        std::size_t length;
    };
    struct RimPixel {
        std::size_t index;
        std::uint32_t alpha; ///< in the highest byte
    };

    int size_ = 0; ///< that was measured to its end
    Bitmap bitmap_;
    std::vector<WheelChunk> chunks_;   ///< whole groups, in the order in which they are written
    std::vector<float> factors_;       ///< of the chunks
    std::vector<std::size_t> singles_; ///< pixels that no chunk takes
    std::vector<RowSpan> spans_;
    std::vector<RimPixel> rim_;
};

/// A square picture of the wheel that is rebuilt quickly at another brightness, every byte as in
/// plainWheelPicture.
///
/// The largest channel of a pixel is the brightness itself; the two others are the brightness times a factor
/// that the place alone decides. The factors are kept in single precision. Where a product comes so close to
/// a whole number that its truncated byte might differ, that pixel is computed plainly; one in four thousand
/// does.
class WheelPicture : private WheelMeasure {
  public:
    WheelPicture() = default;
    WheelPicture(const WheelPicture&) = delete;
    WheelPicture& operator=(const WheelPicture&) = delete;
    ~WheelPicture(); ///< its measure is kept for the next one, where that was asked for

    /// Whether the last measure outlives its picture, for a further pick of one run, which opens at the same
    /// size: measuring is a sixth of what that costs. Not at first; false also gives up what was kept.
    static void keepMeasure(bool);

    void render(int size, float brightness);
    const Bitmap& bitmap() const { return bitmap_; }

  private:
    struct Run { ///< neighbours in a row that share the order of their channels
        int begin, end;
        std::uint32_t order;
    };

    void measure(int size);
    void measureRow(int row);
    void cutIntoChunks(int row);
    void addStrays(int row, const Run&);
    void addChunk(int row, int begin, std::uint32_t order);
    void fill(float brightness);
    void recompute(std::size_t chunk, const BrightnessScale&, float brightness);
    void recomputePixel(std::size_t index, float brightness);

    // Of the row being measured.
    std::vector<Run> runs_;
    std::vector<float> middle_, low_;
};

} // namespace chromalog
