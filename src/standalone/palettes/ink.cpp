#include "standalone/palettes/ink.h"

#include "base/file_name.h"
#include "palettes/component_codes.h"
#include "standalone/conversion/lcms_converter.h"

namespace chromalog::standalone {

Ink::Ink(std::string profile)
    : profile_(profile.empty() ? LcmsConverter::installedCmykProfile() : std::move(profile)) {}

Ink::~Ink() = default;

CmykToRgb Ink::converter() {
    return [this](const PaletteComponents& cmyk) { return convert(cmyk); };
}

std::string Ink::name() const {
    return profile_.empty() ? "a formula, as no profile is installed" : std::string(fileNameOf(profile_));
}

Rgb Ink::convert(const PaletteComponents& cmyk) {
    if (!converter_) converter_ = std::make_unique<LcmsConverter>(profile_);
    Components slots{};
    for (std::size_t i = 0; i < slots.size(); ++i) // 255 is no ink
        slots[i] = static_cast<std::int16_t>(byteOfUnit(1 - cmyk[i]));
    const Components rgb = converter_->convert(Space::cmyk, Space::rgb, slots);
    return {rgb[0] / 255.0, rgb[1] / 255.0, rgb[2] / 255.0};
}

} // namespace chromalog::standalone
