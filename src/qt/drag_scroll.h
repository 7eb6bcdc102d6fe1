#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace chromalog {

class ListScrollArea;

/// Scrolls a list while a drag stays near the upper or lower edge of what shows, faster the nearer it is.
class DragScroll : public QObject {
  public:
    /// `scrolled`: by so many pixels, down is positive.
    DragScroll(ListScrollArea& area, std::function<void(int)> scrolled);

    void over(int y); ///< the pointer, in pixels below the clip's top
    void stop();

  private:
    void step();

    ListScrollArea& area_;
    const std::function<void(int)> scrolled_;
    QTimer timer_;
    int pixels_ = 0; ///< a step
};

} // namespace chromalog
