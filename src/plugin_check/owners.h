#pragma once

#include <string>

namespace chromalog::plugin_check {

/// The check that a mistake named by the host belongs to, whichever check's process has seen it.
std::string ownerOf(const std::string& misuse);

} // namespace chromalog::plugin_check
