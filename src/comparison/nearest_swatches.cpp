#include "comparison/nearest_swatches.h"

#include "comparison/list_colours.h"
#include "swatches/nearest.h"

namespace chromalog {

void NearestSwatches::refresh() {
    if (!stale_) return;
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        const ConstListRecords shown = panels_.both()[i]->view.shownRecords();
        const std::uint64_t mark = listMark(shown);
        if (!made_ || mark != sides_[i].mark) sides_[i] = {mark, LabGrid(labsOf(shown))};
    }
    made_ = true;
    stale_ = false;
}

std::vector<NearSwatch> NearestSwatches::few(const Colour& colour, int list, std::size_t count) {
    refresh();
    std::vector<NearSwatch> found;
    const LabGrid& grid = sides_[static_cast<std::size_t>(list)].grid;
    for (const ColourMatch& match : grid.nearestFew(labOf(rgbOf(colour)), count))
        found.push_back({list, static_cast<int>(match.index), match.difference});
    return found;
}

std::optional<NearSwatch> NearestSwatches::nearest(const Colour& colour) {
    refresh();
    std::optional<NearSwatch> best;
    const Lab lab = labOf(rgbOf(colour));
    for (int list = 0; const Side& side : sides_) {
        const double bound = best ? best->difference : std::numeric_limits<double>::infinity();
        const auto match = side.grid.nearest(lab, bound);
        if (match && (!best || match->difference < best->difference))
            best = NearSwatch{list, static_cast<int>(match->index), match->difference};
        ++list;
    }
    return best;
}

const FCOStruct* NearestSwatches::recordOf(const NearSwatch& swatch) {
    return recordAt(panelOf(swatch).view.shownRecords(), swatch.row);
}

} // namespace chromalog
