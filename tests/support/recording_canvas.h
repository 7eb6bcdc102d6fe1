#pragma once

#include "desktop/canvas.h"

#include <string>
#include <vector>

namespace chromalog::test {

/// One recorded primitive with the colours and line width in force.
struct Primitive {
    enum class Kind { fillRect, frameRect, strokeRect, fillPath, strokePath, bitmap, text } kind;
    Rect rect;           ///< rectangles; bitmap: where it is drawn
    Path path;           ///< paths
    Point at;            ///< text: baseline
    std::string text;    ///< text
    Font font;           ///< text
    double maxWidth = 0; ///< text
    double width = 0;    ///< line width: frames, strokes
    Colour colour;       ///< fill colour for fills, frames and text; stroke colour for strokes
};

/// Records a drawing as a list of values.
class RecordingCanvas : public Canvas {
  public:
    explicit RecordingCanvas(bool toScreen = true, Rect clip = {-1e9, -1e9, 2e9, 2e9})
        : toScreen_(toScreen), clip_(clip) {}

    std::vector<Primitive> primitives;

    bool drawsToScreen() const override { return toScreen_; }
    Rect clipBounds() const override { return clip_; }
    void setFill(const Colour& c) override { fill_ = c; }
    void setStroke(const Colour& c) override { stroke_ = c; }
    void setLineWidth(double width) override { lineWidth_ = width; }
    void fillRect(const Rect& r) override { add(Primitive::Kind::fillRect, r, fill_, 0); }
    void frameRect(const Rect& r, double width) override { add(Primitive::Kind::frameRect, r, fill_, width); }
    void strokeRect(const Rect& r) override { add(Primitive::Kind::strokeRect, r, stroke_, lineWidth_); }
    void fillPath(const Path&) override;
    void strokePath(const Path&) override;
    void drawBitmap(const Bitmap&, const Rect& into) override {
        add(Primitive::Kind::bitmap, into, fill_, 0);
    }
    void drawText(Point at, std::string_view text, const Font&, double maxWidth) override;

    /// The primitives of one kind, in order.
    std::vector<Primitive> only(Primitive::Kind) const;

  private:
    void add(Primitive::Kind, const Rect&, const Colour&, double width);

    bool toScreen_;
    Rect clip_;
    Colour fill_ = Colour::rgb(1, 1, 1);
    Colour stroke_;
    double lineWidth_ = 1;
};

} // namespace chromalog::test
