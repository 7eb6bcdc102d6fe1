#pragma once

#include "standalone/conversion/colour_converter.h"

#include <memory>
#include <string>

namespace chromalog::standalone {

/// Colour management by Little CMS 2: sRGB, D50 Lab and XYZ, a grey of sRGB's tone curve, and a CMYK profile;
/// relative colorimetric with black-point compensation. Hue models are arithmetic on RGB. Without a CMYK
/// profile, CMYK is converted by the closed form.
class LcmsConverter : public ColourConverter {
  public:
    /// `cmykProfile` is the path of a CMYK profile that printing can go both ways through; empty for none.
    /// Throws std::runtime_error with one line where the file is no such profile.
    explicit LcmsConverter(const std::string& cmykProfile);
    ~LcmsConverter() override;

    Components convert(Space from, Space to, const Components& components) const override;

    /// Where the default CMYK profile is installed on this machine; empty where it is not.
    static std::string installedCmykProfile();

  private:
    struct Transforms;
    std::unique_ptr<Transforms> transforms_;
};

} // namespace chromalog::standalone
