#pragma once

#include "palettes/fit_palette.h"

namespace chromalog::standalone {

/// A line a colour: its hex, its name as one line, its group in brackets.
std::string tableOf(const Palette&, const CmykToRgb&);

/// An array of objects with name, hex, space, components, and where they say something alpha and group. What
/// refers to a colour book has no hex.
std::string jsonOf(const Palette&, const CmykToRgb&);

} // namespace chromalog::standalone
