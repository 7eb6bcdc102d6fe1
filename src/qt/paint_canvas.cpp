#include "qt/paint_canvas.h"

#include "qt/convert.h"
#include "qt/fonts.h"
#include "qt/line_cache.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace chromalog {
namespace {

/// The part of a ring between two radii and two angles, as two arcs and a close; its outline's outer edge at
/// a distance of `margin`, corners mitred. Nothing for any other path.
std::optional<Path> grownRingSector(const Path& path, double margin) {
    using Kind = Path::Element::Kind;
    const auto& e = path.elements;
    if (e.size() != 3 || e[0].kind != Kind::arc || e[1].kind != Kind::arc || e[2].kind != Kind::close)
        return {};
    const bool closesARing = e[0].p == e[1].p && e[0].start == e[1].end && e[0].end == e[1].start &&
                             !e[0].clockwise && e[1].clockwise;
    const double outer = e[0].radius + margin, inner = e[1].radius - margin;
    const double degrees = 180 / std::numbers::pi;
    const double atOuter = std::asin(margin / outer) * degrees;
    const double atInner =
        std::asin(std::min(margin / inner, 1.0)) * degrees; // a side is a parallel to the radius
    if (!closesARing || inner <= margin || e[0].end - e[0].start + 2 * atInner >= 360) return {};
    Path grown;
    grown.arc(e[0].p, outer, e[0].start - atOuter, e[0].end + atOuter, false);
    grown.arc(e[0].p, inner, e[0].end + atInner, e[0].start - atInner, true);
    grown.close();
    return grown;
}

constexpr double noise = 1.0 / 256; ///< above that of a product of scale and position

/// The nearest whole pixel, a half upwards.
double nearest(double v) {
    return std::floor(v + 0.5 + noise);
}

/// Where the outer side of a line comes to lie. Pixels count inwards; `view` is the view's own side, `seen`
/// the first pixel of it that shows. A line along that side is seen with at least one pixel, those inside
/// stay clear of it.
double outerSide(double wanted, double view, double seen, double width) {
    if (wanted < view - width) return nearest(wanted); // outside
    return std::max(nearest(wanted), wanted > view ? seen + 1 : seen + 1 - width);
}

} // namespace

PaintCanvas::PaintCanvas(QPainter& painter, const PaintTarget& target)
    : painter_(painter), target_(target), toDevice_(painter.deviceTransform()),
      scale_(toDevice_.m11() > 0 ? toDevice_.m11() : 1) {}

QPointF PaintCanvas::map(Point p) const {
    const double y = p.y - target_.bounds.y;
    return {p.x - target_.bounds.x, target_.flipped ? y : target_.bounds.h - y};
}

QRectF PaintCanvas::map(const Rect& r) const {
    const QPointF corner = map(Point{r.x, target_.flipped ? r.y : r.y + r.h});
    return {corner.x(), corner.y(), r.w, r.h};
}

void PaintCanvas::setFill(const Colour& c) {
    fill_ = toQt(c);
}
void PaintCanvas::setStroke(const Colour& c) {
    stroke_ = toQt(c);
}

bool PaintCanvas::justFilled(const Rect& r) const {
    return r == filledRect_ && fill_ == filledColour_ && fill_.alpha() == 255;
}

bool PaintCanvas::justFilled(const Path& path) const {
    return path.elements == filledPath_.elements && stroke_ == filledColour_ && stroke_.alpha() == 255;
}

void PaintCanvas::painted() {
    filledRect_ = {};
    filledPath_.clear();
    filledColour_ = {};
}

void PaintCanvas::fillRect(const Rect& r) {
    painted();
    painter_.fillRect(map(r), fill_);
    filledRect_ = r;
    filledColour_ = fill_;
}

/// The frame lies inside the rectangle: over the same colour nothing of it would show.
void PaintCanvas::frameRect(const Rect& r, double width) {
    if (justFilled(r)) return;
    painted();
    fillFrame(map(r), width, fill_);
}

/// Four filled bands: a pen of width 2 and more would lose corner pixels, and a band is exact at any scale.
void PaintCanvas::fillFrame(const QRectF& outer, double width, const QColor& colour) {
    const double w = std::min({width, outer.width() / 2, outer.height() / 2});
    if (w <= 0) return;
    const double inside = outer.height() - 2 * w;
    painter_.fillRect(QRectF(outer.left(), outer.top(), outer.width(), w), colour);
    painter_.fillRect(QRectF(outer.left(), outer.bottom() - w, outer.width(), w), colour);
    painter_.fillRect(QRectF(outer.left(), outer.top() + w, w, inside), colour);
    painter_.fillRect(QRectF(outer.right() - w, outer.top() + w, w, inside), colour);
}

/// On the screen the line is as many whole device pixels wide as fit, and its outer sides move inwards to
/// whole pixels: lines a point apart stay apart at any scale.
void PaintCanvas::strokeRect(const Rect& r) {
    painted();
    const QRectF line = map(r).adjusted(-lineWidth_ / 2, -lineWidth_ / 2, lineWidth_ / 2, lineWidth_ / 2);
    if (!target_.toScreen) {
        fillFrame(line, lineWidth_, stroke_);
        return;
    }
    const double width = std::max(1.0, std::floor(lineWidth_ * scale_ + noise));
    const QRectF wanted = toDevice_.mapRect(line), view = toDevice_.mapRect(map(target_.bounds));
    // The toolkit rounds where the view begins, and how far it reaches: as far as this for certain.
    const double right = std::floor(view.right() + noise), bottom = std::floor(view.bottom() + noise);
    const QPointF topLeft(outerSide(wanted.left(), view.left(), nearest(view.left()), width),
                          outerSide(wanted.top(), view.top(), nearest(view.top()), width));
    const QPointF bottomRight(-outerSide(-wanted.right(), -view.right(), -right, width),
                              -outerSide(-wanted.bottom(), -view.bottom(), -bottom, width));
    fillFrame(toDevice_.inverted().mapRect(QRectF(topLeft, bottomRight)), width / scale_, stroke_);
}

void PaintCanvas::addArc(QPainterPath& path, const Path::Element& e) const {
    double sweep = std::fmod(e.clockwise ? e.start - e.end : e.end - e.start, 360.0);
    if (sweep <= 0) sweep += 360.0;
    if (e.clockwise) sweep = -sweep;
    const double start = target_.flipped ? -e.start : e.start;
    if (target_.flipped) sweep = -sweep;
    const QPointF c = map(e.p);
    const QRectF circle(c.x() - e.radius, c.y() - e.radius, 2 * e.radius, 2 * e.radius);
    if (path.elementCount() == 0) path.arcMoveTo(circle, start);
    path.arcTo(circle, start, sweep);
}

QPainterPath PaintCanvas::map(const Path& path) const {
    QPainterPath out;
    for (const Path::Element& e : path.elements) {
        switch (e.kind) {
        case Path::Element::Kind::move:
            out.moveTo(map(e.p));
            break;
        case Path::Element::Kind::line:
            out.lineTo(map(e.p));
            break;
        case Path::Element::Kind::arc:
            addArc(out, e);
            break;
        case Path::Element::Kind::oval:
            out.addEllipse(map(e.box));
            break;
        case Path::Element::Kind::close:
            out.closeSubpath();
            break;
        }
    }
    return out;
}

void PaintCanvas::fillPath(const Path& path) {
    painted();
    painter_.setRenderHint(QPainter::Antialiasing, target_.smoothPaths);
    painter_.fillPath(map(path), fill_);
    painter_.setRenderHint(QPainter::Antialiasing, false);
    filledPath_ = path;
    filledColour_ = fill_;
}

/// The toolkit strokes smoothly at several times the cost of a fill. Around a ring's cell in the cell's own
/// colour the line is the cell once more, larger by half the line's width.
void PaintCanvas::strokePath(const Path& path) {
    const bool overItself = target_.smoothPaths && justFilled(path);
    painted();
    painter_.setRenderHint(QPainter::Antialiasing, target_.smoothPaths);
    if (const auto grown = overItself ? grownRingSector(path, lineWidth_ / 2) : std::nullopt) {
        painter_.fillPath(map(*grown), stroke_);
        painter_.setRenderHint(QPainter::Antialiasing, false);
        return;
    }
    painter_.strokePath(map(path), QPen(stroke_, lineWidth_, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void PaintCanvas::drawBitmap(const Bitmap& bitmap, const Rect& into) {
    if (bitmap.empty()) return;
    painted();
    const QImage image(reinterpret_cast<const uchar*>(bitmap.pixels.data()), bitmap.width, bitmap.height,
                       bitmap.width * 4,
                       bitmap.cut ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32);
    const QRectF target = map(into);
    // At a broken scale a picture made for its place is off by a part of a pixel. Mixed anew, the wheel and
    // the surround over it would each take something of what lies beside the rim: a pale line in a dark
    // surround.
    const double tolerance = scale_ == 1 ? 0 : 0.999;
    const auto fits = [&](double covered, int pixels) {
        return std::abs(covered * scale_ - pixels) <= tolerance;
    };
    const bool exact = fits(target.width(), bitmap.width) && fits(target.height(), bitmap.height);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, target_.toScreen && !exact);
    painter_.drawImage(target, image);
}

void PaintCanvas::useFont(const Font& font) {
    if (font == font_) return;
    font_ = font;
    painter_.setFont(fontFor(font));
}

void PaintCanvas::drawText(Point at, std::string_view text, const Font& font, double maxWidth) {
    painted();
    if (target_.lines) {
        painter_.setPen(fill_);
        target_.lines->draw(painter_, map(at), text, font, maxWidth);
        return;
    }
    useFont(font);
    QString line = lineToQt(text);
    if (maxWidth > 0) {
        const QFontMetricsF metrics(painter_.font());
        line = metrics.elidedText(line, Qt::ElideRight, maxWidth);
    }
    painter_.setPen(fill_);
    painter_.drawText(map(at), line);
}

} // namespace chromalog
