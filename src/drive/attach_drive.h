#pragma once

#include "abi/standalone_suite.h"
#include "qt/driven_dialog.h"

namespace chromalog {

/// Acts on the stand-alone host's options --drive, --screenshot, --accept and --cancel as soon as the dialog
/// is on the screen and painted. Null where none of them was given. `kept`, empty at first, is the script and
/// how far it was played: the next pick goes on with it. It is the plug-in's and goes when that is unloaded;
/// this module is not.
std::unique_ptr<Driven> attachDrive(DrivenDialog&, const StandaloneSuite&, std::unique_ptr<Driven>& kept);

} // namespace chromalog
