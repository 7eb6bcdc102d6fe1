#pragma once

#include "qt/driven_dialog.h"

namespace chromalog {

/// What plays scripts, opened where the stand-alone host was asked for a script, a screenshot, accept or
/// cancel: a module of its own beside this one, which stays loaded to the end of the process. Null where the
/// host was asked for none of them. Where the module is missing the host is told to end with 2, and
/// std::runtime_error says why.
std::unique_ptr<Driven> openDrive(DrivenDialog&, const StandaloneSuite&);

} // namespace chromalog
