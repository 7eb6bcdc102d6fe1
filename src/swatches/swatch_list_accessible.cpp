#include "swatches/name_text.h"
#include "swatches/swatch_list_view.h"

#include <cstdio>

namespace chromalog {
namespace {

/// "RGB 12 34 56, #0c2238": the low 16 bits of each channel, cut to 8.
std::string spokenColour(const FCOStruct& record) {
    const RGBColor c = CSwatchList::bufferColorOf(record);
    const int r = c.red >> 8, g = c.green >> 8, b = c.blue >> 8;
    char text[64];
    std::snprintf(text, sizeof text, "RGB %d %d %d, #%02x%02x%02x", r, g, b, r, g, b);
    return text;
}

} // namespace

Accessible CSwatchList::accessible() const {
    Accessible a;
    a.role = Accessible::Role::list;
    a.name = swatchListName.empty() ? "Swatch list" : "Swatch list " + swatchListName;
    const int count = shownRows();
    a.value = std::to_string(count) + (count == 1 ? " swatch" : " swatches");
    if (const FCOStruct* record = selectcolor < count ? recordAt(records(), selectcolor) : nullptr)
        a.value += ", selected: " + macRomanToUtf8(nameBytes(*record)) + ", " + spokenColour(*record);
    a.description = "Arrow keys, Home, End and the page keys select a swatch, Delete removes it";
    return a;
}

AccessibleRow CSwatchList::accessibleRow(int row) const {
    const FCOStruct* record = recordAt(records(), row);
    if (!record) return {};
    return {macRomanToUtf8(nameBytes(*record)), spokenColour(*record), row == selectcolor};
}

} // namespace chromalog
