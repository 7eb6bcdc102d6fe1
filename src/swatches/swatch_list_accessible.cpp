#include "base/colour_text.h"
#include "base/translated.h"
#include "record/name_text.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {

namespace geometry = swatch_geometry;

namespace {

/// What the row's patch shows, as any colour is told once it is picked.
std::string spokenColour(const FCOStruct& record) {
    float rgba[4];
    CSwatchList::objRGBToCGColor(CSwatchList::bufferColorOf(record), rgba);
    return spokenText(Colour::rgb(rgba[0], rgba[1], rgba[2]));
}

} // namespace

Accessible CSwatchList::accessible() const {
    Accessible a;
    a.role = Accessible::Role::list;
    a.name = swatchListName.empty() ? spokenName_ : spokenName_ + " " + swatchListName;
    const int count = shownRows();
    a.value = translatedCount(static_cast<std::size_t>(count), "%1 swatch", "%1 swatches");
    if (const FCOStruct* record = selectcolor < count ? recordAt(records(), selectcolor) : nullptr)
        a.value +=
            translated(", selected: %1, %2", macRomanToUtf8(nameBytes(*record)), spokenColour(*record));
    a.description = translated(
        "Arrow keys, Home, End and the page keys select a swatch, Return makes it the first color, Alt "
        "with Up or Down moves it, Delete removes it");
    return a;
}

AccessibleRow CSwatchList::accessibleRow(int row) const {
    const FCOStruct* record = recordAt(records(), row);
    if (!record) return {};
    const Rect rect{0, geometry::kRowPitch * row, bounds().w, geometry::kRowPitch};
    return {macRomanToUtf8(nameBytes(*record)), spokenColour(*record), rect};
}

std::optional<int> CSwatchList::accessibleSelectedRow() const {
    const bool shown = selectcolor < shownRows() && recordAt(records(), selectcolor);
    return shown ? std::optional<int>(selectcolor) : std::nullopt;
}

int CSwatchList::accessibleRowAt(Point p) const {
    return static_cast<int>(p.y / geometry::kRowPitch);
}

} // namespace chromalog
