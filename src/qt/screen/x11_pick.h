#pragma once

#include "desktop/screen_pick.h"
#include "qt/screen/frozen_screen.h"
#include "qt/screen/x_pointer.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <memory>
#include <vector>

namespace chromalog {

/// A pick from the screens of an X server with a magnifier at the pointer. A click or Return takes the aimed
/// pixel and ends; with Shift it goes on, and a pixel that was taken last is not taken again; arrow keys move
/// by a pixel; Escape and the other buttons take all back.
class X11Pick : public QObject {
  public:
    /// What the screens show is taken from them a moment later, when tool tips have gone. `dialog` may be
    /// null.
    X11Pick(QWidget* dialog, ScreenAnswer);

    bool eventFilter(QObject*, QEvent*) override;

  private:
    void freeze(QWidget* dialog);
    bool grab();
    void pointedAt(QPointF global);
    void keyPressed(int key, bool repeated, bool shift);
    void moveBy(QPoint);
    void aimAt(QPoint);
    void take(bool goesOn);
    void end(ScreenColours);

    FrozenScreen* screenOf(QPoint pixel) const; ///< null between and beside the screens

    ScreenAnswer answer_; ///< empty once it is on its way
    const XPointer pointer_;
    std::vector<std::unique_ptr<FrozenScreen>> screens_;
    QTimer grabs_; ///< until pointer and keys are ours
    int triesLeft_;
    QPoint aim_;                ///< device pixel
    std::vector<QPoint> moves_; ///< of the pointer by us, that the server has not reported yet
    Qt::MouseButton pressed_ = Qt::NoButton;
    std::vector<QColor> taken_;
    QPoint takenLast_;
};

} // namespace chromalog
