#pragma once

#include <QPainterPath>
#include <QString>

namespace chromalog {

constexpr double kGlyphSide = 16;

/// The lines of a sign on a square of that side, to be stroked; empty for a name that there is none for.
QPainterPath glyph(const QString& name);

} // namespace chromalog
