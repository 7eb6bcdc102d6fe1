#pragma once

#include "desktop/view.h"

#include <optional>

namespace chromalog {

/// What a list does beside what it does by itself: several selected rows, marks, edits in place. The base
/// does nothing.
class ListExtras {
  public:
    virtual ~ListExtras() = default;
    virtual void pressed(const MouseEvent&, int /*before*/) {} ///< `before`: the row selected until then
    virtual void released(const MouseEvent&) {}
    virtual void menuOpens() {}                             ///< on the row that is selected now
    virtual bool keyDown(const KeyEvent&) { return false; } ///< true: the key was used up
    virtual void dragBegins() {}                            ///< of the row that is selected
    virtual void dragEnds() {}
    virtual void draggedOver(const DragInfo*) {}              ///< null: no longer
    virtual bool takesDrop(const DragInfo&) { return false; } ///< true: the drop was its own, and is done
    virtual void dropped(int /*row*/) {
    } ///< the list's own drop put its swatch there, or found one alike; -1: nowhere
    virtual void contentsChanged() {}  ///< swatches may stand in other rows
    virtual void drawMarks(Canvas&) {} ///< on the display layer
};

} // namespace chromalog
