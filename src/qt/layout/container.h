#pragma once

#include "qt/layout/parts.h"
#include "qt/mishap.h"

#include <QEvent>

namespace chromalog {

/// A widget that lays its children out by hand: when its size changes, and when a child asks for it.
class Container : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    virtual void layOut() = 0;
    virtual void childrenChanged() { layOut(); } ///< a child was shown, hidden or wants another size

    void resizeEvent(QResizeEvent*) final try { layOut(); } catch (...) {
        mishap();
    }
    bool event(QEvent* event) final try {
        const bool used = QWidget::event(event);
        if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) childrenChanged();
        return used;
    } catch (...) {
        mishap();
        return true;
    }
};

} // namespace chromalog
