#pragma once

#include "base/translated.h"
#include "colour/working_colours.h"
#include "spaces/colour_notation.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// Both working colours as texts that can be typed over: hex (any text that readCssColour reads), four inks
/// through the host, and a reading of a chosen notation in the place of the inks. A text takes effect as it
/// is typed and stays as typed until the colour changes elsewhere or the field is left; one that cannot be
/// read is marked and changes nothing.
class ColourEntries {
  public:
    ColourEntries(WorkingColours& colours, ColorServicesProc services);
    ColourEntries(const ColourEntries&) = delete;
    ColourEntries& operator=(const ColourEntries&) = delete;

    std::vector<OutletEntry> table(); ///< its outlets, each under the name that interface files give it
    void observeControls();           ///< after the outlets are connected
    void follow();                    ///< after any change of the working colours

  private:
    struct Side;
    /// One field, and how it reads and writes a colour.
    struct Entry {
        std::optional<Colour> (ColourEntries::*read)(const Side&, const std::string&) const;
        std::string (ColourEntries::*text)(const Side&) const;
        std::string_view fault; ///< what is said of a text that cannot be read
        Outlet<TextField> field{};
    };
    struct Side {
        const Colour& (WorkingColours::*colour)() const;
        void (WorkingColours::*enter)(const Colour&);
        const ValueFields& fields;
        Entry hex{&ColourEntries::readHex, &ColourEntries::hexOf, translatable("This is no color")};
        Entry inks{&ColourEntries::readInkFields, &ColourEntries::inksOf,
                   translatable("These are no four inks from 0 to 100 that the host converts")};
        Entry reading{&ColourEntries::readChosen, &ColourEntries::chosenOf, translatable("This is no color")};
        Outlet<Button> choice{};
        std::optional<ColourNotation> notation{}; ///< of the reading; none: the inks show
        Colour shown{};                           ///< what the fields show
        bool shows = false;
        /// As the fields of the inks held them: at the start they are filled last.
        std::string shownInks{};
    };

    void typed(Side&, Entry&);
    void left(Side&, Entry&);
    void show(Side&, const Entry* but);
    void choose(Side&, std::optional<ColourNotation>);
    MenuItems choices(Side&);

    std::optional<Colour> readHex(const Side&, const std::string&) const;
    std::optional<Colour> readInkFields(const Side&, const std::string&) const;
    std::optional<Colour> readChosen(const Side&, const std::string&) const;
    std::string hexOf(const Side&) const;
    std::string inksOf(const Side&) const;
    std::string chosenOf(const Side&) const;

    WorkingColours& colours_;
    const ColorServicesProc services_;
    std::array<Side, 2> sides_;
    bool entering_ = false; ///< a typed text takes effect
};

} // namespace chromalog
