#pragma once

#include "desktop/controls.h"

#include <QScrollArea>

namespace chromalog {

class ViewWidget;

/// Points a row of a list is high; a step of the wheel or of an arrow button scrolls one.
constexpr int kListRowPitch = 22;

/// Scrolls one view that sets its own height. The view is always as wide as the clip.
class ListScrollArea : public QScrollArea, public ScrollView {
    Q_OBJECT
  public:
    explicit ListScrollArea(QWidget* parent = nullptr);

    void setEnabled(bool on) override { QWidget::setEnabled(on); }
    bool enabled() const override { return isEnabled(); }
    void setHidden(bool hidden) override { QWidget::setHidden(hidden); }
    bool hidden() const override { return isHidden(); }

    void setVerticalScroller(double) override;
    double verticalScroller() const override;
    void scrollToPoint(Point) override;
    void setNeedsDisplay() override;

    ViewWidget* content() const;

  protected:
    void resizeEvent(QResizeEvent*) override;
    bool event(QEvent*) override;

  private:
    int range() const; ///< content height − clip height, in points
};

} // namespace chromalog
