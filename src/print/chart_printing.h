#pragma once

#include "desktop/desktop.h"
#include "views/degrade_view.h"
#include "views/tone_view.h"

namespace chromalog {

/// The print action of the visible chart: the gradient unless `toneOrDegrade` is 1.
void printToneOrDegrade(degradeView& gradient, toneView& tone, int toneOrDegrade, Desktop&);

} // namespace chromalog
