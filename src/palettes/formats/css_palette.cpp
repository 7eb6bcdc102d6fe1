#include "palettes/formats/css_palette.h"

#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"
#include "spaces/css_colour.h"

#include <algorithm>

namespace chromalog {
namespace {

/// The pieces of a style sheet between braces and semicolons, without comments; what stands in quotes hides
/// none of these.
class Pieces {
  public:
    explicit Pieces(std::string_view sheet) : rest_(sheet) {}

    bool next(std::string& piece) {
        piece.clear();
        if (rest_.empty()) return false;
        while (!rest_.empty()) {
            const char c = rest_.front();
            if (rest_.starts_with("/*")) {
                skipPast(rest_.find("*/", 2), 2);
            } else if (c == '"' || c == '\'') {
                const std::size_t end = rest_.find(c, 1);
                piece.append(rest_, 0, end == std::string_view::npos ? end : end + 1);
                skipPast(end, 1);
            } else {
                rest_.remove_prefix(1);
                if (c == '{' || c == '}' || c == ';') break;
                piece.push_back(c);
            }
        }
        return true;
    }

  private:
    void skipPast(std::size_t found, std::size_t size) {
        rest_ = found == std::string_view::npos ? std::string_view() : rest_.substr(found + size);
    }

    std::string_view rest_;
};

std::optional<PaletteColour> colourOfValue(std::string_view value) {
    if (value.starts_with('#')) return colourOfHex(value.substr(1));
    const auto read = readCssColour(value);
    if (!read) return std::nullopt;
    PaletteColour colour;
    colour.components = {read->rgb.red, read->rgb.green, read->rgb.blue};
    colour.alpha = read->alpha;
    return colour;
}

/// The name of a custom property, or of a variable of Sass, without its sign; empty for anything else.
std::string_view variableName(std::string_view property) {
    if (property.starts_with("--")) return property.substr(2);
    return property.starts_with('$') ? property.substr(1) : std::string_view();
}

} // namespace

ReadPalette readCssPalette(Bytes file) {
    ReadPalette read;
    Pieces pieces({reinterpret_cast<const char*>(file.data()), file.size()});
    for (std::string piece; pieces.next(piece);) {
        const std::string_view declaration = trimmed(piece);
        const std::size_t colon = declaration.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string_view name = variableName(trimmed(declaration.substr(0, colon)));
        if (name.empty()) continue;
        const std::string_view after = declaration.substr(colon + 1);
        const std::string_view value = trimmed(after.substr(0, after.find('!'))); // !important, !default
        if (auto colour = colourOfValue(value)) {
            colour->name = textOfBytes(name);
            addColour(read.palette, std::move(*colour));
        } else if (value.starts_with('#')) {
            ++read.unread; // any other value may be a length
        }
    }
    return read;
}

std::vector<std::uint8_t> writeCssPalette(const Palette& palette) {
    std::string text = ":root {\n";
    text.reserve(palette.colours.size() * 32);
    for (const PaletteColour& colour : palette.colours)
        text.append("  --").append(colour.name).append(": ").append(hexOf(colour)).append(";\n");
    text += "}\n";
    return {text.begin(), text.end()};
}

std::string cssIdentifier(std::string_view name) {
    std::string identifier;
    for (const char c : name) {
        const bool kept = isLetter(c) || isDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
        if (kept)
            identifier.push_back(c);
        else if (!identifier.empty() && identifier.back() != '-')
            identifier.push_back('-');
    }
    while (identifier.ends_with('-'))
        identifier.pop_back();
    return identifier;
}

} // namespace chromalog
