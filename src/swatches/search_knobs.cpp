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

std::vector<OutletEntry> SearchKnobs::table() {
    return {{"findColor1", &findColor1}, {"findColor2", &findColor2}, {"seachStep1", &seachStep1},
            {"seachStep2", &seachStep2}, {"found1", &found1},         {"found2", &found2}};
}

void SearchKnobs::observeFields() {
    for (Outlet<TextField>* outlet : {&findColor1, &findColor2}) {
        if (!outlet->connected()) continue;
        TextField& field = **outlet;
        field.onEdit = [this, &field] { searchTextDidChange(field); };
        field.onReturn = [this, &field] { nextHit(field); };
    }
}

void SearchKnobs::searchTextDidChange(const TextField& field) {
    if (queryStartTimer_) {
        queryStartTimer_->fireIn(kTypingPause);
        return;
    }
    timedField_ = &field;
    queryStartTimer_ = desktop_.startTimer(kTypingPause, [this] { startNewSearchQuery(); });
}

void SearchKnobs::startNewSearchQuery() {
    if (findColor1.is(timedField_))
        swatch1_.queryForColorsByName(findColor1->text());
    else
        swatch2_.queryForColorsByName(findColor2->text());
    timedField_ = nullptr;
    queryStartTimer_.reset();
}

void SearchKnobs::nextHit(const TextField& field) {
    if (queryStartTimer_) return startNewSearchQuery();
    const bool first = findColor1.is(&field);
    const auto hits = static_cast<std::int64_t>((first ? swatch1_ : swatch2_).hits().size());
    if (hits < 1) return;
    Stepper& stepper = first ? *seachStep1 : *seachStep2;
    if (hits > 1) {
        const std::int64_t next = (static_cast<std::int64_t>(stepper.value()) + 1) % hits;
        stepper.configure(0, static_cast<double>(hits - 1), 1, static_cast<double>(next), true);
    }
    first ? jumpFirst() : jumpSecond();
}

void SearchKnobs::activateKnobs(const CSwatchList& view, double hits) {
    const auto count = static_cast<std::int64_t>(hits);
    &view == &swatch1_ ? activateKnob1(count) : activateKnob2(count);
}

/// Whether there are several hits. The stepper keeps its value where there are not: kept, a single hit may so
/// be missed.
bool SearchKnobs::setUpStepper(Stepper& stepper, TextField& found, std::int64_t hits) {
    const bool several = hits >= 2;
    stepper.setEnabled(several);
    found.setEnabled(several);
    if (several) stepper.configure(0, static_cast<double>(hits - 1), 1, 0, true);
    return several;
}

void SearchKnobs::activateKnob1(std::int64_t hits) {
    const bool several = setUpStepper(*seachStep1, *found1, hits);
    if (several || hits == 1) jumpFirst();
    found1->setText(foundText(hits));
}

void SearchKnobs::activateKnob2(std::int64_t hits) {
    const bool several = setUpStepper(*seachStep2, *found2, hits);
    if (several || hits == 1) jumpSecond();
    found2->setText(foundText(hits));
}

void SearchKnobs::jumpFirst() {
    swatch1_.jumpToColor(static_cast<std::int64_t>(seachStep1->value()));
}

void SearchKnobs::jumpSecond() {
    swatch2_.jumpToColor(static_cast<std::int64_t>(seachStep2->value()));
}

} // namespace chromalog
