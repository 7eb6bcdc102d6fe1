#pragma once

#include <string>
#include <vector>

namespace chromalog {

/// The names that a module offers to a loader: defined, not hidden symbols of its dynamic symbol table. Reads
/// 64-bit ELF files of this machine's byte order.
std::vector<std::string> exportedSymbols(const std::string& path);

} // namespace chromalog
