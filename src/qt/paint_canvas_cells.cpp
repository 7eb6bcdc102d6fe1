#include "qt/cell_picture.h"
#include "qt/convert.h"
#include "qt/paint_canvas.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

QRgb pixelOf(const QColor& colour) {
    return colour.rgba64().premultiplied().toArgb32();
}

bool isWhole(double v) {
    return v == std::floor(v);
}

} // namespace

/// The view begins on a pixel, and a point is one or several of them.
bool PaintCanvas::onWholePixels() const {
    return toDevice_.type() <= QTransform::TxScale && toDevice_.m11() == toDevice_.m22() && isWhole(scale_) &&
           isWhole(toDevice_.dx()) && isWhole(toDevice_.dy());
}

void PaintCanvas::drawCells(std::span<const Cell> cells) {
    if (!drawKeptCells(cells)) Canvas::drawCells(cells);
}

/// Only over a ground of one colour, which the view has just filled, and all opaque.
bool PaintCanvas::drawKeptCells(std::span<const Cell> cells) {
    const bool onGround = filledRect_ == target_.bounds && filledColour_.alpha() == 255;
    const auto opaque = [](const Cell& cell) { return cell.colour.alpha() == 1; };
    if (!target_.cells || !target_.toScreen || !target_.smoothPaths || !onGround || !onWholePixels() ||
        !std::ranges::all_of(cells, opaque))
        return false;
    const QSize size(static_cast<int>(std::ceil(target_.bounds.w * scale_)),
                     static_cast<int>(std::ceil(target_.bounds.h * scale_)));
    CellPicture::Shapes shapes{{}, lineWidth_, size, scale_, target_.flipped};
    std::vector<QRgb> colours;
    for (const Cell& cell : cells) {
        shapes.paths.push_back(cell.path);
        colours.push_back(pixelOf(toQt(cell.colour)));
    }
    if (!target_.cells->knows(std::move(shapes))) return false;
    QImage picture = target_.cells->paint(colours, pixelOf(filledColour_),
                                          [this, cells](QImage& white, std::size_t index) {
                                              return paintLayer(white, cells[index / 2].path, index % 2 == 1);
                                          });
    painted();
    picture.setDevicePixelRatio(scale_);
    painter_.drawImage(map(target_.bounds).topLeft(), picture);
    return true;
}

/// Just as on the screen; answers what may be touched, in pixels.
QRect PaintCanvas::paintLayer(QImage& white, const Path& path, bool outlined) const {
    const double reach = outlined ? lineWidth_ * 2 : 0; // a mitred corner of a right angle, and more
    const QRectF box = map(path).boundingRect().adjusted(-reach, -reach, reach, reach);
    QPainter painter(&white);
    painter.scale(scale_, scale_);
    PaintCanvas canvas(painter, target_);
    canvas.lineWidth_ = lineWidth_;
    canvas.fill_ = canvas.stroke_ = Qt::white;
    if (!outlined) {
        canvas.fillPath(path);
    } else { // as after the fill
        canvas.filledPath_ = path;
        canvas.filledColour_ = Qt::white;
        canvas.strokePath(path);
    }
    return QRectF(box.topLeft() * scale_, box.size() * scale_).toAlignedRect().adjusted(-1, -1, 1, 1);
}

} // namespace chromalog
