#pragma once

#include <QWidget>

namespace chromalog {

/// Blocks in a row, on as many lines as their least widths need. The first block of a line takes its spare
/// width.
class WrapRow : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override { return {0, 0}; }
    QSize sizeHint() const override { return {0, heightForWidth(width())}; }

  protected:
    void resizeEvent(QResizeEvent*) override { layOut(); }
    bool event(QEvent*) override;

  private:
    QList<QWidget*> blocks() const;
    QList<QList<QWidget*>> lines(int width) const;
    void layOut();
};

} // namespace chromalog
