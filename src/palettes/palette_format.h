#pragma once

#include "palettes/palette.h"

#include <optional>
#include <string_view>

namespace chromalog {

enum class PaletteFormat : std::uint8_t {
    aco,
    acb,
    ase,
    gpl,
    act,
    jasc,
    riff,
    paintNet,
    hex,
    css,
    tokens,
    soc,
    svg
};

/// What names a format asks for.
enum class PaletteNaming : std::uint8_t {
    none,   ///< it has none
    free,   ///< any, none, equal ones
    filled, ///< each colour has one
    unique  ///< each has its own
};

/// What a format can hold.
struct PaletteFormatRules {
    PaletteFormat format;
    std::string_view word;      ///< on a command line
    std::string_view label;     ///< for people
    std::string_view extension; ///< without its full stop, lower case
    ReadPalette (*read)(Bytes); ///< throws PaletteError; null where it is only written
    std::vector<std::uint8_t> (*write)(const Palette&); ///< of a palette that fits (fit_palette.h)
    std::span<const PaletteSpace> spaces;
    bool oneSpace = false;         ///< the same for all colours of a file
    void (*round)(PaletteColour&); ///< components and alpha, as they come back
    PaletteNaming naming;
    std::string (*name)(std::string_view);  ///< a name as it comes back; null where there are none
    std::string (*title)(std::string_view); ///< the palette's; null where it has none
    bool alpha = false, groups = false, spotInks = false;
    std::size_t most = kMostPaletteColours; ///< colours
};

std::span<const PaletteFormatRules> paletteFormats();
const PaletteFormatRules& rulesOf(PaletteFormat);

std::optional<PaletteFormat> formatOfWord(std::string_view word);
/// By a file's extension; of two formats with one, the first.
std::optional<PaletteFormat> formatOfExtension(std::string_view path);
/// By what a file holds. Its extension decides only where the contents leave a choice.
std::optional<PaletteFormat> formatOfContents(Bytes file, std::string_view path);

} // namespace chromalog
