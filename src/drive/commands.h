#pragma once

#include "abi/standalone_suite.h"
#include "base/colour.h"
#include "drive/pointer.h"
#include "drive/script.h"

#include <QString>

#include <optional>

class QMenu;
class QWidget;

namespace chromalog {
class DrivenDialog;
}

namespace chromalog::drive {

/// What commands do to the dialog: each becomes events of the toolkit. They throw CommandError. A command
/// that opens a modal window, an alert or a menu returns only when that is closed again. What concerns the
/// script itself (waiting, answers) is the player's.
class Commands {
  public:
    Commands(DrivenDialog& dialog, const StandaloneSuite* standalone)
        : dialog_(dialog), standalone_(standalone) {}

    void perform(const Command&);
    /// Whether the menu that is open, if any, can stay so for the command.
    bool leavesMenuOpen(const Command&) const;

    /// Chooses the item that a command before wanted from a menu that has opened since; false where none
    /// waits.
    bool chooseWaitingItem();

  private:
    void clickAt(const Command&);
    void clickHolding(const Command&);
    void doubleClickAt(const Command&);
    void rightClickAt(const Command&);
    void rightClick(const PointerTarget&);
    void press(const Command&);
    void drag(const Command&);
    void sweep(const Command&);
    void drop(const Command&);
    void dropFile(const Command&);
    void type(const Command&);
    void append(const Command&);
    void clip(const Command&);
    void key(const Command&);
    void set(const Command&);
    void menu(const Command&);
    void paper(const Command&);
    void ok(const Command&);
    void cancel(const Command&);
    void shot(const Command&);
    void picture(const Command&);
    void state(const Command&);

    void clickWith(const PointerTarget&, Qt::KeyboardModifiers held);
    void pressOperation(const QString& operation, bool alt);
    void pressEither(const QString& operation, const QString& other);
    void openContextMenu(QWidget& outlet, const QString& operation);
    void chooseFromButton(QWidget&, const QString& operation);
    Colour rgbOf(const WrittenColour&) const;

    DrivenDialog& dialog_;
    const StandaloneSuite* standalone_; ///< null in other hosts
    long performed_ = 0;                ///< commands begun, those in nested loops included
    std::optional<QString> waitingFor_; ///< the operation of a menu item, until its menu is open
};

} // namespace chromalog::drive
