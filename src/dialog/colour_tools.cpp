#include "dialog/colour_tools.h"

#include "history/undo_labels.h"
#include "swatches/added_colours.h"

namespace chromalog {

ColourTools::ColourTools(ColourToolsParts parts)
    : parts_(std::move(parts)),
      judge_({parts_.colours, parts_.views.wheel, parts_.desktop, parts_.dialog, parts_.services,
              parts_.atHand,
              [this](std::vector<OutletEntry> wells) { parts_.atHand.haveMoreWells(std::move(wells)); }}) {
    parts_.panels.listsChanged = [this] { listsChanged(); };
}

std::vector<OutletEntry> ColourTools::table() {
    std::vector<OutletEntry> outlets = judge_.table();
    for (const OutletEntry& outlet : neighbours_.table())
        outlets.push_back(outlet);
    return outlets;
}

std::vector<ActionEntry> ColourTools::actions() {
    std::vector<ActionEntry> actions = judge_.actions();
    actions.push_back({"compareLists:", [this] { compare_.show(ComparisonView::onlyOne); }});
    actions.push_back({"findNearDoubles:", [this] { compare_.show(ComparisonView::doublesOne); }});
    actions.push_back({"showNearest:", [this] { nearestPanel_.show(); }});
    actions.push_back({"choosePicture:", [this] { showPictures(); }});
    actions.push_back({"showAbout:", [this] { parts_.desktop.showAbout(*parts_.dialog); }});
    actions.push_back({"pickFromScreen:", [this] { screen_.pick(); }});
    return actions;
}

void ColourTools::start() {
    judge_.start();
}

void ColourTools::colourChanged(Cause cause) {
    judge_.colourChanged();
    if (cause != Cause::firstColour && cause != Cause::harmonyMode) nearestPanel_.follow();
    neighbours_.follow();
}

void ColourTools::listsChanged() {
    nearest_.listsChanged();
    compare_.listsChanged();
    nearestPanel_.follow();
    neighbours_.follow();
}

void ColourTools::showPictures() {
    const auto add = [this](int list, const std::vector<TakenColour>& taken) {
        std::vector<AddedColour> added;
        added.reserve(taken.size());
        for (const TakenColour& each : taken)
            added.push_back({each.colour, each.name});
        parts_.panels.add(list == 2 ? parts_.panels.two : parts_.panels.one, added, undo_label::colorsAdded);
    };
    const auto pick = [this](const Colour& colour) { parts_.colours.enterSecond(colour); };
    if (!pictures_)
        pictures_ =
            std::make_unique<PicturePanel>(PicturePanelParts{parts_.desktop, *parts_.dialog, pick, add});
    pictures_->show();
}

} // namespace chromalog
