#pragma once

#include "palettes/fit_palette.h"

#include <memory>
#include <string>

namespace chromalog::standalone {

class ColourConverter;

/// CMYK as the host of a pick converts it. Nothing is loaded before a colour asks.
class Ink {
  public:
    /// The profile's path; empty: the installed one, if any.
    explicit Ink(std::string profile);
    ~Ink();

    CmykToRgb converter(); ///< serves while this lives; throws std::runtime_error where the profile is none
    std::string name() const; ///< who converts, for people

  private:
    Rgb convert(const PaletteComponents& cmyk);

    std::string profile_;
    std::unique_ptr<ColourConverter> converter_;
};

} // namespace chromalog::standalone
