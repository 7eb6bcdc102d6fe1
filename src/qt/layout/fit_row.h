#pragma once

#include <QWidget>

namespace chromalog {

/// A row whose buttons all say as much as fits for every one of them: words where there is room, signs else.
class FitRow : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent*) override { choose(); }
    bool event(QEvent*) override;

  private:
    int widthAt(int level) const;
    void choose();
    bool choosing_ = false;
};

} // namespace chromalog
