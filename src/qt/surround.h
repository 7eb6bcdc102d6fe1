#pragma once

#include <QActionGroup>
#include <QObject>
#include <QPalette>
#include <QString>

class QAction;

namespace chromalog {

/// What a palette must say over the desktop's for colours to lie on that ground: "light", "midGrey" and
/// "dark" set the roles Window and WindowText alone, as styles with colours of their own heed no others. Any
/// other name is as the desktop: only a ground that is no grey becomes the grey of its luminance. Some
/// desktops forget PlaceholderText: it is set where it could not be read.
QPalette surroundPalette(const QPalette& desktop, const QString& name);

/// The ground around colours in a form's window, as its menu items with the property `surround` offer it. It
/// is the window's child, and follows the desktop while it is open.
class SurroundChoice : public QObject {
  public:
    explicit SurroundChoice(QWidget& window);

    QString chosen() const;           ///< a name; empty where the form offers none
    void choose(const QString& name); ///< nothing where no item offers it

    bool eventFilter(QObject*, QEvent*) override;

    /// The window's; null where it has none.
    static SurroundChoice* of(const QWidget& window);

  private:
    QList<QAction*> items() const;
    void apply();

    QWidget& window_; ///< the parent
    QActionGroup group_{this};
};

} // namespace chromalog
