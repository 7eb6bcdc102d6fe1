#pragma once

#include "desktop/desktop.h"
#include "views/chart_view.h"

namespace chromalog {

/// The print action of the visible chart: the gradient unless `toneOrDegrade` is 1.
void printToneOrDegrade(chartView& gradient, chartView& tone, int toneOrDegrade, Desktop&);

} // namespace chromalog
