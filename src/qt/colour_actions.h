#pragma once

#include "desktop/colour_place.h"

#include <QObject>

#include <optional>

class QContextMenuEvent;
class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace chromalog {

/// Menu, copy, paste and "add to a list" of every well and view of a form's window that shows colours: by the
/// right button or the menu key, by Ctrl+C, Ctrl+V and Insert (with Alt: list 2), and by the second press of
/// a double click on a well, which stays a press as well. It is the window's child.
class ColourActions : public QObject {
  public:
    ColourActions(QWidget& window, ColourOperations&);

    bool eventFilter(QObject*, QEvent*) override;

  private:
    bool handle(QWidget&, QEvent&); ///< true where the event was used up
    bool openMenu(QWidget&, const QContextMenuEvent&);
    bool keyPressed(QWidget&, const QKeyEvent&);

    ColourOperations& operations_;
};

} // namespace chromalog
