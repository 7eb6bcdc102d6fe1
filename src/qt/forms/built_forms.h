#pragma once

#include "qt/controls/window_control.h"

#include <memory>
#include <string_view>

namespace chromalog {

/// The window of an interface file that was compiled in, laid out but not shown; null where there is none of
/// that name. Compiled they open in less than half of the time that reading them takes.
std::unique_ptr<DialogWindow> builtForm(std::string_view name);

} // namespace chromalog
