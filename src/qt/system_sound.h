#pragma once

#include <string_view>

namespace chromalog {

/// Plays a sound of the system by name; nothing where the system does not have it.
void playSystemSound(std::string_view name);

} // namespace chromalog
