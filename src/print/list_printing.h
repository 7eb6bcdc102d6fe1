#pragma once

#include "host/host_conversion.h"
#include "print/print_option_controller.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {

/// What the print actions ask of the main controller.
class PrintDesk : public PrintOptionDesk {
  public:
    virtual ColorServicesProc colorServices() const = 0;
};

/// The print action of a list: the options dialog, then the print operation, whatever the dialog returned.
void printSwatchList(CSwatchList&, PrintDesk&);

} // namespace chromalog
