#pragma once

#include "desktop/desktop.h"
#include "swatches/swatch_list_view.h"

#include <memory>
#include <vector>

namespace chromalog {

/// The controls that search the two lists by name as one types: a field, a stepper through the hits and a
/// label with their number for each list.
class SearchKnobs {
  public:
    SearchKnobs(Desktop& desktop, CSwatchList& swatch1, CSwatchList& swatch2)
        : desktop_(desktop), swatch1_(swatch1), swatch2_(swatch2) {}

    Outlet<TextField> findColor1, findColor2;
    Outlet<Stepper> seachStep1, seachStep2;
    Outlet<TextField> found1, found2;

    std::vector<OutletEntry> table();
    void observeFields(); ///< after the outlets are connected

    /// Searches 0.25 s after the last keystroke. A timer that waits keeps the field that it was started for.
    void searchTextDidChange(const TextField&);
    void startNewSearchQuery();
    /// Return in a search field: the next hit, round and round; a search that still waits runs now instead.
    void nextHit(const TextField&);

    void activateKnobs(const CSwatchList&, double hits);
    void activateKnob1(std::int64_t hits);
    void activateKnob2(std::int64_t hits);
    void jumpFirst();
    void jumpSecond();

  private:
    static bool setUpStepper(Stepper&, TextField& found, std::int64_t hits);

    Desktop& desktop_;
    CSwatchList& swatch1_;
    CSwatchList& swatch2_;
    const TextField* timedField_ = nullptr; ///< what the timer carries
    std::unique_ptr<Timer> queryStartTimer_;
};

} // namespace chromalog
