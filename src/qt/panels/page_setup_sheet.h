#pragma once

#include "desktop/printing.h"

class QWidget;

namespace chromalog {

/// A sheet on the window that edits paper, margins and scale. The settings change when it is accepted; they
/// must outlive the window.
void openPageSetup(PrintInfo&, QWidget* window);

} // namespace chromalog
