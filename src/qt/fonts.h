#pragma once

#include "desktop/canvas.h"

#include <QFont>

namespace chromalog {

/// Sized in pixels, so that a point of the view is a pixel whatever the screen's resolution. Labels take the
/// metric equal of Arial where Arial is missing, and no ligatures.
QFont fontFor(const Font&);

} // namespace chromalog
