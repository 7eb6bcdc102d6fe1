#pragma once

#include "desktop/desktop.h"
#include "swatches/search_options.h"
#include "swatches/swatch_panel.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace chromalog {

/// Searches the two lists by name as one types: a field, a stepper through the hits and a label with their
/// number for each list.
class SearchKnobs {
  public:
    SearchKnobs(Desktop& desktop, SwatchPanel& one, SwatchPanel& two)
        : desktop_(desktop), one_(one), two_(two) {}

    void observeFields(); ///< after the outlets are connected

    /// What a person has chosen before; asked when it is needed first. Without it: the search as it is.
    std::function<SearchOptions()> habits;
    std::function<void(const SearchOptions&)> optionsChanged; ///< by a person
    std::function<void(SwatchPanel&)> takeHit;                ///< the hit that is selected
    const SearchOptions& options();
    void choose(const SearchOptions&); ///< searches anew with them

    /// Searches 0.25 s after the last keystroke. A timer that waits keeps the list that it was started for.
    void searchTextDidChange(SwatchPanel&);
    void startNewSearchQuery();
    /// Return in a search field: the next hit, round and round, or the hit is taken; a search that still
    /// waits runs first.
    void returnPressed(SwatchPanel&);
    void nextHit(SwatchPanel&, int step = 1); ///< a search that still waits runs instead

    void activateKnobs(SwatchPanel&, double hits); ///< after a search
    void jump(SwatchPanel&);                       ///< to the hit of the stepper

  private:
    static bool setUpStepper(SwatchPanel&, std::int64_t hits);
    MenuItems choices();

    Desktop& desktop_;
    SwatchPanel& one_;
    SwatchPanel& two_;
    SwatchPanel* timed_ = nullptr; ///< what the timer carries
    std::unique_ptr<Timer> queryStartTimer_;
    std::optional<SearchOptions> options_; ///< none: not asked yet
};

} // namespace chromalog
