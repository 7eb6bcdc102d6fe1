#pragma once

#include "colour/colour.h"
#include "colour/value_fields.h"
#include "desktop/form.h"
#include "swatches/fco_struct.h"

#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// What the working colours ask of the rest of the dialog.
class WorkingColoursDesk {
  public:
    virtual ~WorkingColoursDesk() = default;
    virtual ColorServicesProc colorServices() const = 0;
    virtual void setOkButton() = 0;
    virtual void getNearFco() = 0;
    virtual void placeStripCursor() = 0;    ///< the strip's cursor on the second colour
    virtual void redrawWheelAndPlace() = 0; ///< the wheel's picture once, its cursor on the second colour
    virtual void markWheel() = 0;           ///< for redraw
    virtual void markToneAndStrip() = 0;    ///< for redraw
    virtual std::optional<std::string>
    selectedSwatchName(const DragSource*) = 0; ///< where the source is a list
};

/// The two working colours, with the fields and wells that show them. The first is picked from list 1 or
/// typed; the second is steered on the wheel and the strip. Both are opaque and live as long as the dialog.
class WorkingColours : public ValueFieldsDesk {
  public:
    explicit WorkingColours(WorkingColoursDesk& desk) : desk_(desk) {}

    ValueFields first, second;
    Outlet<TextField> colorName;
    Outlet<ColorWell> origFirstColor, origSecondColor;
    Outlet<ColorWell> origComplement, origHarmony, origTrichrome,
        origQuadrichrome; ///< show the second colour

    std::vector<OutletEntry> table(); ///< its outlets, each under the name that interface files give it

    void zeroInit(); ///< the defaults of a pick
    const Colour& getFirstColor() const { return firstColor_; }
    const Colour& getSecondColor() const { return secondColor_; }
    void setSecondColor(const Colour& c) {
        secondColor_ = c.withAlpha(1.0);
    }                      ///< shows nothing: start of a pick
    void showFirstColor(); ///< the first colour in its well and fields

    float getLuminosity() const { return luminosity_; }
    void setLuminosity(float l); ///< l may lie outside 0..1 and is kept so
    float getAlpha() const { return alpha1_; }
    float lastAlpha() const { return alpha2_; }
    /// Radians, stored in degrees where getAlpha does not look; kept: the wheel's spread stays 55 degrees.
    void setAlpha(float radians);

    void rgb1Changed() override;
    /// Shows what the colour holds. Its ink fields stay as typed: the host gives most inks back as others.
    void rgb1EditingEnded() override;
    void rgb2Changed() override;
    void cmyk1Changed() override;
    void cmyk2Changed() override;

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
    void secondTyped();
    void refreshWheelAndStrip();

    WorkingColoursDesk& desk_;
    Colour firstColor_, secondColor_;
    float luminosity_ = 0;
    float alpha1_ = 0;
    float alpha2_ = 0;
};

} // namespace chromalog
