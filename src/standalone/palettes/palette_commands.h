#pragma once

#include <optional>

namespace chromalog::standalone {

/// Runs `chromalog convert` or `chromalog nearest`, where the first word is one of these: without the
/// plug-in, and so without any toolkit or display. The exit code: 0, or 2 after one line on standard error;
/// nothing is then written.
std::optional<int> runPaletteCommand(int argc, const char* const* argv);

} // namespace chromalog::standalone
