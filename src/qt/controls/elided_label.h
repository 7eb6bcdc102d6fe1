#pragma once

#include "qt/convert.h"
#include "qt/mishap.h"

#include <QLabel>
#include <QPainter>

namespace chromalog {

/// A label that cuts a long text at its end instead of growing, and shows it in one line: a file's name can
/// hold line ends.
class ElidedLabel : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {20, lineHeight()}; }
    QSize sizeHint() const override { return {60, lineHeight()}; }

  protected:
    void paintEvent(QPaintEvent*) override try {
        QPainter painter(this);
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect(), int(alignment()) | Qt::TextSingleLine,
                         fontMetrics().elidedText(asLine(text()), Qt::ElideRight, width()));
    } catch (...) {
        mishap();
    }

  private:
    int lineHeight() const {
        ensurePolished();
        const QMargins around = contentsMargins();
        // Not the text's own: glyphs of another font would move the whole dialog.
        return fontMetrics().lineSpacing() + 2 * margin() + around.top() + around.bottom();
    }
};

} // namespace chromalog
