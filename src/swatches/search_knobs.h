#pragma once

#include "desktop/desktop.h"
#include "swatches/swatch_panel.h"

#include <cstdint>
#include <memory>

namespace chromalog {

/// Searches the two lists by name as one types: a field, a stepper through the hits and a label with their
/// number for each list.
class SearchKnobs {
  public:
    SearchKnobs(Desktop& desktop, SwatchPanel& one, SwatchPanel& two)
        : desktop_(desktop), one_(one), two_(two) {}

    void observeFields(); ///< after the outlets are connected

    /// Searches 0.25 s after the last keystroke. A timer that waits keeps the list that it was started for.
    void searchTextDidChange(SwatchPanel&);
    void startNewSearchQuery();
    /// Return in a search field: the next hit, round and round; a search that still waits runs now instead.
    void nextHit(SwatchPanel&);

    void activateKnobs(SwatchPanel&, double hits); ///< after a search
    void jump(SwatchPanel&);                       ///< to the hit of the stepper

  private:
    static bool setUpStepper(SwatchPanel&, std::int64_t hits);

    Desktop& desktop_;
    SwatchPanel& one_;
    SwatchPanel& two_;
    SwatchPanel* timed_ = nullptr; ///< what the timer carries
    std::unique_ptr<Timer> queryStartTimer_;
};

} // namespace chromalog
