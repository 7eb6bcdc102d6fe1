#pragma once

#include "desktop/screen_pick.h"

class QWidget;

namespace chromalog {

/// Lets the person take colours from all that the screens show, by whatever the system offers. `dialog` may
/// be null. Null where it was answered at once. Each system has a file of its own for this one function.
std::unique_ptr<ScreenPick> beginScreenPick(QWidget* dialog, ScreenAnswer);

} // namespace chromalog
