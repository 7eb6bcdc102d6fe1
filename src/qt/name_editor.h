#pragma once

#include "desktop/text_edit.h"

#include <QLineEdit>

namespace chromalog {

/// A text of a view that is edited in its place: the view's child for as long as that takes. Letters that
/// cannot be kept are underlined, and a hint tells what the text would become.
class NameEditor : public QLineEdit {
  public:
    NameEditor(QWidget& view, const QRect& where, TextEdit);
    static NameEditor* of(const QWidget& view); ///< that is open; null where none is

    enum class End { entered, dropped };
    void end(End); ///< once; it goes away from the event loop

  protected:
    void keyPressEvent(QKeyEvent*) override;
    void focusOutEvent(QFocusEvent*) override;

  private:
    void markLost();

    const TextEdit edit_;
    bool ended_ = false;
};

} // namespace chromalog
