#include "dialog/screen_tool.h"

#include "history/undo_labels.h"

#include <vector>

namespace chromalog {

void ScreenTool::pick() {
    underWay_.reset();
    desktop_.statusLine().takeBack(StatusLine::About::colours);
    underWay_ = desktop_.pickFromScreen(*dialog_, [this](const ScreenColours& answer) {
        underWay_.reset();
        take(answer);
    });
}

/// The list first: the swatch that is nearest to the second colour may be a new one.
void ScreenTool::take(const ScreenColours& answer) {
    if (!answer.problem.empty()) return desktop_.statusLine().say(StatusLine::About::colours, answer.problem);
    if (answer.colours.empty()) return;
    std::vector<AddedColour> added;
    for (const Colour& colour : answer.colours)
        added.push_back({colour, {}});
    if (added.size() > 1) panels_.add(panels_.one, added, undo_label::colorsAdded);
    colours_.enterSecond(answer.colours.back());
}

} // namespace chromalog
