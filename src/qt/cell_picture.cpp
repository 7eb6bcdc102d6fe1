#include "qt/cell_picture.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::uint16_t kGround = 0xFFFF;

/// Each channel times part/255, rounded as the toolkit's painter rounds.
QRgb timesPart(QRgb pixel, unsigned part) {
    std::uint32_t even = (pixel & 0xFF00FF) * part;
    even = (even + ((even >> 8) & 0xFF00FF) + 0x800080) >> 8 & 0xFF00FF;
    std::uint32_t odd = (pixel >> 8 & 0xFF00FF) * part;
    odd = (odd + ((odd >> 8) & 0xFF00FF) + 0x800080) & 0xFF00FF00;
    return even | odd;
}

QRgb* pixelsOf(QImage& image) {
    return reinterpret_cast<QRgb*>(image.bits());
}

} // namespace

bool operator==(const CellPicture::Shapes& a, const CellPicture::Shapes& b) {
    return a.size == b.size && a.scale == b.scale && a.lineWidth == b.lineWidth && a.flipped == b.flipped &&
           std::ranges::equal(a.paths, b.paths, {}, &Path::elements, &Path::elements);
}

bool CellPicture::knows(Shapes shapes) {
    if (shapes == shapes_) return true;
    shapes_ = std::move(shapes);
    learnt_ = false;
    return false;
}

void CellPicture::learn(const PaintLayer& paintLayer) {
    const int width = shapes_.size.width();
    QImage white(shapes_.size, QImage::Format_RGB32);
    white.fill(Qt::black);
    const std::size_t pixels = std::size_t(width) * std::size_t(shapes_.size.height());
    std::vector<std::uint16_t> shapeAt(pixels, kGround);
    std::vector<std::uint32_t> hiddenBefore(pixels, 0); ///< blends that something opaque came over
    blends_.clear();
    for (std::size_t layer = 0; layer < 2 * shapes_.paths.size(); ++layer) {
        const QRect touched = paintLayer(white, layer) & white.rect();
        const auto shape = static_cast<std::uint16_t>(layer / 2);
        for (int y = touched.top(); y <= touched.bottom(); ++y)
            for (int x = touched.left(); x <= touched.right(); ++x) {
                const auto pixel = static_cast<std::uint32_t>(y * width + x);
                QRgb& painted = pixelsOf(white)[pixel];
                const auto coverage = static_cast<std::uint8_t>(qRed(painted));
                painted = 0xFF000000;
                if (coverage == 255) {
                    shapeAt[pixel] = shape;
                    hiddenBefore[pixel] = static_cast<std::uint32_t>(blends_.size());
                } else if (coverage > 0) {
                    blends_.push_back({pixel, shape, coverage});
                }
            }
    }
    std::uint32_t index = 0;
    std::erase_if(blends_, [&](const Blend& blend) { return index++ < hiddenBefore[blend.pixel]; });
    findRuns(shapeAt);
    learnt_ = true;
}

void CellPicture::findRuns(const std::vector<std::uint16_t>& shapeAt) {
    runs_.clear();
    for (std::uint32_t pixel = 0; pixel < shapeAt.size(); ++pixel)
        if (runs_.empty() || runs_.back().shape != shapeAt[pixel])
            runs_.push_back({pixel, 1, shapeAt[pixel]});
        else
            ++runs_.back().length;
}

const QImage& CellPicture::paint(std::span<const QRgb> colours, QRgb ground, const PaintLayer& paintLayer) {
    if (!learnt_) learn(paintLayer);
    if (picture_.size() != shapes_.size) picture_ = QImage(shapes_.size, QImage::Format_RGB32);
    QRgb* pixels = pixelsOf(picture_);
    for (const Run& run : runs_)
        std::fill_n(pixels + run.first, run.length, run.shape == kGround ? ground : colours[run.shape]);
    for (const Blend& blend : blends_)
        pixels[blend.pixel] = timesPart(colours[blend.shape], blend.coverage) +
                              timesPart(pixels[blend.pixel], 255u - blend.coverage);
    return picture_;
}

} // namespace chromalog
