#pragma once

#include "base/geometry.h"

namespace chromalog {

/// Print settings: the shared ones, or those of one operation. Lengths in points; margins leave the printable
/// area.
struct PrintInfo {
    Size paper{612, 792};
    double left = 36, right = 36, top = 36, bottom = 36;
    double scale = 1.0;

    /// The paper without its margins.
    Size printable() const { return {paper.w - left - right, paper.h - top - bottom}; }
    /// The same as a job draws it, before the scale is applied; in single precision.
    Size page() const {
        const float s = scale > 0 ? static_cast<float>(scale) : 1.0F;
        return {static_cast<float>(printable().w / s), static_cast<float>(printable().h / s)};
    }
};

} // namespace chromalog
