#pragma once

#include "palettes/fit_palette.h"
#include "record/host_conversion.h"

#include <string>

namespace chromalog {

/// CMYK by the host's colour services, in their 8 bits; by a formula where the host has none or refuses.
CmykToRgb hostInk(ColorServicesProc);
std::string nameOfInk(ColorServicesProc); ///< who converts, for people

} // namespace chromalog
