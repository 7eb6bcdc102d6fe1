#pragma once

#include "qt/controls/widget_control.h"

#include <QDialog>
#include <QMenu>

#include <optional>
#include <vector>

namespace chromalog {

/// The root of every form: closing it in any way (close box, Escape) is one call of onClose and no more.
/// Where a button of the form has the property pressedByEscape, Escape presses it instead.
class DialogWindow : public QDialog {
    Q_OBJECT
  public:
    explicit DialogWindow(QWidget* parent = nullptr);
    std::function<void()> onClose; ///< where empty, the window just goes away
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent*) override;

  private:
    bool closing_ = false;
};

/// A title and a close box: a modal dialog cannot be put away, and a panel goes with its dialog.
constexpr Qt::WindowFlags kDialogFlags =
    Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

/// The corner of a window of that size beside another, on the other side where there is no room; nothing
/// where the screen has room on neither.
std::optional<QPoint> placeBeside(const QRect& window, QSize size, const QRect& available, bool left);

/// The frame that the toolkit tells of, where it is one around that window. A frame that the window manager
/// is just putting around is a single pixel to it: none counts then.
QRect frameAround(const QRect& window, const QRect& frame);

class WindowControl : public WidgetControl<Window, DialogWindow> {
  public:
    explicit WindowControl(DialogWindow*);
    DialogWindow* dialog() const { return widget_; }

    bool connected() const override { return !widget_.isNull(); }
    bool visible() const override { return widget_ && widget_->isVisible(); }
    void makeKeyAndOrderFront() override;
    void orderOut() override;
    void attachAsChildOf(Window&) override;
    void standBeside(Window&, bool left) override;
    void whenClosed(std::function<void()>) override;

  private:
    bool placed_ = false; ///< once: then it stands where a person puts it
};

class MenuControl : public Menu {
  public:
    explicit MenuControl(QMenu* menu) : menu_(menu) {}
    void popUp(const View&, Point) override;
    void addMenuItems(std::function<MenuItems()> items) override { more_.push_back(std::move(items)); }

  private:
    QPointer<QMenu> menu_;
    std::vector<std::function<MenuItems()>> more_;
};

} // namespace chromalog
