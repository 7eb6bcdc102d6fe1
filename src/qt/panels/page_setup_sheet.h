#pragma once

#include "desktop/printing.h"
#include "qt/panels/page_habits.h"

class QWidget;

namespace chromalog {

/// A sheet on the window that edits paper, margins and scale. The settings change when it is accepted; they
/// must outlive the window. A length that nobody changed stays as it is, to the point.
void openPageSetup(PrintInfo&, LengthUnit, QWidget* window);

} // namespace chromalog
