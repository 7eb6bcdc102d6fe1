#pragma once

#include "base/bitmap.h"
#include "desktop/view.h"

namespace chromalog {

/// The view's own picture at one pixel a point, whatever the screen's scale: what picks read. Outlines are
/// not antialiased, so that a pick finds the colour of a cell and no mixture. A longer side is cut off.
Bitmap rasterPicture(View&);

} // namespace chromalog
