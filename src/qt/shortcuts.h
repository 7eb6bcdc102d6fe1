#pragma once

#include <QList>
#include <QObject>
#include <QPoint>
#include <QString>

class QAbstractButton;
class QShortcutEvent;
class QWidget;

namespace chromalog {

/// What a key does wherever the focus is: the name of the control that it presses, or of the field or list
/// that it goes to. "%1" in a name stands for the number of the list used last.
struct Shortcut {
    const char* keys;
    const char* control;
    const char* says;
    bool presses = true; ///< false: the focus goes there
};

/// Of the dialog; the sheet shows them in this order.
const QList<Shortcut>& shortcuts();

/// The keys of a form's window, as far as it has the controls; F1 shows the sheet. It is the window's child.
/// The dialog's work in the panels beside it too, but for those of its lists and those that a panel has
/// itself. A key stands in its control's tool tip, after what the tip says.
class Shortcuts : public QObject {
  public:
    explicit Shortcuts(QWidget& window);

    /// All keys of a control, as the platform writes them; empty where it has none.
    QString keysOf(const QWidget& control) const;

    bool eventFilter(QObject*, QEvent*) override;

  private:
    void add(const Shortcut&);
    void addSheet();
    void run(const Shortcut&);
    bool isElsewhere(QObject& target, const QShortcutEvent&) const;
    bool nameKeys(QWidget&, QPoint at) const;
    void noteList(const QWidget* focus);
    QWidget* control(const Shortcut&, int list) const;

    QWidget& window_; ///< the parent
    int list_ = 1;    ///< used last
};

} // namespace chromalog
