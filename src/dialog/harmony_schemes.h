#pragma once

#include "base/translated.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace chromalog {

/// The colours of a harmony: its button and its wells, each by its outlet's name.
struct HarmonyScheme {
    std::string_view name;                 ///< for people
    std::string_view variable;             ///< of its colours in CSS
    std::string_view button;               ///< none: its wells stand alone
    std::array<std::string_view, 4> wells; ///< the last may be missing

    bool has(std::string_view outlet) const {
        return !outlet.empty() && (outlet == button || std::ranges::count(wells, outlet) > 0);
    }
};

inline constexpr HarmonyScheme kHarmonySchemes[] = {
    {translatable("Complement"), "complement", "complementOn", {"origComplement", "complementColor"}},
    {translatable("Harmoniques"),
     "harmoniques",
     "harmoniquesOn",
     {"origHarmony", "equi1Color", "equi2Color"}},
    {translatable("Tri-complement"),
     "tri-complement",
     "triComplementOn",
     {"origTrichrome", "triHarmoni1Color", "triHarmoni2Color"}},
    {translatable("Quadri"),
     "quadri",
     "quadriOn",
     {"origQuadrichrome", "quadri1Color", "quadri2Color", "quadri3Color"}},
    {"Custom", "custom", "", {"origCustomAngle", "customAngle1Color", "customAngle2Color"}},
};

/// Null where the outlet belongs to none.
inline const HarmonyScheme* harmonySchemeOf(std::string_view outlet) {
    const auto* const found =
        std::ranges::find_if(kHarmonySchemes, [&](const auto& s) { return s.has(outlet); });
    return found == std::end(kHarmonySchemes) ? nullptr : found;
}

} // namespace chromalog
