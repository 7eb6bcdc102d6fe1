#include "qt/line_cache.h"

#include "qt/convert.h"
#include "qt/fonts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

namespace chromalog {
namespace {
constexpr std::size_t mostLines = 1000; ///< some screens of a list; then it starts anew
}

LineCache::Line LineCache::laidOut(std::string_view text, const Font& font, double maxWidth) {
    const QFont face = fontFor(font);
    QString shown = lineToQt(text);
    if (maxWidth > 0) shown = QFontMetricsF(face).elidedText(shown, Qt::ElideRight, maxWidth);
    QTextLayout layout(shown, face);
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(oneLine);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return {font, maxWidth, layout.glyphRuns(), line.isValid() ? line.ascent() : 0};
}

void LineCache::draw(QPainter& painter, QPointF at, std::string_view text, const Font& font,
                     double maxWidth) {
    if (lines_.size() >= mostLines) lines_.clear();
    const auto [entry, isNew] = lines_.try_emplace(std::string(text));
    Line& line = entry->second;
    if (isNew || line.maxWidth != maxWidth || line.font != font) line = laidOut(text, font, maxWidth);
    for (const QGlyphRun& run : line.runs)
        painter.drawGlyphRun(at - QPointF(0, line.ascent), run);
}

} // namespace chromalog
