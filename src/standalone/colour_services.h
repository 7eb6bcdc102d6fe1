#pragma once

#include "abi/color_services.h"
#include "standalone/call_ledger.h"
#include "standalone/conversion/colour_converter.h"

#include <memory>

namespace chromalog::standalone {

/// The colour-services callback: checks the argument block, then asks the converter.
class ColourServices {
  public:
    ColourServices(CallLedger& ledger, std::unique_ptr<ColourConverter> converter)
        : ledger_(ledger), converter_(std::move(converter)) {}

    /// Every call fails from now on and leaves the components alone.
    void failAlways() { failing_ = true; }
    const ColourConverter& converter() const { return *converter_; }

    std::int16_t call(ColorServicesInfo* info) const;

  private:
    CallLedger& ledger_;
    std::unique_ptr<ColourConverter> converter_;
    bool failing_ = false;
};

} // namespace chromalog::standalone
