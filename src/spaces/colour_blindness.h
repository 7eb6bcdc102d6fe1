#pragma once

#include "spaces/rgb.h"

namespace chromalog {

/// Dichromacies: no cones for long, middle or short waves.
enum class ColourBlindness { protanopia, deuteranopia, tritanopia };

/// How a colour looks to such an eye: the matrices of Machado, Oliveira and Fernandes 2009 ("A
/// Physiologically- based Model for Simulation of Color Vision Deficiency", IEEE TVCG 15:1291) for
/// severity 1.0, applied to linear RGB. The model gives components below 0 and above 1 for strong colours:
/// clamped. Greys stay themselves.
Rgb seenWith(ColourBlindness blindness, const Rgb& rgb);

} // namespace chromalog
