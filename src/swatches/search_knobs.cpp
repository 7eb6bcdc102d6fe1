#include "swatches/search_knobs.h"

#include "base/translated.h"

#include <string>

namespace chromalog {
namespace {

constexpr double kTypingPause = 0.25; // seconds

std::string foundText(std::int64_t hits) {
    std::string text = " ";
    return text.append(translated("%1 found", hits));
}

} // namespace

void SearchKnobs::observeFields() {
    for (SwatchPanel* panel : {&one_, &two_}) {
        panel->searchField->whenEdited([this, panel] { searchTextDidChange(*panel); });
        panel->searchField->whenReturnPressed([this, panel] { returnPressed(*panel); });
        panel->searchField->whenStepped([this, panel](int step) { nextHit(*panel, step); });
        panel->searchField->addMenuItems([this] { return choices(); });
    }
}

void SearchKnobs::searchTextDidChange(SwatchPanel& panel) {
    if (queryStartTimer_) {
        queryStartTimer_->fireIn(kTypingPause);
        return;
    }
    timed_ = &panel;
    queryStartTimer_ = desktop_.startTimer(kTypingPause, [this] { startNewSearchQuery(); });
}

void SearchKnobs::startNewSearchQuery() {
    if (timed_) timed_->view.queryForColorsByName(timed_->searchField->text());
    timed_ = nullptr;
    queryStartTimer_.reset();
}

const SearchOptions& SearchKnobs::options() {
    if (!options_) options_ = habits ? habits() : SearchOptions();
    return *options_;
}

void SearchKnobs::choose(const SearchOptions& chosen) {
    options_ = chosen;
    if (optionsChanged) optionsChanged(chosen);
    for (SwatchPanel* panel : {&one_, &two_})
        if (const std::string text = panel->searchField->text(); !text.empty())
            panel->view.queryForColorsByName(text);
}

MenuItems SearchKnobs::choices() {
    struct Row {
        const char *title, *action;
        bool SearchOptions::*option;
    };
    static constexpr Row kRows[] = {
        {translatable("Find in Any Letter Case"), "findAnyCase:", &SearchOptions::ignoreCase},
        {translatable("Find without Accents"), "findWithoutAccents:", &SearchOptions::ignoreAccents},
        {translatable("Find by Hex"), "findByHex:", &SearchOptions::hex},
        {translatable("Find by Nearest CSS Name"), "findByCssName:", &SearchOptions::cssName},
        {translatable("Show Hits Whole, Return Takes One"), "findLands:", &SearchOptions::landing},
    };
    MenuItems items;
    for (const Row& row : kRows) {
        SearchOptions after = options();
        after.*row.option = !(after.*row.option);
        items.push_back({translated(row.title),
                         row.action,
                         [this, after] { choose(after); },
                         true,
                         !(after.*row.option),
                         {},
                         true});
    }
    return items;
}

void SearchKnobs::returnPressed(SwatchPanel& panel) {
    if (!options().landing) return nextHit(panel);
    if (queryStartTimer_) startNewSearchQuery();
    const auto& hits = panel.view.hits();
    const auto shown = static_cast<std::size_t>(panel.view.lastShown());
    if (shown >= hits.size()) return;
    if (panel.view.getSelected() != hits[shown].position) jump(panel); // a press went elsewhere meanwhile
    if (takeHit) takeHit(panel);
}

void SearchKnobs::nextHit(SwatchPanel& panel, int step) {
    if (queryStartTimer_) return startNewSearchQuery();
    const std::int64_t hits = std::ssize(panel.view.hits());
    if (hits < 1) return;
    Stepper& stepper = *panel.hitStepper;
    if (hits > 1) {
        const std::int64_t next = (static_cast<std::int64_t>(stepper.value()) + step + hits) % hits;
        stepper.configure(0, static_cast<double>(hits - 1), 1, static_cast<double>(next), true);
    }
    jump(panel);
}

/// Whether there are several hits. The stepper keeps its value where there are not: kept, a single hit may so
/// be missed.
bool SearchKnobs::setUpStepper(SwatchPanel& panel, std::int64_t hits) {
    const bool several = hits >= 2;
    panel.hitStepper->setEnabled(several);
    panel.found->setEnabled(several);
    if (several) panel.hitStepper->configure(0, static_cast<double>(hits - 1), 1, 0, true);
    return several;
}

void SearchKnobs::activateKnobs(SwatchPanel& panel, double hits) {
    const auto count = static_cast<std::int64_t>(hits);
    const bool several = setUpStepper(panel, count);
    if (several || count == 1) jump(panel);
    panel.found->setText(foundText(count));
}

void SearchKnobs::jump(SwatchPanel& panel) {
    const auto hit = static_cast<std::int64_t>(panel.hitStepper->value());
    const bool only = options().landing && panel.view.hits().size() == 1; // whatever the stepper says
    panel.view.jumpToColor(only ? 0 : hit);
    if (options().landing) panel.view.scrollToShow(panel.view.getSelected());
}

} // namespace chromalog
