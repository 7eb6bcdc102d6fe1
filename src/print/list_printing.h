#pragma once

#include "desktop/desktop.h"
#include "print/print_options.h"
#include "record/host_conversion.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {

/// The print action of a list: the options dialog, then the print operation, whatever the dialog returned;
/// its Cancel alone ends the action.
/// The sheets are painted as they were laid out, whatever the dialog behind shows meanwhile.
void printSwatchList(const CSwatchList&, PrintOptions&, ColorServicesProc, Desktop&);

} // namespace chromalog
