#pragma once

#include "desktop/canvas.h"

#include <QPainter>

namespace chromalog {

class CellPicture;
class LineCache;

/// What a drawing lands on.
struct PaintTarget {
    Rect bounds;                  ///< of the view; its top left corner is the painter's origin
    bool flipped = false;         ///< y grows downwards
    Rect clip;                    ///< in view coordinates
    bool toScreen = true;         ///< false on paper
    bool smoothPaths = true;      ///< antialiased outlines; never rectangles
    LineCache* lines = nullptr;   ///< keeps laid out text between paints; none: text is laid out each time
    CellPicture* cells = nullptr; ///< keeps what a view's cells cover between paints
};

/// Paints with the toolkit's painter, in a view's coordinates. Coordinates are turned here, not by a negative
/// scale of the painter: rectangles then keep their rounding and text stands upright.
class PaintCanvas : public Canvas {
  public:
    PaintCanvas(QPainter&, const PaintTarget&);

    bool drawsToScreen() const override { return target_.toScreen; }
    Rect clipBounds() const override { return target_.clip; }
    double deviceScale() const override { return scale_; }
    void setFill(const Colour&) override;
    void setStroke(const Colour&) override;
    void setLineWidth(double width) override { lineWidth_ = width; }
    void fillRect(const Rect&) override;
    void frameRect(const Rect&, double width) override;
    void strokeRect(const Rect&) override;
    void fillPath(const Path&) override;
    void strokePath(const Path&) override;
    void drawCells(std::span<const Cell>) override;
    void drawBitmap(const Bitmap&, const Rect& into) override;
    void drawText(Point at, std::string_view text, const Font&, double maxWidth) override;

    QRectF map(const Rect&) const; ///< from the view's coordinates to the painter's

  private:
    QPointF map(Point) const;
    QPainterPath map(const Path&) const;
    bool onWholePixels() const;
    bool drawKeptCells(std::span<const Cell>);
    QRect paintLayer(QImage&, const Path&, bool outlined) const;
    void addArc(QPainterPath&, const Path::Element&) const;
    bool justFilled(const Path&) const;
    bool justFilled(const Rect&) const;
    void painted(); ///< something else, over what was filled last
    void fillFrame(const QRectF& outer, double width, const QColor&);
    void useFont(const Font&);

    QPainter& painter_;
    PaintTarget target_;
    QTransform toDevice_; ///< from the painter's coordinates to pixels of the screen
    double scale_;        ///< device pixels a point
    QColor fill_ = Qt::white, stroke_ = Qt::black;
    double lineWidth_ = 1;
    // What was filled last, if nothing was painted since: an outline in its colour is cheap then.
    Rect filledRect_;
    Path filledPath_;
    QColor filledColour_;
    Font font_{Font::Face::label, 0}; ///< the font that the painter has now; size 0: none yet
};

} // namespace chromalog
