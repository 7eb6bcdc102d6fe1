#include "comparison/well_neighbours.h"

#include "base/number_text.h"
#include "base/translated.h"
#include "comparison/result_list.h"
#include "record/name_text.h"
#include "spaces/contrast.h"
#include "swatches/shown_colour.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr double kBetween = 2;    ///< points, as the form has them between the wells
constexpr double kLeastText = 24; ///< points that a difference needs
constexpr Font kNumber{Font::Face::label, 10};

} // namespace

void WellNeighbours::follow() {
    if (!painted_) return; // it is hidden, or will be painted anyway
    painted_ = false;
    setNeedsDisplay();
    announceChange();
}

Rect WellNeighbours::cell(int well) const {
    const double count = static_cast<double>(wells_.size());
    const double pitch = (bounds().w + kBetween) / count;
    const double left = std::round(pitch * well), right = std::round(pitch * (well + 1)) - kBetween;
    return {bounds().x + left, bounds().y, right - left, bounds().h};
}

std::optional<NearSwatch> WellNeighbours::neighbour(int well) const {
    if (well < 0 || well >= accessibleRowCount()) return std::nullopt;
    return nearest_.nearest((*wells_[static_cast<std::size_t>(well)])->color());
}

void WellNeighbours::drawRect(Canvas& canvas) {
    painted_ = true;
    for (int well = 0; well < accessibleRowCount(); ++well) {
        const auto found = neighbour(well);
        const FCOStruct* record = found ? nearest_.recordOf(*found) : nullptr;
        if (!record) continue;
        const Rect place = cell(well);
        const Colour colour = shownColour(*record);
        canvas.setFill(colour);
        canvas.fillRect(place);
        if (place.w < kLeastText) continue;
        canvas.setFill(relativeLuminance(rgbOf(colour)) > 0.179 ? Colour() : Colour::rgb(1, 1, 1));
        canvas.drawText({place.x + 3, place.y + 3}, fixedText(found->difference, 1), kNumber, place.w - 4);
    }
}

void WellNeighbours::mouseDown(const MouseEvent& event) {
    const int well = accessibleRowAt(event.location);
    if (well < 0) return;
    own_ = well;
    select(well);
}

bool WellNeighbours::keyDown(const KeyEvent& event) {
    if (event.key == Key::space || event.key == Key::enter) return select(own_), true;
    if (event.key != Key::left && event.key != Key::right) return false;
    own_ = std::clamp(own_ + (event.key == Key::left ? -1 : 1), 0, accessibleRowCount() - 1);
    setNeedsDisplay();
    announceChange();
    return true;
}

void WellNeighbours::select(int well) {
    setNeedsDisplay();
    if (const auto found = neighbour(well)) panels_.select(nearest_.panelOf(*found), found->row, true);
}

std::string WellNeighbours::told(const NearSwatch& swatch) const {
    return placeText(swatch.list, swatch.row) + ", ΔE " + differenceText(swatch.difference);
}

std::string WellNeighbours::helpAt(Point point) const {
    const auto found = neighbour(accessibleRowAt(point));
    const FCOStruct* record = found ? nearest_.recordOf(*found) : nullptr;
    if (!record) return translated("Both lists are empty");
    return translated("Nearest: %1", macRomanToUtf8(zeroTerminatedName(*record))) + "\n" + told(*found);
}

Accessible WellNeighbours::accessible() const {
    Accessible told;
    told.role = Accessible::Role::list;
    told.name = translated("Nearest swatches, %1", translated(harmony_));
    told.description = translated("Left and Right move, Return selects the swatch in its list");
    return told;
}

AccessibleRow WellNeighbours::accessibleRow(int well) const {
    const auto found = neighbour(well);
    const FCOStruct* record = found ? nearest_.recordOf(*found) : nullptr;
    if (!record) return {translated("None"), "", cell(well)};
    return {macRomanToUtf8(zeroTerminatedName(*record)), told(*found), cell(well)};
}

int WellNeighbours::accessibleRowAt(Point point) const {
    for (int well = 0; well < accessibleRowCount(); ++well) {
        const Rect place = cell(well);
        if (point.x >= place.x && point.x < place.x + place.w + kBetween) return well;
    }
    return -1;
}

void WellNeighbours::selectAccessibleRow(int well) {
    own_ = std::clamp(well, 0, accessibleRowCount() - 1);
    setNeedsDisplay();
}

HarmonyNeighbours::HarmonyNeighbours(WorkingColours& c, SwatchPanels& panels, NearestSwatches& nearest) {
    const auto add = [&](const char* harmony, WellNeighbours::Wells wells) {
        views_.push_back(std::make_unique<WellNeighbours>(harmony, std::move(wells), panels, nearest));
    };
    add("complement", {&c.origComplement, &c.complementColor});
    add("harmoniques", {&c.origHarmony, &c.equi1Color, &c.equi2Color});
    add("tri-complement", {&c.origTrichrome, &c.triHarmoni1Color, &c.triHarmoni2Color});
    add("quadri", {&c.origQuadrichrome, &c.quadri1Color, &c.quadri2Color, &c.quadri3Color});
}

std::vector<OutletEntry> HarmonyNeighbours::table() {
    return {{"nearComplement", views_[0].get(), true},
            {"nearHarmoniques", views_[1].get(), true},
            {"nearTriComplement", views_[2].get(), true},
            {"nearQuadri", views_[3].get(), true}};
}

void HarmonyNeighbours::follow() {
    for (const auto& view : views_)
        view->follow();
}

} // namespace chromalog
