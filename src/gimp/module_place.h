#pragma once

#include <string>

namespace chromalog {

/// The plug-in's module: beside this program (or what it links to), or where it is installed. Throws
/// std::runtime_error where there is none.
std::string modulePath();

} // namespace chromalog
