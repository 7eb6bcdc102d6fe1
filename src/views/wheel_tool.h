#pragma once

#include "desktop/canvas.h"

namespace chromalog {

/// What a tool adds to the wheel while it is shown: it draws on the display layer, and may take presses on
/// handles of its own. The wheel's picture and all other presses stay as they are.
class WheelTool {
  public:
    virtual ~WheelTool() = default;
    virtual void drawOverWheel(Canvas&) {}
    virtual void harmonyPlaced() {} ///< the harmony points were placed and their colours handed out
    /// True: this press picks nothing, and the moves and the release that follow are the tool's.
    virtual bool takesPress(Point) { return false; }
    virtual void handleDragged(Point) {}
    virtual void handleReleased() {}
};

} // namespace chromalog
