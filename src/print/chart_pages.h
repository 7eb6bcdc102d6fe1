#pragma once

#include "print/print_page.h"
#include "views/degrade_view.h"
#include "views/tone_view.h"

namespace chromalog {

// On paper both charts are tables of patches, each with its red, green and blue from 0 to 255. `page` is the
// printable area in points, y down.

/// 16 rows and columns; the LL and LR side comes first, at the top.
PrintPage degradePage(const GradientCorners&, Size page);

/// A row a sector, the second colour in the first column and a column a ring. Columns are a seventh of the
/// page and rows a sixteenth, so that the last ring and the upper half of the sectors fall beside the page;
/// kept.
PrintPage tonePage(const ToneCircle&, const Colour& second, Size page);

} // namespace chromalog
