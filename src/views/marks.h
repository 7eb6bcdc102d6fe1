#pragma once

#include "desktop/canvas.h"

namespace chromalog {

inline constexpr double kHaloMargin = 1; ///< points of halo on either side of a mark

/// The halo of a white mark. Black at this strength leaves the mark, or the halo, by more than 3:1 on any
/// colour.
inline Colour haloColour() {
    return Colour::rgb(0, 0, 0, 0.9);
}

/// A white line that is seen on any colour: for the display layer, over the line of the picture.
inline void strokeWithHalo(Canvas& canvas, const Path& line) {
    canvas.setLineWidth(1 + 2 * kHaloMargin);
    canvas.setStroke(haloColour());
    canvas.strokePath(line);
    canvas.setLineWidth(1);
    canvas.setStroke(Colour::rgb(1, 1, 1));
    canvas.strokePath(line);
}

} // namespace chromalog
