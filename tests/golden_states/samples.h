#pragma once

#include <string>

namespace chromalog::golden {

/// Writes the files that scripts load: swatch files of each version and space, whole and broken, colour books
/// (into the folder "books" too, for references) and preferences of other hands.
void writeSamples(const std::string& folder);

} // namespace chromalog::golden
