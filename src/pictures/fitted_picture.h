#pragma once

#include "base/bitmap.h"
#include "base/geometry.h"
#include "desktop/picture_reading.h"

namespace chromalog {

/// The largest rectangle of the picture's shape in the middle of `bounds`; empty where there is no room.
Rect fittedRect(const Picture&, const Rect& bounds);

/// The picture at another size (1 or more both ways): each pixel the mean of those that it stands for,
/// weighted by their alpha, or a copy of the one.
Bitmap resized(const Picture&, int width, int height);

/// The same in `longest` pixels a side at most; a copy where the picture is not larger.
Picture overviewOf(const Picture&, int longest);

} // namespace chromalog
