#pragma once

#include "spaces/lab.h"

namespace chromalog {

/// Some colours, as far as they reach: in each component of Lab, in chroma and in hue.
struct LabBox {
    Lab low, high;
    double leastChroma = 0, mostChroma = 0;
    /// Degrees, 0..360, without a turn over 0: of the hues as they are and with the a axis stretched by a
    /// half, between which CIEDE2000 takes them.
    double leastHue = 0, mostHue = 0;
};

/// The box of one colour.
LabBox boxOf(const Lab& lab);
/// The smallest that holds both.
LabBox joined(const LabBox& first, const LabBox& second);

// Lower bounds of the square of ciede2000 between any colours of two boxes. CIEDE2000 is no metric, so these
// are its only way to leave colours out unseen; the source has the proofs.

/// By the components: fast, and good for greys and for neighbours.
double leastCiede2000Squared(const LabBox& first, const LabBox& second);
/// By lightness, chroma and hue: slower, and good for strong colours far apart.
double leastCiede2000SquaredByHue(const LabBox& first, const LabBox& second);

} // namespace chromalog
