#include "swatches/search_knobs.h"

#include <string>

namespace chromalog {
namespace {

constexpr double kTypingPause = 0.25; // seconds

std::string foundText(std::int64_t hits) {
    std::string text = " ";
    return text.append(std::to_string(hits)).append(" found");
}

} // namespace

void SearchKnobs::observeFields() {
    for (SwatchPanel* panel : {&one_, &two_}) {
        panel->searchField->whenEdited([this, panel] { searchTextDidChange(*panel); });
        panel->searchField->whenReturnPressed([this, panel] { nextHit(*panel); });
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

void SearchKnobs::nextHit(SwatchPanel& panel) {
    if (queryStartTimer_) return startNewSearchQuery();
    const std::int64_t hits = std::ssize(panel.view.hits());
    if (hits < 1) return;
    Stepper& stepper = *panel.hitStepper;
    if (hits > 1) {
        const std::int64_t next = (static_cast<std::int64_t>(stepper.value()) + 1) % hits;
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
    panel.view.jumpToColor(static_cast<std::int64_t>(panel.hitStepper->value()));
}

} // namespace chromalog
