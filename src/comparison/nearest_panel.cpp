#include "comparison/nearest_panel.h"

#include "base/colour_text.h"
#include "record/name_text.h"
#include "swatches/shown_colour.h"

namespace chromalog {

void NearestPanel::load() {
    form_ = desktop_.loadForm("NearestPanel", {{{"nearestWindow", &nearestWindow},
                                                {"nearestScroller", &rows_.scroller},
                                                {"nearestTo", &nearestTo},
                                                {"nearestNote", &nearestNote},
                                                {"nearestRows", &rows_}},
                                               {}});
    if (!form_) desktop_.log("failed to load the form NearestPanel");
    rows_.pressed = [this](int row) { select(row); };
    rows_.taken = [this](int row) { use(row); };
    nearestWindow->whenClosed([this] { nearestWindow->orderOut(); });
    nearestWindow->attachAsChildOf(*dialog_);
}

void NearestPanel::show() {
    if (!form_) load();
    nearestWindow->makeKeyAndOrderFront();
    follow();
}

void NearestPanel::follow() {
    if (!form_ || !nearestWindow->visible()) return;
    const Colour& second = colours_.getSecondColor();
    const std::size_t before = found_.size();
    found_ = nearest_.few(second, 0, kOfEach);
    for (const NearSwatch& swatch : nearest_.few(second, 1, kOfEach))
        found_.push_back(swatch);
    if (found_.size() == before)
        rows_.rowsChanged();
    else
        rows_.setRows(static_cast<int>(found_.size()), [this](int row) { return line(row); });
    nearestTo->setColor(second);
    nearestNote->setText(spokenText(second));
}

ResultRow NearestPanel::line(int row) {
    const NearSwatch& swatch = found_[static_cast<std::size_t>(row)];
    const FCOStruct* record = nearest_.recordOf(swatch);
    if (!record) return {};
    return {shownColour(*record), colours_.getSecondColor(), macRomanToUtf8(zeroTerminatedName(*record)),
            placeText(swatch.list, swatch.row), differenceText(swatch.difference)};
}

void NearestPanel::select(int row) {
    const NearSwatch swatch = found_[static_cast<std::size_t>(row)];
    panels_.select(nearest_.panelOf(swatch), swatch.row, true);
}

void NearestPanel::use(int row) {
    if (const FCOStruct* record = nearest_.recordOf(found_[static_cast<std::size_t>(row)]))
        colours_.enterSecond(shownColour(*record));
}

} // namespace chromalog
