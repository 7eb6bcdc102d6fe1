#pragma once

#include <qwindowdefs.h>

#include <cstdint>

namespace chromalog {

/// Before the toolkit's application object is made in a host's process: what is the host's stays the host's
/// (its menu bar, its icon among the running programs), and the toolkit looks for its plug-ins beside this
/// module. Nothing to do but on macOS.
void standAsideInHost();

/// The host's main window as the toolkit wants windows named; `told` is what the host says of it. 0: none.
WId hostWindow(std::intptr_t told);

} // namespace chromalog
