#include "qt/controls/glyphs.h"

#include <QStringList>

namespace chromalog {

namespace {

struct Glyph {
    const char* name;
    const char* strokes; ///< move M x y, line L x y, close Z, arc A x y w h start sweep, circle O x y radius
};

constexpr Glyph kGlyphs[] = {
    {"undo", "M 6 3 L 2.5 6.5 L 6 10 M 2.5 6.5 L 10 6.5 A 6.5 6.5 7 7 90 -180 L 7 13.5"},
    {"redo", "M 10 3 L 13.5 6.5 L 10 10 M 13.5 6.5 L 6 6.5 A 2.5 6.5 7 7 90 180 L 9 13.5"},
    {"history", "O 8 8 5.5 M 8 4.5 L 8 8 L 10.5 9.5"},
    {"load", "M 1.5 13 L 1.5 3.5 L 6 3.5 L 7.5 5 L 12.5 5 L 12.5 7 M 1.5 13 L 4 7 L 14.5 7 L 12 13 Z"},
    {"save", "M 8 2 L 8 10 M 4.5 6.5 L 8 10 L 11.5 6.5 M 2 10.5 L 2 13.5 L 14 13.5 L 14 10.5"},
    {"sort", "M 2 4 L 8.5 4 M 2 8 L 7 8 M 2 12 L 5.5 12 M 11.5 3.5 L 11.5 12.5 M 9 10 L 11.5 12.5 L 14 10"},
    {"append", "M 2 4 L 10 4 M 2 8 L 10 8 M 2 12 L 6.5 12 M 11.5 9 L 11.5 14 M 9 11.5 L 14 11.5"},
    {"hue", "O 5.5 6 3.5 O 10.5 6 3.5 O 8 10 3.5"},
    {"book", "M 3 2.5 L 13 2.5 L 13 13.5 L 3 13.5 Z M 5.5 2.5 L 5.5 13.5 M 7.5 5.5 L 11 5.5"},
    {"clear", "O 8 8 5.5 M 5.8 5.8 L 10.2 10.2 M 10.2 5.8 L 5.8 10.2"},
    {"earlier", "M 2 6 L 14 6 L 14 13.5 L 2 13.5 Z M 3 6 L 4.5 2.5 L 11.5 2.5 L 13 6 M 6 9 L 10 9"},
    {"store", "M 2.5 2.5 L 13.5 2.5 L 13.5 13.5 L 2.5 13.5 Z M 8 4.5 L 8 10.5 M 5 8 L 8 11 L 11 8"},
    {"delete",
     "M 2.5 4.5 L 13.5 4.5 M 6 4.5 L 6 2.5 L 10 2.5 L 10 4.5 M 4 4.5 L 4.7 13.5 L 11.3 13.5 L 12 4.5"},
    {"print", "M 4 6 L 4 2.5 L 12 2.5 L 12 6 M 4 11 L 1.5 11 L 1.5 6 L 14.5 6 L 14.5 11 L 12 11 M 4 9 L 12 9 "
              "L 12 13.5 L "
              "4 13.5 Z"},
    {"unprintable", "M 8 1.5 L 15 14 L 1 14 Z M 8 5.5 L 8 9.5 M 8 11.2 L 8 12"},
    {"picture",
     "M 1.5 3 L 14.5 3 L 14.5 13 L 1.5 13 Z M 1.5 11.5 L 5.5 7.5 L 9 11 L 11 9 L 14.5 12 O 10.5 6 1.2"},
    {"dropper",
     "M 2 14 L 2.7 11.3 L 8.2 5.8 L 10.2 7.8 L 4.7 13.3 Z M 6.9 4.5 L 11.5 9.1 M 9.2 6.8 L 11.9 4.1 A "
     "10.9 2.1 3 3 225 -180 L 9.2 6.8"},
    {"tools",
     "M 2 14 L 2 12 L 8.5 5.5 L 10.5 7.5 L 4 14 Z M 9 3 L 13 7 M 10.5 5.5 L 12.5 2 L 14 3.5 L 10.5 5.5"},
    {"view", "M 1.5 2.5 L 14.5 2.5 L 14.5 13.5 L 1.5 13.5 Z M 10 2.5 L 10 13.5 M 1.5 9.5 L 10 9.5"},
    {"complement", "O 8 8 5.5 M 5.5 10.5 L 10.5 5.5 O 4.1 11.9 1.4 O 11.9 4.1 1.4"},
    {"triad", "O 8 8 5.5 M 8 2.5 L 12.8 10.75 L 3.2 10.75 Z"},
    {"pair", "O 8 8 5.5 M 8 8 L 8 2.5 M 8 8 L 12.5 4.8 M 8 8 L 3.5 4.8"},
    {"quad", "O 8 8 5.5 M 5.2 3.3 L 12.7 6.2 L 10.8 12.7 L 3.3 9.8 Z"},
    {"page", "M 3.5 1.5 L 9.5 1.5 L 12.5 4.5 L 12.5 14.5 L 3.5 14.5 Z M 9.5 1.5 L 9.5 4.5 L 12.5 4.5"},
    {"more", "O 3.5 8 1 O 8 8 1 O 12.5 8 1"},
    {"tones", "O 8 8 6 O 8 8 2.5 M 8 2 L 8 5.5 M 8 10.5 L 8 14 M 2 8 L 5.5 8 M 10.5 8 L 14 8"},
    {"absolute", "M 8 2 L 8 14 M 2.8 5 L 13.2 11 M 2.8 11 L 13.2 5"},
};

/// Reads the words of one outline.
struct Pen {
    QStringList words;
    qsizetype at = 0;
    QPainterPath path;

    double number() { return words.value(at++).toDouble(); }
    QPointF point() {
        const double x = number();
        return {x, number()};
    }
    void stroke(const QString& verb) {
        if (verb == "Z") return path.closeSubpath();
        const QPointF to = point();
        if (verb == "M") return path.moveTo(to);
        if (verb == "L") return path.lineTo(to);
        if (verb == "O") {
            const double radius = number();
            return path.addEllipse(to, radius, radius);
        }
        const QPointF size = point(), angles = point();
        path.arcTo(to.x(), to.y(), size.x(), size.y(), angles.x(), angles.y());
    }
};

} // namespace

QPainterPath glyph(const QString& name) {
    for (const Glyph& known : kGlyphs) {
        if (name != QLatin1String(known.name)) continue;
        Pen pen;
        pen.words = QString::fromLatin1(known.strokes).split(QLatin1Char(32));
        while (pen.at < pen.words.size())
            pen.stroke(pen.words.value(pen.at++));
        return pen.path;
    }
    return {};
}

} // namespace chromalog
