#include "colour/colour_entries.h"

#include "base/channels.h"
#include "base/colour_text.h"
#include "base/number_text.h"
#include "base/translated.h"
#include "colour/ink_text.h"
#include "spaces/colour_reading.h"
#include "spaces/returned_rgb.h"

#include <cmath>

namespace chromalog {
namespace {

struct Choice {
    std::optional<ColourNotation> notation;
    std::string_view title;     ///< also what the button shows
    std::string_view operation; ///< for scripts
};

constexpr Choice kChoices[] = {
    {std::nullopt, "CMYK", "readCmyk:"},      {ColourNotation::hsb, "HSB", "readHsb:"},
    {ColourNotation::hsl, "HSL", "readHsl:"}, {ColourNotation::lab, "Lab", "readLab:"},
    {ColourNotation::lch, "LCh", "readLch:"}, {ColourNotation::oklch, "OKLCH", "readOklch:"}};

/// A working colour is opaque; a text that is nothing but transparent names none.
std::optional<Colour> opaque(const std::optional<ReadColour>& read) {
    if (!read || read->alpha == 0) return std::nullopt;
    return colourOf(read->rgb);
}

/// Raised for its life.
class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

  private:
    bool& flag_;
};

std::int16_t hostInk(double percent) {
    return static_cast<std::int16_t>(std::lround((100 - percent) * 2.55));
}

} // namespace

ColourEntries::ColourEntries(WorkingColours& colours, ColorServicesProc services)
    : colours_(colours), services_(services), sides_{Side{&WorkingColours::getFirstColor,
                                                          &WorkingColours::enterFirst, colours.first},
                                                     Side{&WorkingColours::getSecondColor,
                                                          &WorkingColours::enterSecond, colours.second}} {}

std::vector<OutletEntry> ColourEntries::table() {
    auto& [first, second] = sides_;
    return {{"firstHex", &first.hex.field, true},         {"firstInks", &first.inks.field, true},
            {"firstEntry", &first.reading.field, true},   {"firstReading", &first.choice, true},
            {"secondHex", &second.hex.field, true},       {"secondInks", &second.inks.field, true},
            {"secondEntry", &second.reading.field, true}, {"secondReading", &second.choice, true}};
}

void ColourEntries::observeControls() {
    for (Side& side : sides_) {
        for (Entry* entry : {&side.hex, &side.inks, &side.reading}) {
            entry->field->whenEdited([this, &side, entry] { typed(side, *entry); });
            entry->field->whenEditingEnds([this, &side, entry] { left(side, *entry); });
        }
        for (const Outlet<TextField>* ink : {&side.fields.C, &side.fields.M, &side.fields.Y, &side.fields.K})
            (*ink)->whenEditingEnds([this] { follow(); }); // the field may show another number now
        side.choice->whenMenuOpens([this, &side] { return choices(side); });
    }
}

void ColourEntries::typed(Side& side, Entry& entry) {
    const auto colour = (this->*entry.read)(side, entry.field->text());
    entry.field->setFault(colour ? "" : translated(entry.fault));
    if (!colour) return;
    {
        const Flag entering(entering_);
        (colours_.*side.enter)(*colour);
    }
    show(side, &entry);
}

/// A text that could not be read gives way to what the colour is.
void ColourEntries::left(Side& side, Entry& entry) {
    const bool bad = !(this->*entry.read)(side, entry.field->text());
    entry.field->setFault("");
    if (bad || &entry == &side.hex) entry.field->setText((this->*entry.text)(side));
}

void ColourEntries::follow() {
    if (entering_) return;
    for (Side& side : sides_)
        if (!side.shows || !(colours_.*side.colour)().sameRgb(side.shown) || inksOf(side) != side.shownInks)
            show(side, nullptr);
}

/// In all fields, or in all but the one that was typed in.
void ColourEntries::show(Side& side, const Entry* but) {
    side.shown = (colours_.*side.colour)();
    side.shows = true;
    side.shownInks = inksOf(side);
    for (Entry* entry : {&side.hex, &side.inks, &side.reading}) {
        if (entry == but || !entry->field.connected()) continue;
        if (entry == &side.reading && !side.notation) continue;
        entry->field->setFault("");
        entry->field->setText((this->*entry->text)(side));
    }
}

void ColourEntries::choose(Side& side, std::optional<ColourNotation> notation) {
    side.notation = notation;
    for (const Choice& choice : kChoices)
        if (choice.notation == notation) side.choice->setTitle(choice.title);
    side.inks.field->setHidden(notation.has_value());
    side.reading.field->setHidden(!notation);
    if (notation) side.reading.field->setText(chosenOf(side));
}

MenuItems ColourEntries::choices(Side& side) {
    MenuItems items;
    for (const Choice& choice : kChoices) {
        MenuItem item{std::string(choice.title), std::string(choice.operation),
                      [this, &side, notation = choice.notation] { choose(side, notation); }};
        item.checked = choice.notation == side.notation;
        items.push_back(std::move(item));
    }
    return items;
}

std::optional<Colour> ColourEntries::readHex(const Side&, const std::string& text) const {
    return opaque(readCssColour(text));
}

std::optional<Colour> ColourEntries::readInkFields(const Side&, const std::string& text) const {
    const auto inks = readInks(text);
    if (!inks) return std::nullopt;
    Inks c{hostInk((*inks)[0]), hostInk((*inks)[1]), hostInk((*inks)[2]), hostInk((*inks)[3])};
    if (HostCSConvertColor(services_, plugIncolorServicesCMYKSpace, plugIncolorServicesRGBSpace, c.data()))
        return std::nullopt; // inks that nobody converts are no colour
    return colourOfBytes(c);
}

std::optional<Colour> ColourEntries::readChosen(const Side& side, const std::string& text) const {
    return side.notation ? opaque(readReading(text, *side.notation)) : std::nullopt;
}

/// As every text tells a colour: what OK returns.
std::string ColourEntries::hexOf(const Side& side) const {
    return hexText(channelsOf((colours_.*side.colour)()));
}

/// As the fields of the inks show them: the host is not asked again.
std::string ColourEntries::inksOf(const Side& side) const {
    const auto ink = [](const Outlet<TextField>& field) { return std::trunc(floatValue(field->text())); };
    return inksText({ink(side.fields.C), ink(side.fields.M), ink(side.fields.Y), ink(side.fields.K)});
}

std::string ColourEntries::chosenOf(const Side& side) const {
    return readingText(returnedRgb((colours_.*side.colour)()), *side.notation);
}

} // namespace chromalog
