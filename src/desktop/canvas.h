#pragma once

#include "base/bitmap.h"
#include "base/colour.h"
#include "base/geometry.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// An outline made of segments, circular arcs and ovals.
struct Path {
    struct Element {
        enum class Kind { move, line, arc, oval, close } kind;
        Point p;                   ///< move, line: the point; arc: the centre
        double radius = 0;         ///< arc
        double start = 0, end = 0; ///< arc, degrees, counter-clockwise from positive x while y grows upwards
        bool clockwise = false;    ///< arc: runs from start to end clockwise
        Rect box;                  ///< oval: the rectangle it is inscribed in
        friend bool operator==(const Element&, const Element&) = default;
    };
    std::vector<Element> elements;

    void moveTo(Point p) { elements.push_back({Element::Kind::move, p, 0, 0, 0, false, {}}); }
    void lineTo(Point p) { elements.push_back({Element::Kind::line, p, 0, 0, 0, false, {}}); }
    void oval(Rect box) { elements.push_back({Element::Kind::oval, {}, 0, 0, 0, false, box}); }
    void arc(Point centre, double radius, double start, double end, bool clockwise) {
        elements.push_back({Element::Kind::arc, centre, radius, start, end, clockwise, {}});
    }
    void close() { elements.push_back({Element::Kind::close, {}, 0, 0, 0, false, {}}); }
    void clear() { elements.clear(); }
};

/// Text is UTF-8. A size is in points of the view (pixels at scale 1), never of the screen's resolution.
struct Font {
    enum class Face {
        label,
        message
    } face = Face::label; ///< label: Arial or its metric equal; message: the system's
    double size = 12;
    friend bool operator==(const Font&, const Font&) = default;
};

/// Where a view draws: the toolkit's painter, a raster for picking, paper, or a recorder in tests.
/// Coordinates are the view's own (y up, or down while the view is flipped); text is always upright.
class Canvas {
  public:
    virtual ~Canvas() = default;

    virtual bool drawsToScreen() const = 0; ///< false on paper; a raster for picking answers true
    virtual Rect clipBounds() const = 0;    ///< what outside of which nothing shows, in view coordinates

    /// Device pixels a point: a picture of that many pixels is drawn sharp.
    virtual double deviceScale() const { return 1; }

    virtual void
    setFill(const Colour&) = 0; ///< current fill colour, also the colour of text; white at the start
    virtual void setStroke(const Colour&) = 0;   ///< current stroke colour; black at the start
    virtual void setLineWidth(double width) = 0; ///< 1 at the start

    virtual void fillRect(const Rect&) = 0;
    virtual void frameRect(const Rect&,
                           double width) = 0; ///< a frame inside the rectangle, in the fill colour
    virtual void strokeRect(const Rect&) = 0; ///< a line centred on the rectangle's edges
    virtual void fillPath(const Path&) = 0;
    virtual void strokePath(const Path&) = 0;

    struct Cell {
        Path path;
        Colour colour;
    };
    /// Each filled, then outlined in its own colour, one over the other. A screen that keeps what they cover
    /// redraws many cells in new colours for a fraction of the cost.
    virtual void drawCells(std::span<const Cell> cells) {
        for (const Cell& cell : cells) {
            setFill(cell.colour);
            fillPath(cell.path);
            setStroke(cell.colour);
            strokePath(cell.path);
        }
    }
    virtual void drawBitmap(const Bitmap&, const Rect& into) = 0;

    /// One line with its baseline's left end at `at`. Wider than `maxWidth` (where that is above 0), it ends
    /// in U+2026.
    virtual void drawText(Point at, std::string_view text, const Font&, double maxWidth) = 0;
};

} // namespace chromalog
