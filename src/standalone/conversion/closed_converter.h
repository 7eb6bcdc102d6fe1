#pragma once

#include "standalone/conversion/colour_converter.h"

namespace chromalog::standalone {

/// Arithmetic alone: no profile, no library, the same on every machine. RGB to CMYK and back is exact for all
/// 8-bit colours. RGB is sRGB; Lab and XYZ are relative to D50.
class ClosedConverter : public ColourConverter {
  public:
    Components convert(Space from, Space to, const Components& components) const override;
};

/// Any space to 8-bit RGB and back, each by its own formula.
Components closedToRgb(Space from, const Components& components);
Components closedFromRgb(Space to, const Components& rgb);

/// `components` with every slot inside the range of its space.
Components clamped(Space space, const Components& components);

} // namespace chromalog::standalone
