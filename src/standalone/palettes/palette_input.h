#pragma once

#include "palettes/palette_format.h"

#include <string>

namespace chromalog::standalone {

/// What stands for a standard stream where a file is named.
inline constexpr std::string_view kStandardStream = "-";

/// Reads palettes from files, standard input among them. Every failure is a std::runtime_error of one line
/// that names the file.
class PaletteInput {
  public:
    /// `from`: a format's word in place of what the contents tell; may be empty.
    explicit PaletteInput(std::string from) : from_(std::move(from)) {}

    ReadPalette read(const std::string& path) const;

  private:
    std::string from_;
};

/// What a person calls the file.
std::string named(const std::string& path);

/// All colours of several palettes in their order; the first title there is.
Palette joined(std::vector<Palette> palettes);

} // namespace chromalog::standalone
