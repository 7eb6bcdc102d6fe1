#pragma once

#include "base/geometry.h"

#include <QScrollArea>

namespace chromalog {

class ViewWidget;

/// Scrolls one view that sets its own height. The view is always as wide as the clip.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
  public:
    explicit ListScrollArea(QWidget* parent = nullptr);

    void setVerticalScroller(double); ///< 0..1
    double verticalScroller() const;
    void scrollToPoint(Point);
    void setNeedsDisplay();

    ViewWidget* content() const;

  protected:
    void resizeEvent(QResizeEvent*) override;
    bool event(QEvent*) override;

  private:
    int range() const; ///< content height − clip height, in points
};

} // namespace chromalog
