#include "qt/fonts.h"

#include <QGuiApplication>
#include <QStringList>

#include <cmath>

namespace chromalog {

QFont fontFor(const Font& font) {
    QFont out = QGuiApplication::font();
    if (font.face == Font::Face::label) {
        out = QFont(QStringList{"ArialMT", "Arial", "Liberation Sans"});
        out.setLetterSpacing(QFont::PercentageSpacing, 100); // any explicit spacing turns ligatures off
    }
    out.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size))));
    return out;
}

} // namespace chromalog
