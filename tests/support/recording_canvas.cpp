#include "support/recording_canvas.h"

namespace chromalog::test {

void RecordingCanvas::add(Primitive::Kind kind, const Rect& rect, const Colour& colour, double width) {
    Primitive p{};
    p.kind = kind;
    p.rect = rect;
    p.colour = colour;
    p.width = width;
    primitives.push_back(std::move(p));
}

void RecordingCanvas::fillPath(const Path& path) {
    add(Primitive::Kind::fillPath, {}, fill_, 0);
    primitives.back().path = path;
}

void RecordingCanvas::strokePath(const Path& path) {
    add(Primitive::Kind::strokePath, {}, stroke_, lineWidth_);
    primitives.back().path = path;
}

void RecordingCanvas::drawText(Point at, std::string_view text, const Font& font, double maxWidth) {
    add(Primitive::Kind::text, {}, fill_, 0);
    Primitive& p = primitives.back();
    p.at = at;
    p.text = text;
    p.font = font;
    p.maxWidth = maxWidth;
}

std::vector<Primitive> RecordingCanvas::only(Primitive::Kind kind) const {
    std::vector<Primitive> found;
    for (const Primitive& p : primitives)
        if (p.kind == kind) found.push_back(p);
    return found;
}

} // namespace chromalog::test
