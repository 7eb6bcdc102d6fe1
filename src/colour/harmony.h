#pragma once

#include "base/geometry.h"

namespace chromalog {

/// The seven points that harmonise with a selected point of the wheel, in the view's coordinates (y up).
struct HarmonyPoints {
    Point opposite;
    Point balance1, balance2; ///< turned by plus and minus the spread
    Point equi1, equi2;       ///< turned by plus and minus 120 degrees
    Point quadri1, quadri2;   ///< with the selected and the opposite point, the corners of a rectangle
};

/// The selected point's angle at the centre, in radians, 0..pi: it does not tell the lower half from the
/// upper one.
float harmonyAngle(Size view, Point selected);

/// `spread` in degrees. The members of each pair change places where the selected point is in the lower half
/// (strictly below the horizontal diameter): kept.
HarmonyPoints harmonyPoints(Size view, Point selected, float spread);

} // namespace chromalog
