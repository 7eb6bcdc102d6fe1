#include "qt/raster_canvas.h"

#include "qt/paint_canvas.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chromalog {

Bitmap rasterPicture(View& view) {
    const Rect bounds = view.bounds();
    Bitmap out;
    out.width = static_cast<int>(std::clamp(std::ceil(bounds.w), 0.0, double{kLongestSide}));
    out.height = static_cast<int>(std::clamp(std::ceil(bounds.h), 0.0, double{kLongestSide}));
    if (out.empty()) return out;
    out.pixels.assign(static_cast<std::size_t>(out.width) * out.height, 0);
    QImage image(reinterpret_cast<uchar*>(out.pixels.data()), out.width, out.height, out.width * 4,
                 QImage::Format_ARGB32);
    QPainter painter(&image);
    PaintCanvas canvas(painter, {bounds, view.isFlipped(), bounds, true, false});
    view.drawRect(canvas);
    return out;
}

} // namespace chromalog
