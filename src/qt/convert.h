#pragma once

#include "base/colour.h"
#include "base/geometry.h"

#include <QColor>
#include <QRectF>
#include <QString>
#include <QVariantList>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

inline QString toQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A line of text as it is drawn: control characters and line ends take no room.
inline QString asLine(QString text) {
    text.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    });
    return text;
}

inline QString lineToQt(std::string_view utf8) {
    return asLine(toQt(utf8));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

/// 16 bits a channel, rounded: v/255 and w/65535 come out as exactly v and w, which QColor's floats do not
/// promise.
inline QColor toQt(const Colour& c) {
    const auto channel = [](double v) { return static_cast<quint16>(std::lround(v * 65535.0)); };
    return QColor::fromRgba64(channel(c.red()), channel(c.green()), channel(c.blue()), channel(c.alpha()));
}

/// The colour's 16-bit channels over 65535, in double. Never redF(): it is single precision.
inline Colour fromQt(const QColor& c) {
    const QRgba64 w = c.rgba64();
    return Colour::rgb(w.red() / 65535.0, w.green() / 65535.0, w.blue() / 65535.0, w.alpha() / 65535.0);
}

/// Red, green, blue and alpha exactly, 0..1; empty where there is no colour.
inline QVariantList componentsOf(const std::optional<Colour>& c) {
    return c ? QVariantList{c->red(), c->green(), c->blue(), c->alpha()} : QVariantList();
}

inline QRectF toQt(const Rect& r) {
    return {r.x, r.y, r.w, r.h};
}

/// 0..1, of an opaque sRGB colour.
inline double relativeLuminance(const Colour& c) {
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.red()) + 0.7152 * linear(c.green()) + 0.0722 * linear(c.blue());
}

/// Black or white, whichever is read better on the colour (relative luminance against its geometric middle,
/// 0.179).
inline QColor readableOn(const Colour& background) {
    return relativeLuminance(background) > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

} // namespace chromalog
