#pragma once

#include <string>

namespace chromalog {

/// The user's applications directory, with no slash at the end: below XDG_DATA_HOME (not on macOS, where it
/// is the folder Applications of the home folder), or below the home folder of the environment, or else of
/// the account. Empty where there is neither.
std::string userApplicationsDirectory();

} // namespace chromalog
