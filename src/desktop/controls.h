#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "desktop/menu_item.h"
#include "desktop/pasteboard.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// The controls of a dialog. Each base is its own null object: an unconnected outlet does nothing, keeps
/// nothing and reads as zero or empty. The toolkit's controls override.
class Control {
  public:
    virtual ~Control() = default;
    virtual void setEnabled(bool) {}
    virtual void setHidden(bool) {}
    /// What it does or tells now: its tool tip and its description. Plain text, perhaps with names from
    /// outside.
    virtual void setHelp(std::string_view) {}
    virtual void setDimmed(bool) {} ///< painted as out of date; it works as before
    /// Makes it a control of one of the dialog's own classes, for those who look at the dialog from outside.
    virtual void setClassName(const char*) {}
    /// Asked whenever a person opens its context menu: they stand below what it has there.
    virtual void addMenuItems(std::function<MenuItems()>) {}
};

/// Also labels and search fields. A field that a person is typing in keeps its text until its dialog's focus
/// goes elsewhere or Return is pressed, and then shows what was set since the last edit.
class TextField : public Control {
  public:
    virtual void setText(std::string_view) {}
    virtual std::string text() const { return {}; }
    /// Called on every edit by a person (typing, paste, cut, clear, undo), never when the program sets the
    /// text.
    virtual void whenEdited(std::function<void()>) {}
    virtual void whenEditingEnds(std::function<void()>) {} ///< after the field shows what was set meanwhile
    /// Called in place of what Return does elsewhere (ending the edit, pressing OK), where it is set.
    virtual void whenReturnPressed(std::function<void()>) {}
    /// Marks the text as one that cannot be read and tells why; an empty text takes the mark away.
    virtual void setFault(std::string_view) {}
    virtual void whenStepped(std::function<void(int)>) {} ///< by the keys Up (-1) and Down (1)
};

class Button : public Control {
  public:
    virtual void setTitle(std::string_view) {}
    virtual void setBackground(const Colour&) {} ///< the title stays readable on it
    virtual void setState(int) {}                ///< two-state buttons and check boxes: 0 or 1
    virtual int state() const { return 0; }
    /// Asked whenever a person opens the button's menu, where the form gives it none.
    virtual void whenMenuOpens(std::function<MenuItems()>) {}
};

/// A colour well: shows a colour and drags it out. Where `whenDropped` is set it takes a dropped one; others
/// show what was computed.
class ColorWell : public Control {
  public:
    virtual void setColor(const Colour&) {}
    virtual Colour color() const { return {}; }
    virtual void whenDropped(std::function<void(const DragInfo&)>) {
    } ///< after the well took the dropped colour
};

class Slider : public Control {
  public:
    virtual double value() const { return 0; }
};

class Stepper : public Control {
  public:
    virtual void configure(double minimum, double maximum, double increment, double value, bool wraps) {
        (void)minimum, (void)maximum, (void)increment, (void)value, (void)wraps;
    }
    virtual double value() const { return 0; }
};

class LevelIndicator : public Control {
  public:
    virtual void setValue(double) {} ///< kept as given; only its drawing is clamped to 0..10
};

class TextView : public Control {
  public:
    virtual void setText(std::string_view) {}
};

class ScrollView : public Control {
  public:
    static constexpr int kRowPitch = 22; ///< points; a step of the wheel or of an arrow button

    virtual void setVerticalScroller(double) {
    } ///< 0..1; the content at v × (content height − clip height) shows
    virtual double verticalScroller() const { return 0; }
    virtual void scrollToPoint(Point) {
    } ///< this content point to the clip's top left, as far as there is content
    virtual void setNeedsDisplay() {}
};

class RadioMatrix : public Control {
  public:
    virtual void selectRow(int) {}
    virtual int selectedRow() const { return 0; }
    virtual std::string selectedTitle() const { return {}; }
};

/// Rows of plain text of which one can be selected.
class RowList : public Control {
  public:
    virtual void setRows(const std::vector<std::string>&) {} ///< selects the first, if there is one
    virtual int selectedRow() const { return -1; }           ///< -1 where none is
};

class Menu {
  public:
    virtual ~Menu() = default;
    /// Opens at a point of the view and returns when it has closed.
    virtual void popUp(const class View&, Point) {}
    virtual void addMenuItems(std::function<MenuItems()>) {} ///< asked at every opening: below its own
};

class Window : public Control {
  public:
    virtual bool connected() const { return false; }
    virtual bool visible() const { return false; }
    virtual void makeKeyAndOrderFront() {}
    virtual void orderOut() {}
    virtual void attachAsChildOf(Window&) {}            ///< floats above it, and works while it is modal
    virtual void standBeside(Window&, bool /*left*/) {} ///< where the screen has room on either side of it
    virtual void whenClosed(std::function<void()>) {}   ///< by the close box or Escape
};

} // namespace chromalog
