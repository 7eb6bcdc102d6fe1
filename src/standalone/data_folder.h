#pragma once

#include <string>

namespace chromalog::standalone {

/// Makes the folder that stands for the user's applications directory, with its parents, where it is missing.
/// Returns why it cannot serve (no name, a file, neither made nor read); empty where it can. One that can be
/// read and not written serves.
std::string makeDataFolder(const std::string& folder);

} // namespace chromalog::standalone
