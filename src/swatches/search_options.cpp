#include "swatches/search_options.h"

#include "base/colour_text.h"
#include "base/css_names.h"
#include "record/name_text.h"
#include "spaces/ascii_text.h"
#include "spaces/lab_grid.h"
#include "swatches/shown_colour.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace chromalog {
namespace {

/// Letters as they are compared. One that has no letter of ASCII under its accents stays as it is.
std::string folded(std::string_view utf8, const SearchOptions& options) {
    std::string text;
    if (options.ignoreAccents) {
        for (std::string_view rest = utf8; !rest.empty();) {
            const char* from = rest.data();
            takeCodePoint(rest);
            const std::string letter(from, rest.data());
            const std::string plain = lossyAscii(letter);
            text += plain.find('?') == std::string::npos ? plain : letter;
        }
    } else {
        text = utf8;
    }
    return options.ignoreCase ? lowerCase(text) : text;
}

/// The beginning of a swatch's hex that the text asks for, in lower case; empty where it asks for none.
std::string hexAskedFor(std::string_view text) {
    std::string hex = lowerCase(trimmed(text));
    const bool marked = hex.starts_with('#');
    if (marked) hex.erase(0, 1);
    const bool digits = !hex.empty() && hex.size() <= 6 && std::ranges::all_of(hex, isHexDigit);
    if (!digits || (!marked && hex.size() != 3 && hex.size() != 6)) return {};
    if (hex.size() == 3) hex = {hex[0], hex[0], hex[1], hex[1], hex[2], hex[2]};
    return '#' + hex;
}

/// The names of CSS that hold a text, and which of all is nearest to a colour: as nearestCssName says, but
/// fast for whole lists.
class AskedCssNames {
  public:
    /// Names of CSS have no spaces: "light blue" asks for "lightblue".
    explicit AskedCssNames(std::string_view text) {
        std::string asked = lowerCase(text);
        std::erase_if(asked, isSpace);
        std::vector<Lab> labs;
        for (const CssColour& css : kCssColours) {
            labs.push_back(labOf(rgbOfBytes(css.rgb)));
            asked_.push_back(!asked.empty() && css.name.find(asked) != std::string_view::npos);
        }
        if (!none()) grid_ = LabGrid(labs);
    }
    bool none() const { return std::ranges::count(asked_, true) == 0; }
    bool has(const Colour& colour) const {
        const auto nearest = grid_.nearest(labOf(rgbOf(colour)));
        return nearest && asked_[nearest->index];
    }

  private:
    std::vector<bool> asked_; ///< in the order of kCssColours
    LabGrid grid_;            ///< empty where none is asked for
};

} // namespace

SwatchTest swatchTest(std::string_view text, const SearchOptions& options) {
    if (text.empty()) return [](const FCOStruct&) { return false; };
    if (!options.findsMore())
        return [asked = std::string(text)](const FCOStruct& record) { return nameHolds(record, asked); };
    const std::string hex = options.hex ? hexAskedFor(text) : "";
    std::shared_ptr<const AskedCssNames> css;
    if (options.cssName) css = std::make_shared<AskedCssNames>(text);
    if (css && css->none()) css.reset();
    return [options, hex, css, asked = folded(text, options)](const FCOStruct& record) {
        const std::string name = folded(macRomanToUtf8(zeroTerminatedName(record)), options);
        if (!asked.empty() && name.find(asked) != std::string::npos) return true;
        if (!hex.empty() && hexText(channelsOf(shownColour(record))).starts_with(hex)) return true;
        return css && css->has(shownColour(record));
    };
}

std::vector<FoundEntry> findSwatches(ListRecords searched, ListRecords list1, int count,
                                     std::string_view text, const SearchOptions& options) {
    if (!options.findsMore()) return findByName(searched, list1, count, text);
    std::vector<FoundEntry> hits = findByName(searched, list1, count, {}); // ends the names, finds nothing
    const SwatchTest isHit = swatchTest(text, options);
    const int used = std::min<int>(clampedCount(count), static_cast<int>(searched.size()));
    for (int i = 0; i < used; ++i)
        if (isHit(searched[static_cast<std::size_t>(i)]))
            hits.push_back({i, static_cast<float>(i) / static_cast<float>(count)});
    return hits;
}

} // namespace chromalog
