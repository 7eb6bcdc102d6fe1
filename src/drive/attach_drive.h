#pragma once

#include "abi/standalone_suite.h"
#include "qt/driven.h"

namespace chromalog {

/// Acts on the stand-alone host's options --drive, --screenshot, --accept and --cancel as soon as the dialog
/// is on the screen and painted. Null where none of them was given.
std::unique_ptr<Driven> attachDrive(QtDesktop&, ChromalogControler&, const StandaloneSuite*);

} // namespace chromalog
