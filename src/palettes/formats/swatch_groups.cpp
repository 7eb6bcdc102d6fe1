#include "palettes/formats/swatch_groups.h"

#include "palettes/byte_reader.h"
#include "palettes/palette_text.h"
#include "palettes/shared_names.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::string_view kSignature = "8BIMphry";
constexpr std::uint32_t kDescriptorVersion = 16;
constexpr std::size_t kDeepest = 60; // groups in groups

std::string_view textOf(Bytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A word of a descriptor: its length and so many characters, or four characters after a zero.
std::string_view takeWord(ByteReader& in) {
    const std::size_t length = in.longWord();
    return textOf(in.take(length == 0 ? 4 : length));
}

/// The length is that of the units, with a terminating zero.
std::string takeText(ByteReader& in) {
    const std::size_t units = in.longWord();
    return textOfUtf16(in.take(2 * std::min(units, in.left())));
}

/// An object of the list: its class, and its name if it has one. False where it holds what is unknown here.
bool takeObject(ByteReader& in, std::string_view& kind, std::string& name) {
    takeText(in);
    kind = takeWord(in);
    for (std::uint32_t items = in.longWord(); items > 0; --items) {
        const std::string_view key = takeWord(in);
        if (textOf(in.take(4)) != "TEXT") return false;
        std::string text = takeText(in);
        if (key == "Nm  ") name = std::move(text);
    }
    return !in.ended();
}

/// Up to the list's objects; how many there are.
std::uint32_t takeHead(ByteReader& in) {
    if (textOf(in.take(kSignature.size())) != kSignature) return 0;
    in = ByteReader(in.take(in.longWord()));
    if (in.longWord() != kDescriptorVersion) return 0;
    takeText(in);
    takeWord(in);
    if (in.longWord() != 1 || takeWord(in) != "hierarchy" || textOf(in.take(4)) != "VlLs") return 0;
    return in.longWord();
}

} // namespace

std::vector<std::string> swatchGroups(Bytes rest) {
    ByteReader in(rest);
    std::vector<std::string> ofColours;
    std::string path;              // of the open groups
    std::vector<std::size_t> open; // how long it was before each
    SharedNames names;
    for (std::uint32_t objects = takeHead(in); objects > 0; --objects) {
        std::string_view kind;
        std::string name;
        if (textOf(in.take(4)) != "Objc" || !takeObject(in, kind, name)) break;
        if (kind == "preset" && ofColours.size() < kMostPaletteColours) {
            names.take(path.size());
            ofColours.push_back(path);
        } else if (kind == "Grup" && open.size() < kDeepest) {
            open.push_back(path.size());
            if (!name.empty()) path.append(path.empty() ? 0 : 1, '/').append(name);
        } else if (kind == "groupEnd" && !open.empty()) {
            path.resize(open.back());
            open.pop_back();
        }
    }
    return ofColours;
}

} // namespace chromalog
