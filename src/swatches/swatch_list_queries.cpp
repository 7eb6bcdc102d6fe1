#include "swatches/nearest.h"
#include "swatches/sort.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {

void CSwatchList::sortSwatchList(std::string_view key) {
    const ListRecords shown = shownRecordsToChange();
    if (key == "nom")
        sortByName(shown);
    else if (key == "color")
        sortByHue(shown);
    contentsChanged();
}

std::vector<FoundEntry> CSwatchListDelegate::find(CSwatchList& list, std::string_view text) {
    return findByName(list.recordsToChange(), list1Records(), list.getNumberOfColors(), text);
}

void CSwatchList::queryForColorsByName(std::string_view text) {
    sens = 1;
    LastShown = 0;
    lostAndFound = delegate_.find(*this, text);
    LAFindex = 0;
    LAFCount = lostAndFound.size();
    delegate_.activateKnobs(*this, static_cast<double>(LAFCount));
}

void CSwatchList::jumpToColor(std::int64_t hit) {
    const bool backwards = static_cast<std::int64_t>(LastShown) > hit;
    if (backwards != (sens != 0))
        delegate_.desktop().playSound("Frog"); // also at the first jump after a search
    sens = backwards;
    LastShown = static_cast<std::uint64_t>(hit);
    if (hit < 0 || hit >= std::ssize(lostAndFound)) { // a stepper may hold a value of an earlier search
        delegate_.desktop().log("jumpToColor: hit " + std::to_string(hit) + " of " +
                                std::to_string(LAFCount));
        return;
    }
    const FoundEntry& entry = lostAndFound[static_cast<std::size_t>(hit)];
    selectcolor = static_cast<std::int16_t>(entry.position);
    ScrollView& scroller = delegate_.scroller(*this);
    scroller.setVerticalScroller(entry.scrollValue);
    logScrollValue(entry.scrollValue);
    scroller.scrollToPoint({bounds().x, entry.scrollValue * bounds().h});
    scroller.setNeedsDisplay();
    contentsChanged();
}

std::int16_t CSwatchList::getNearColor(const Colour& colour, float& distance) const {
    const NearestSwatch nearest = nearestSwatch(shownRecords(), colour);
    distance = nearest.distance;
    return static_cast<std::int16_t>(nearest.index);
}

} // namespace chromalog
