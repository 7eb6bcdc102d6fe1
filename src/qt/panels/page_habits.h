#pragma once

#include "base/geometry.h"

#include <optional>

class QLocale;

namespace chromalog {

enum class LengthUnit { points, millimetres, inches };

/// A length unit as a person reads it.
struct ShownUnit {
    const char* name;
    double points; ///< in one
    int decimals;
    double step; ///< of an arrow beside a field
};
const ShownUnit& shownUnit(LengthUnit);

/// How paper is measured, and which is in the printer, where a person lives.
struct PageHabits {
    LengthUnit unit = LengthUnit::points;
    std::optional<Size> paper; ///< points, portrait; nothing where the locale tells no country
};
PageHabits pageHabits(const QLocale&);

} // namespace chromalog
