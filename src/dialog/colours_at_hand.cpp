#include "dialog/colours_at_hand.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "colour/ink_text.h"
#include "dialog/harmony_schemes.h"
#include "history/undo_labels.h"
#include "record/name_text.h"
#include "spaces/colour_notation.h"
#include "spaces/colour_texts.h"
#include "spaces/returned_rgb.h"

#include <optional>

namespace chromalog {
namespace {

std::string hexOf(const Colour& colour) {
    return hexText(channelsOf(colour));
}

MenuItem item(std::string title, std::string action, std::function<void()> run, bool enabled = true) {
    return {std::move(title), std::move(action), std::move(run), enabled};
}

void append(MenuItems& all, MenuItems more) {
    if (!all.empty() && !more.empty()) all.emplace_back();
    for (MenuItem& each : more)
        all.push_back(std::move(each));
}

/// The record that a list's menu and keys mean; null where none is selected.
const FCOStruct* selectedRecord(const SwatchPanel& panel) {
    return recordAt(panel.view.shownRecords(), panel.view.getSelected());
}

Colour colourOf(const FCOStruct& record) {
    const RGBColor c = CSwatchList::bufferColorOf(record);
    return Colour::rgb(c.red / 65535.0, c.green / 65535.0, c.blue / 65535.0);
}

std::string inkLine(const Colour& colour, ColorServicesProc services) {
    const RgbChannels rgb = channelsOf(colour);
    const auto inks = inkPercents({byteOf(rgb[0]), byteOf(rgb[1]), byteOf(rgb[2])}, services);
    return inksText({double(inks[0]), double(inks[1]), double(inks[2]), double(inks[3])});
}

} // namespace

void ColoursAtHand::offerMenus() {
    for (SwatchPanel* panel : panels_.both())
        panel->menu->addMenuItems([this, panel] { return rowItems(*panel); });
}

SwatchPanel* ColoursAtHand::listAt(const std::string& outlet) {
    return outlet == "swatch1" ? &panels_.one : outlet == "swatch2" ? &panels_.two : nullptr;
}

bool ColoursAtHand::standsForColours(const std::string& outlet) const {
    return harmonySchemeOf(outlet) != nullptr;
}

/// With the name that it has where it stands.
AddedColour ColoursAtHand::named(const ColourPlace& place) const {
    std::string name;
    if (place.outlet == "origFirstColor") name = colours_.colorName->text();
    if (place.outlet == "nearColor") name = panels_.nearest.nearName->text();
    return {place.colour.value_or(Colour()), name};
}

std::vector<AddedColour> ColoursAtHand::schemeAt(const std::string& outlet) {
    std::vector<AddedColour> scheme;
    const HarmonyScheme* known = harmonySchemeOf(outlet);
    if (!known) return scheme;
    std::vector<OutletEntry> outlets = colours_.table();
    outlets.insert(outlets.end(), moreWells_.begin(), moreWells_.end());
    for (const std::string_view well : known->wells)
        for (const OutletEntry& entry : outlets)
            if (entry.name == well)
                scheme.push_back({(*std::get<Outlet<ColorWell>*>(entry.target))->color(),
                                  std::string(known->name) + ' ' + std::to_string(scheme.size() + 1)});
    return scheme;
}

MenuItems ColoursAtHand::menuOf(const ColourPlace& place) {
    MenuItems items;
    if (place.colour) {
        items = copyItems(place);
        append(items, useItems(place));
        append(items, addItems(place));
    }
    append(items, schemeItems(place.outlet));
    return items;
}

MenuItems ColoursAtHand::copyItems(const ColourPlace& place) {
    const Colour colour = *place.colour;
    const auto notation = [this, colour](std::string title, std::string action, ColourNotation written) {
        return item(std::move(title), std::move(action),
                    [this, colour, written] { copyText(colourText(returnedRgb(colour), written)); });
    };
    MenuItem as{translated("Copy As"), "", {}};
    as.items = {notation(translated("Hex"), "copyAsHex:", ColourNotation::hex),
                notation("rgb()", "copyAsRgb:", ColourNotation::rgbCommas),
                notation("hsl()", "copyAsHsl:", ColourNotation::hsl),
                notation("OKLCH", "copyAsOklch:", ColourNotation::oklch),
                item(
                    "CMYK", "copyAsCmyk:", [this, colour] { copyText(inkLine(colour, services_)); },
                    HostColorServicesAvailable(services_)),
                notation("0..1", "copyAsUnit:", ColourNotation::unit)};
    MenuItems items{item(translated("Copy"), "copyColor:", [this, place] { copy(place); }), std::move(as)};
    if (place.outlet == "origFirstColor" || place.outlet == "origSecondColor")
        items.push_back(item(translated("Paste"), "pasteColor:", [this, place] { paste(place); }));
    return items;
}

MenuItems ColoursAtHand::useItems(const ColourPlace& place) {
    MenuItems items;
    if (place.outlet != "origFirstColor")
        items.push_back(
            item(translated("Use as First Color"), "useAsFirst:", [this, place] { use(place, true); }));
    if (place.outlet != "origSecondColor")
        items.push_back(
            item(translated("Use as Second Color"), "useAsSecond:", [this, place] { use(place, false); }));
    return items;
}

MenuItems ColoursAtHand::addItems(const ColourPlace& place) {
    return {item(translated("Add to List 1"), "addToList1:", [this, place] { add(place, 1); }),
            item(translated("Add to List 2"), "addToList2:", [this, place] { add(place, 2); })};
}

MenuItems ColoursAtHand::schemeItems(const std::string& outlet) {
    const HarmonyScheme* known = harmonySchemeOf(outlet);
    if (!known) return {};
    const auto copyLines = [this, outlet, known](bool css) {
        std::string text = css ? ":root {\n" : "";
        int count = 0;
        for (const AddedColour& each : schemeAt(outlet))
            text += css ? "  --" + std::string(known->variable) + '-' + std::to_string(++count) + ": " +
                              hexOf(each.colour) + ";\n"
                        : hexOf(each.colour) + '\n';
        copyText(css ? text + "}\n" : text);
    };
    const auto addAll = [this, outlet](int list) {
        return [this, outlet, list] { addTo(list, schemeAt(outlet)); };
    };
    return {item(translated("Copy Scheme as CSS"), "copySchemeCss:", [copyLines] { copyLines(true); }),
            item(translated("Copy Scheme as Hex Lines"), "copySchemeHex:", [copyLines] { copyLines(false); }),
            item(translated("Add Scheme to List 1"), "addSchemeToList1:", addAll(1)),
            item(translated("Add Scheme to List 2"), "addSchemeToList2:", addAll(2))};
}

/// Below the items that the form gives the menu: that of list 1 makes its swatch the first colour by itself.
MenuItems ColoursAtHand::rowItems(SwatchPanel& panel) {
    const std::string outlet = &panel == &panels_.two ? "swatch2" : "swatch1";
    const FCOStruct* record = selectedRecord(panel);
    MenuItems items{MenuItem()};
    if (record) {
        const ColourPlace place{outlet, colourOf(*record)};
        for (MenuItem& each : useItems(place))
            if (&panel == &panels_.two || each.action != "useAsFirst:") items.push_back(std::move(each));
        append(items, copyItems(place));
    }
    items.push_back(item(translated("Paste"), "pasteColor:", [this, outlet] { paste({outlet, {}}); }));
    return items;
}

void ColoursAtHand::copyText(const std::string& text) {
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    Pasteboard board;
    board.textType = true;
    board.text = text;
    desktop_.setGeneralPasteboard(board);
}

void ColoursAtHand::copy(const ColourPlace& place) {
    AddedColour copied = named(place);
    if (SwatchPanel* list = listAt(place.outlet)) {
        const FCOStruct* record = selectedRecord(*list);
        if (!record) return;
        copied = {colourOf(*record), macRomanToUtf8(nameBytes(*record))};
    } else if (!place.colour) {
        return;
    }
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    desktop_.setGeneralPasteboard(
        {true, true, copied.colour.withAlpha(1.0), hexOf(copied.colour), copied.name});
}

/// A text of several colours is all of them; else the colour itself goes before what a text says of it.
std::vector<AddedColour> ColoursAtHand::onPasteboard() {
    const Pasteboard& board = desktop_.generalPasteboard();
    std::vector<AddedColour> found;
    for (NamedColour& each : readColourTexts(board.text.value_or(""), kListCapacity + 1))
        if (each.colour.alpha > 0)
            found.push_back({chromalog::colourOf(each.colour.rgb), std::move(each.name)});
    if (!board.colour || found.size() > 1) return found;
    const bool textIsName = board.name.empty() && found.empty();
    return {{board.colour->withAlpha(1.0), textIsName ? board.text.value_or("") : board.name}};
}

bool ColoursAtHand::paste(const ColourPlace& place) {
    SwatchPanel* list = listAt(place.outlet);
    const bool first = place.outlet == "origFirstColor";
    if (!list && !first && place.outlet != "origSecondColor") return false;
    const std::vector<AddedColour> found = onPasteboard();
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    if (found.empty())
        desktop_.statusLine().say(StatusLine::About::colours,
                                  translated("Nothing on the clipboard is a color"));
    else if (list)
        panels_.add(*list, found, undo_label::colorsPasted);
    else if (first)
        colours_.enterFirst(found.front().colour);
    else
        colours_.enterSecond(found.front().colour);
    if (first && !found.empty() && !found.front().name.empty())
        colours_.colorName->setText(found.front().name);
    return true;
}

void ColoursAtHand::use(const ColourPlace& place, bool asFirst) {
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    const SwatchPanel* list = listAt(place.outlet);
    const FCOStruct* record = list ? selectedRecord(*list) : nullptr;
    if (record && asFirst)
        colours_.setFirstColor(*record, macRomanToUtf8(zeroTerminatedName(*record)));
    else if (asFirst)
        colours_.enterFirst(*place.colour);
    else
        colours_.enterSecond(*place.colour);
}

void ColoursAtHand::add(const ColourPlace& place, int list) {
    if (listAt(place.outlet)) return; // its rows go across by commands of their own
    addTo(list, place.colour ? std::vector{named(place)} : schemeAt(place.outlet));
}

void ColoursAtHand::addTo(int list, const std::vector<AddedColour>& added) {
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    panels_.add(panel(list), added, undo_label::colorsAdded);
}

} // namespace chromalog
