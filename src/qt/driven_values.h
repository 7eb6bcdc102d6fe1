#pragma once

#include "qt/driven_state.h"

namespace chromalog {

class ChromalogControler;
class QtDesktop;

/// The parts of the state that the dialog's controller holds, and those that the desktop does.
void takeDialogState(DrivenState&, ChromalogControler&);
void takeDesktopState(DrivenState&, QtDesktop&);

} // namespace chromalog
