#pragma once

#include "base/geometry.h"
#include "desktop/canvas.h"
#include "desktop/pasteboard.h"
#include "desktop/text_edit.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

struct MouseEvent {
    Point location; ///< in the view's coordinates, exact
    bool alt = false;
    bool shift = false;
    bool control = false;
    bool second = false; ///< of a double click
};

enum class Key {
    left,
    right,
    up,
    down,
    home,
    end,
    pageUp,
    pageDown,
    deleteKey,
    space,
    enter,
    other,
    rename,    ///< F2
    selectAll, ///< Ctrl+A
    escape
};

struct KeyEvent {
    Key key = Key::other;
    bool shift = false;
    bool alt = false;
    bool control = false;
};

/// What assistive technology is told about a view.
struct Accessible {
    enum class Role { colourChooser, slider, list, chart } role = Role::chart;
    std::string name;
    std::string value;       ///< as text, e.g. "RGB 12 34 56, #0c2238"
    std::string description; ///< how the view is used
    struct Range {
        double value, minimum, maximum, step;
    };
    std::optional<Range> range; ///< sliders
};

struct AccessibleRow {
    std::string name;
    std::string value;
    Rect rect; ///< in view coordinates, the full width
};

/// What shows a view: the toolkit's widget, or the tests' fake. Null while a view is not connected.
class ViewHost {
  public:
    virtual ~ViewHost() = default;
    virtual void needsDisplay() = 0;
    virtual void frameChanged() = 0;  ///< the view set its own frame
    virtual void hiddenChanged() = 0; ///< the view was shown or hidden
    virtual void accessibleChanged() = 0;
    virtual void remark(Point, std::string_view) {} ///< shows a few words near a point, for a while
    virtual void editText(TextEdit) {}              ///< in the place of an edit that is open
    virtual void dropTextEdit() {}                  ///< as Escape does; nothing where there is none
    virtual std::optional<Rect>
    superviewBounds() const = 0; ///< the clip of a scroll view; nothing without one
    virtual Colour surround() const { return Colour::rgb(1, 1, 1); } ///< the ground around the view
};

/// A view: frame and bounds in points, origin bottom left and y up unless flipped. It draws on a canvas and
/// is sent events; everything on the one main thread.
class View : public DragSource {
  public:
    const Rect& frame() const { return frame_; }
    void setFrame(const Rect&); ///< the bounds take the frame's size
    /// Sets the frame because the host laid the view out; the host is not told.
    void layOut(const Rect&);
    const Rect& bounds() const { return bounds_; }
    bool hidden() const { return hidden_; }
    void setHidden(bool);
    void setNeedsDisplay();
    void remark(Point, std::string_view words); ///< a few words near a point, for a while
    void editText(TextEdit);
    void dropTextEdit();
    void announceChange(); ///< name, value or rows changed for assistive technology
    std::optional<Rect> superviewBounds() const;
    Colour surround() const { return host_ ? host_->surround() : Colour::rgb(1, 1, 1); }

    ViewHost* host() const { return host_; }
    void setHost(ViewHost* host) { host_ = host; }
    bool connected() const { return host_ != nullptr; }

    virtual const char* className() const { return "View"; }
    virtual bool isFlipped() const { return false; } ///< asked at every call: it changes while printing
    virtual void drawRect(Canvas&) = 0;
    /// What stands over the view's picture on the screen alone: halos of marks, a marked row, the ground
    /// around a rim. Called after every drawRect that goes to the screen, with a fresh canvas of the same
    /// clip; a change of it needs setNeedsDisplay() as any other. No pick, capture, `picture` or print
    /// contains it. A place that a pick can hit must show the colour that it gives: marks cover a few points,
    /// never an area.
    virtual void drawDisplayLayer(Canvas&) {}
    virtual void sizeChanged() {} ///< after layOut gave the view another size

    virtual void mouseDown(const MouseEvent&) {}
    virtual void mouseDragged(const MouseEvent&) {}
    virtual void mouseUp(const MouseEvent&) {}
    virtual void rightMouseDown(const MouseEvent&) {}
    /// True: mouseDragged starts a drag and drop, and is sent once, after the pointer left the start
    /// distance.
    virtual bool startsDrags() const { return false; }

    /// Where the keyboard stands inside a view that has the focus. The host outlines it on the screen; it is
    /// no part of the view's picture.
    virtual std::optional<Rect> focusMark() const { return std::nullopt; }
    virtual bool acceptsFocus() const { return false; }
    virtual bool keyDown(const KeyEvent&) { return false; } ///< true where the key was used

    /// The colour that shows at a point, and where the keyboard stands; nothing where none does. Neither
    /// picks.
    virtual std::optional<Colour> colourAt(Point) { return std::nullopt; }
    virtual std::optional<Colour> colourInFocus() { return std::nullopt; }

    virtual std::string helpAt(Point) const { return {}; } ///< of a tool tip; empty: there is none

    virtual bool acceptsColourDrags() const { return false; }
    virtual DragOperation draggingEntered(const DragInfo&) { return DragOperation::none; }
    virtual bool performDragOperation(const DragInfo&) { return false; }
    virtual void draggingUpdated(const DragInfo&) {} ///< also once after it entered
    virtual void draggingExited() {}                 ///< it left, or was dropped
    /// Drags that offer files and no colour; only files of this machine are offered.
    virtual bool acceptsFiles() const { return false; }
    /// `shift`: whether that key is held at the drop. False where none of them could be taken.
    virtual bool filesDropped(const std::vector<std::string>&, bool /*shift*/) { return false; }

    virtual Accessible accessible() const { return {}; }
    virtual int accessibleRowCount() const { return 0; }
    virtual AccessibleRow accessibleRow(int) const { return {}; }
    virtual std::optional<int> accessibleSelectedRow() const { return std::nullopt; }
    virtual int accessibleRowAt(Point) const { return -1; } ///< may be past the last row
    virtual void selectAccessibleRow(int) {}
    virtual void setAccessibleValue(double) {} ///< sliders

  private:
    Rect frame_, bounds_;
    bool hidden_ = false;
    ViewHost* host_ = nullptr;
};

} // namespace chromalog
