#pragma once

#include "gimp/procedure.h"

namespace chromalog {

inline constexpr const char* kPickProcedure = "plug-in-chromalog";

void installPickProcedure();
/// Offers GIMP's foreground or background to the dialog and sets what was picked; with the last values sets
/// that again, without a dialog. Throws std::exception where there is no dialog.
ProcedureResult runPickProcedure(const ProcedureArguments&);

} // namespace chromalog
