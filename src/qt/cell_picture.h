#pragma once

#include "desktop/canvas.h"

#include <QImage>
#include <QRect>

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace chromalog {

/// Opaque shapes over a plain ground, as the toolkit's smooth painter puts them, pixel for pixel. What each
/// shape covers is kept while the shapes stay, so that new colours cost a look-up a pixel where painting cost
/// tracing every outline anew.
class CellPicture {
  public:
    /// Whatever decides which pixels a shape covers.
    struct Shapes {
        std::vector<Path> paths;
        double lineWidth = 1;
        QSize size;       ///< device pixels
        double scale = 1; ///< device pixels a point
        bool flipped = false;
        friend bool operator==(const Shapes&, const Shapes&);
    };
    /// Paints layer `index` of `shapes` white into a picture that is black, and says which pixels it may
    /// have touched. A shape is two layers: filled, then outlined.
    using PaintLayer = std::function<QRect(QImage& white, std::size_t index)>;

    /// Whether these shapes were asked for the last time too; they are from now on. Shapes that are painted
    /// once are not worth learning.
    bool knows(Shapes);
    /// Of the shapes that were asked for, in these colours. Valid until the next call.
    const QImage& paint(std::span<const QRgb> colours, QRgb ground, const PaintLayer&);

  private:
    struct Run { ///< pixels of one row that one shape covers whole
        std::uint32_t first, length, shape;
    };
    struct Blend {
        std::uint32_t pixel;
        std::uint16_t shape;
        std::uint8_t coverage; ///< of 255
    };

    void learn(const PaintLayer&);
    void findRuns(const std::vector<std::uint16_t>& shapeAt);

    Shapes shapes_;
    bool learnt_ = false;
    std::vector<Run> runs_;
    std::vector<Blend> blends_; ///< over the runs, in this order
    QImage picture_;
};

} // namespace chromalog
