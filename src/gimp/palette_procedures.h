#pragma once

#include "gimp/procedure.h"

#include <optional>
#include <string_view>

namespace chromalog {

/// "Palette" in the menu of GIMP's palettes: four procedures, to and from each list.
void installPaletteProcedures();
/// Nothing where the name is none of theirs. Throws std::exception with what goes wrong.
std::optional<ProcedureResult> runPaletteProcedure(std::string_view name, const ProcedureArguments&);

} // namespace chromalog
