#include "comparison/compare_panel.h"

#include "base/number_text.h"
#include "base/translated.h"
#include "comparison/list_colours.h"
#include "history/undo_labels.h"
#include "record/name_text.h"
#include "swatches/nearest.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr double kPause = 0.1; ///< seconds after an edit or a keystroke

std::string titleOf(const std::string& words, std::optional<std::string> count) {
    return count ? words + ": " + *count : words;
}

/// "Add 5 to List 1", of none "Add to List 1"
std::string titleOf(std::size_t count, std::string_view ofSome, std::string_view ofNone) {
    return count > 0 ? translated(ofSome, count) : translated(ofNone);
}

std::string doublesWords(std::size_t count) {
    return translatedCount(count, "Remove %1 near double", "Remove %1 near doubles");
}

} // namespace

FormOwner ComparePanel::owner() {
    return {{{"compareWindow", &compareWindow},
             {"compareScroller", &rows_.scroller},
             {"compareDifference", &compareDifference},
             {"compareView", &compareView},
             {"compareOnlyOne", &counts_[0]},
             {"compareOnlyTwo", &counts_[1]},
             {"compareBoth", &counts_[2]},
             {"compareDoublesOne", &counts_[3]},
             {"compareDoublesTwo", &counts_[4]},
             {"compareAdd1", &compareAdd1},
             {"compareAdd2", &compareAdd2},
             {"compareRemove", &compareRemove},
             {"compareRows", &rows_}},
            {{"chooseComparison:", [this] { choose(chosen()); }},
             {"compareAdd1:", [this] { addTo(0); }},
             {"compareAdd2:", [this] { addTo(1); }},
             {"removeDoubles:", [this] { removeDoubles(); }}}};
}

ComparisonView ComparePanel::chosen() const {
    return static_cast<ComparisonView>(std::clamp(compareView->selectedRow(), 0, 4));
}

void ComparePanel::load() {
    form_ = desktop_.loadForm("ComparePanel", owner());
    if (!form_) desktop_.log("failed to load the form ComparePanel");
    rows_.pressed = [this](int row) { select(row); };
    rows_.selectionChanged = [this] { showButtons(); };
    compareDifference->whenEdited([this] { differenceTyped(); });
    compareWindow->whenClosed([this] { hide(); });
    compareWindow->attachAsChildOf(*dialog_);
}

void ComparePanel::show(ComparisonView view) {
    if (!form_) load();
    if (!compareWindow.connected()) return;
    compareWindow->makeKeyAndOrderFront();
    compareDifference->setText(decimalText(within_, 2)); // also after one that could not be read
    compareDifference->setFault("");
    compareView->selectRow(static_cast<int>(view));
    view_ = view;
    forget();
    ask(0);
}

void ComparePanel::hide() {
    work_.abandon();
    forget();
    compareWindow->orderOut();
}

void ComparePanel::choose(ComparisonView view) {
    const bool answered = found_ && !work_.waits() && !showsDoubles(view) && !showsDoubles(view_);
    view_ = view;
    if (answered) return take(std::move(*found_));
    forget();
    ask(0);
}

void ComparePanel::differenceTyped() {
    const auto typed = finiteNumber(compareDifference->text());
    const bool usable = typed && *typed >= 0 && *typed <= kLargest;
    compareDifference->setFault(usable ? "" : translated("A number from 0 to 20"));
    if (!usable || *typed == within_) return;
    within_ = *typed;
    ask(kPause);
}

void ComparePanel::listsChanged() {
    if (!form_ || !compareWindow->visible() || listMarks() == compared_) return;
    forget();
    ask(kPause);
}

std::array<std::uint64_t, 2> ComparePanel::listMarks() const {
    return {listMark(panels_.one.view.shownRecords()), listMark(panels_.two.view.shownRecords())};
}

void ComparePanel::ask(double seconds) {
    compared_ = listMarks();
    work_.ask(seconds);
}

ComparisonTask ComparePanel::task() const {
    return {labsOf(panels_.one.view.shownRecords()), labsOf(panels_.two.view.shownRecords()), within_, view_};
}

void ComparePanel::forget() {
    found_.reset();
    lines_.clear();
    rows_.setRows(0, nullptr);
    for (SwatchPanel* panel : panels_.both())
        panels_.rows(panel->view).showSigns({});
    showCounts();
}

void ComparePanel::take(ListComparison result) {
    found_ = std::move(result);
    lines_ = comparedRows(*found_, view_);
    rows_.setRows(static_cast<int>(lines_.size()), [this](int row) { return line(row); });
    showMarks();
    showCounts();
}

void ComparePanel::showMarks() {
    for (std::size_t list = 0; SwatchPanel * panel : panels_.both()) {
        const bool doubles = showsDoubles(view_);
        std::vector<RowSign> signs;
        for (const auto& match : found_->matches[list])
            signs.push_back(doubles ? (match ? RowSign::goes : RowSign::none)
                                    : (match ? RowSign::inBoth : RowSign::onlyHere));
        panels_.rows(panel->view).showSigns(std::move(signs));
        ++list;
    }
}

/// Of what was not asked there is no number.
void ComparePanel::showCounts() {
    std::optional<std::string> told[5];
    if (found_ && showsDoubles(view_)) {
        told[static_cast<std::size_t>(view_)] = std::to_string(lines_.size());
    } else if (found_) {
        const std::size_t one = found_->matched(0), two = found_->matched(1);
        told[0] = std::to_string(found_->matches[0].size() - one);
        told[1] = std::to_string(found_->matches[1].size() - two);
        told[2] = translated("%1 of list 1, %2 of list 2", one, two);
    }
    static constexpr const char* kWords[] = {translatable("Only in list 1"), translatable("Only in list 2"),
                                             translatable("In both"), translatable("Near doubles in list 1"),
                                             translatable("Near doubles in list 2")};
    for (std::size_t i = 0; i < 5; ++i)
        counts_[i]->setTitle(titleOf(translated(kWords[i]), told[i]));
}

/// What stands in a list alone is offered to the other one.
void ComparePanel::showButtons() {
    const std::size_t count = taken().size();
    const bool any = !lines_.empty(), doubles = showsDoubles(view_);
    compareAdd1->setTitle(titleOf(count, translatable("Add %1 to List 1"), translatable("Add to List 1")));
    compareAdd2->setTitle(titleOf(count, translatable("Add %1 to List 2"), translatable("Add to List 2")));
    compareRemove->setTitle(titleOf(count, translatable("Remove %1"), translatable("Remove")));
    compareAdd1->setEnabled(any && view_ != ComparisonView::onlyOne);
    compareAdd2->setEnabled(any && view_ != ComparisonView::onlyTwo);
    compareRemove->setEnabled(any);
    compareAdd1->setHidden(doubles);
    compareAdd2->setHidden(doubles);
    compareRemove->setHidden(!doubles);
}

const FCOStruct* ComparePanel::recordOf(int list, int row) const {
    return recordAt(panels_.both()[static_cast<std::size_t>(list)]->view.shownRecords(), row);
}

ResultRow ComparePanel::line(int row) const {
    const ComparedRow& compared = lines_[static_cast<std::size_t>(row)];
    const FCOStruct* record = recordOf(compared.list, compared.row);
    if (!record) return {};
    ResultRow line{shownColour(*record),
                   std::nullopt,
                   macRomanToUtf8(zeroTerminatedName(*record)),
                   placeText(compared.list, compared.row),
                   {}};
    if (compared.counterpart < 0) return line;
    const int other = showsDoubles(view_) ? compared.list : 1 - compared.list;
    const FCOStruct* counterpart = recordOf(other, compared.counterpart);
    if (!counterpart) return line;
    line.beside = shownColour(*counterpart);
    const std::string beside = macRomanToUtf8(zeroTerminatedName(*counterpart));
    line.name =
        showsDoubles(view_) ? translated("%1 doubles %2", line.name, beside) : line.name + " = " + beside;
    line.place = placesText(compared.list, compared.row, other, compared.counterpart);
    line.difference = differenceText(compared.difference);
    return line;
}

std::vector<ComparedRow> ComparePanel::taken() const {
    if (rows_.selection().empty()) return lines_;
    std::vector<ComparedRow> taken;
    for (const int row : rows_.selection().rows())
        taken.push_back(lines_.at(static_cast<std::size_t>(row)));
    return taken;
}

void ComparePanel::select(int row) {
    const ComparedRow& compared = lines_[static_cast<std::size_t>(row)];
    panels_.select(*panels_.both()[static_cast<std::size_t>(compared.list)], compared.row, false);
}

void ComparePanel::addTo(int list) {
    std::vector<FCOStruct> copies;
    for (const ComparedRow& compared : taken())
        if (const FCOStruct* record = recordOf(compared.list, compared.row)) copies.push_back(*record);
    panels_.addRecords(*panels_.both()[static_cast<std::size_t>(list)], copies, undo_label::comparedAdded);
}

void ComparePanel::removeDoubles() {
    if (!showsDoubles(view_)) return;
    const std::size_t list = view_ == ComparisonView::doublesOne ? 0 : 1;
    std::vector<int> gone;
    for (const ComparedRow& compared : taken())
        gone.push_back(compared.row);
    panels_.erase(*panels_.both()[list], gone, undo_label::doublesRemoved, doublesWords(gone.size()));
    desktop_.statusLine().say(StatusLine::About::colours,
                              translatedCount(gone.size(), "%1 near double was removed from list %2.",
                                              "%1 near doubles were removed from list %2.", list + 1));
}

} // namespace chromalog
