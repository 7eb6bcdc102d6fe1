#pragma once

#include "base/translated.h"
#include "comparison/comparison_work.h"
#include "comparison/result_list.h"
#include "swatches/swatch_panels.h"

#include <memory>

namespace chromalog {

/// List 1 beside list 2, and near doubles within either: a panel that floats above the dialog, with marks in
/// the lists and a result to take from or to remove. It follows every edit of the lists while it shows.
class ComparePanel {
  public:
    ComparePanel(Desktop& desktop, Outlet<Window>& dialog, SwatchPanels& panels)
        : desktop_(desktop), dialog_(dialog), panels_(panels) {}

    void show(ComparisonView);
    void listsChanged(); ///< perhaps; nothing while it does not show

    static constexpr double kLargest = 20; ///< CIEDE2000 that can be chosen; the least is 0

  private:
    void load();
    FormOwner owner();
    void hide();
    ComparisonView chosen() const; ///< by the radio buttons
    void choose(ComparisonView);
    void differenceTyped();
    void ask(double seconds);
    ComparisonTask task() const;
    void take(ListComparison);
    void forget(); ///< what was found, with its marks

    ResultRow line(int row) const;
    const FCOStruct* recordOf(int list, int row) const;
    std::vector<ComparedRow> taken() const; ///< the selected ones, else all
    void select(int row);
    void addTo(int list);
    void removeDoubles();
    void showCounts();
    void showButtons();
    void showMarks();
    std::array<std::uint64_t, 2> listMarks() const;

    Desktop& desktop_;
    Outlet<Window>& dialog_;
    SwatchPanels& panels_;
    ComparisonView view_ = ComparisonView::onlyOne;
    double within_ = 2;
    std::array<std::uint64_t, 2> compared_{}; ///< marks of the lists that were asked about last
    std::optional<ListComparison> found_;     ///< of view_, or of another view of the same question
    std::vector<ComparedRow> lines_;          ///< of the result that shows
    ResultList rows_{
        desktop_, translated("Result of the comparison"),
        translated("Shift and the arrows select several, Ctrl+A all, Space selects the swatch in its list")};
    Outlet<Window> compareWindow;
    Outlet<TextField> compareDifference;
    Outlet<RadioMatrix> compareView;
    Outlet<Button> counts_[5]; ///< in the order of ComparisonView
    Outlet<Button> compareAdd1, compareAdd2, compareRemove;
    std::unique_ptr<Form> form_; ///< once it was asked for; after the outlets and the view
    ComparisonWork work_{desktop_, [this] { return task(); },
                         [this](ListComparison result) { take(std::move(result)); }};
};

} // namespace chromalog
