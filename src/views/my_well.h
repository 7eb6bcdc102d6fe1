#pragma once

#include "desktop/controls.h"
#include "desktop/outlet.h"

namespace chromalog {

/// What a well that belongs to a working colour asks of the dialog.
class myWellDesk {
  public:
    virtual ~myWellDesk() = default;
    virtual void setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target) = 0;
};

/// A colour well that, after it took a dropped colour, tells the dialog where the drop came from.
class myWell {
  public:
    /// Watches the well of a loaded form; does nothing where the outlet is not connected.
    myWell(const Outlet<ColorWell>& outlet, myWellDesk& desk) {
        if (!outlet.connected()) return;
        ColorWell& well = *outlet;
        well.setClassName("myWell");
        well.onDrop = [&desk, &well](const DragInfo& drag) {
            desk.setFirstAndSecondFromDrop(drag.source, well);
        };
    }
};

} // namespace chromalog
