#pragma once

#include "desktop/canvas.h"

#include <QGlyphRun>
#include <QList>
#include <QPointF>

#include <string>
#include <string_view>
#include <unordered_map>

class QPainter;

namespace chromalog {

/// Lines of text laid out once and drawn often: a list paints the same names at every step of a scroll, and
/// laying them out costs several times as much as their pixels. It belongs to the widget that draws them.
class LineCache {
  public:
    /// One line with its baseline's left end at `at`, in the painter's pen; wider than `maxWidth` (where that
    /// is above 0), it ends in U+2026.
    void draw(QPainter&, QPointF at, std::string_view text, const Font&, double maxWidth);

  private:
    struct Line {
        Font font;
        double maxWidth = 0;
        QList<QGlyphRun> runs;
        double ascent = 0; ///< of the laid out line: from its top, where the runs start, to its baseline
    };
    static Line laidOut(std::string_view text, const Font&, double maxWidth);

    std::unordered_map<std::string, Line> lines_;
};

} // namespace chromalog
