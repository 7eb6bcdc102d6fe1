#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace chromalog {

/// Says in a window whether whoever uses it uses the keyboard: the focus is shown then, and not after a press
/// of the mouse. The window's attribute WA_KeyboardFocusChange carries it, which the toolkit's own styles
/// heed too. Around a view the focus is a ring outside of it, so that nothing of its picture is covered. It
/// is the window's child, and made when all its widgets stand.
class KeyboardFocus : public QObject {
  public:
    explicit KeyboardFocus(QWidget& window);

    bool eventFilter(QObject*, QEvent*) override;

  private:
    void show(bool);
    void placeRing();

    QWidget& window_; ///< the parent
    QPointer<QWidget> ring_;
};

} // namespace chromalog
