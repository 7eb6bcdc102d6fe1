#pragma once

#include "base/colour.h"
#include "colour/value_fields.h"
#include "desktop/form.h"
#include "record/fco_struct.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// Why the rest of the dialog has to follow. Told after the colours' own fields and wells show the change.
enum class Cause {
    firstColour,   ///< typed, dropped or taken from a swatch
    secondColour,  ///< shown anew, whatever changed it
    secondEntered, ///< typed or dropped: its brightness is still to be taken with placeSecondColor
    secondPlaced,  ///< the wheel and the strip have to find it
    luminosity,    ///< the strip moved
    harmonyMode,
};

/// The two working colours, with the fields and wells that show them, and the harmony colours of the second.
/// The first is picked from list 1 or typed; the second is steered on the wheel and the strip. Both are
/// opaque and live as long as the dialog.
class WorkingColours {
  public:
    explicit WorkingColours(ColorServicesProc services) : services_(services) {}
    WorkingColours(const WorkingColours&) = delete;
    WorkingColours& operator=(const WorkingColours&) = delete;

    ValueFields first, second;
    Outlet<TextField> colorName;
    Outlet<ColorWell> origFirstColor, origSecondColor, offeredColor;
    Outlet<ColorWell> origComplement, origHarmony, origTrichrome,
        origQuadrichrome; ///< show the second colour
    Outlet<ColorWell> complementColor, triHarmoni1Color, triHarmoni2Color, quadri1Color, quadri2Color,
        quadri3Color, equi1Color, equi2Color; ///< the harmony colours

    Outlet<Button> modeButtons[4]; ///< of the modes 1..4; pressed while the mode is theirs

    std::function<void(Cause)> changed = [](Cause) {}; ///< never empty
    /// The name of the selected swatch where a drag's source is a list.
    std::function<std::optional<std::string>(const DragSource*)> nameOfDragged;

    std::vector<OutletEntry> table(); ///< its outlets, each under the name that interface files give it
    std::vector<ActionEntry> actions();
    void observeControls(); ///< after the outlets are connected

    void zeroInit(); ///< the defaults of a pick
    const Colour& getFirstColor() const { return firstColor_; }
    const Colour& getSecondColor() const { return secondColor_; }
    void setSecondColor(const Colour& c) {
        secondColor_ = c.withAlpha(1.0);
    }                                    ///< shows nothing: start of a pick
    void setOfferedColor(const Colour&); ///< the second colour too; shows itself alone
    void useOfferedColor();              ///< makes it the second colour again, as if it were dropped there
    void showFirstColor();               ///< the first colour in its well and fields
    void enterFirst(const Colour&);      ///< the colour alone, as if it were dropped on its well
    void enterSecond(const Colour&);

    float getLuminosity() const { return luminosity_; }
    /// Rebuilds and shows the second colour at a brightness, which may lie outside 0..1 and is kept so.
    void setLuminosity(float l);
    void moveLuminosity(float l); ///< sent by the strip: the same, and the wheel follows
    void placeSecondColor();      ///< takes its own brightness; the wheel and the strip find it
    float getAlpha() const { return alpha1_; }
    float lastAlpha() const { return alpha2_; }
    /// Radians, stored in degrees where getAlpha does not look; kept: the wheel's spread stays 55 degrees.
    void setAlpha(float radians);

    std::int16_t getHarmonyMode() const { return harmonyMode_; } ///< 0 none, 1..4 as the four groups
    void complementOn();
    void harmoniquesOn();
    void triComplementOn();
    void quadriOn();
    /// A harmony colour into the well of a code 1..7; other codes change no well.
    void setoppositeColor(const Colour&, std::int16_t code);

    void rgb1Changed();
    /// Shows what the colour holds. Its ink fields stay as typed: the host gives most inks back as others.
    void rgb1EditingEnded();
    void rgb2Changed();
    void cmyk1Changed();
    void cmyk2Changed();

    void changeSecondColor(const Colour&); ///< sent by the wheel
    void updateSecondColor();
    /// The first colour from a record: the low 32 bits of each channel / 65535.0 in single precision.
    void setFirstColor(const FCOStruct&, const std::string& name);
    /// Re-reads both wells after a colour was dropped on one of them.
    void setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target);
    /// Whether the colour equals the first one exactly; only then the name is stored.
    bool isFirstColorId(const Colour&, int index, std::string& name) const;

  private:
    void firstChanged();
    void setHarmonyMode(std::int16_t mode);

    const ColorServicesProc services_;
    Colour firstColor_, secondColor_, offeredColor_;
    float luminosity_ = 0;
    float alpha1_ = 0;
    float alpha2_ = 0;
    std::int16_t harmonyMode_ = 0;
};

} // namespace chromalog
