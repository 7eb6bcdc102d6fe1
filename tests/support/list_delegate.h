#pragma once

#include "support/headless_desktop.h"
#include "swatches/swatch_list_view.h"

namespace chromalog::test {

/// A dialog around a list that is only drawn.
class ListDelegate : public CSwatchListDelegate {
  public:
    HeadlessDesktop screen;
    ScrollView noScroller;
    Menu noMenu;
    Desktop& desktop() override { return screen; }
    void setFirstColor(CSwatchList&, std::int16_t) override {}
    void useAsFirstColor(CSwatchList&, std::int16_t) override {}
    bool isFirstColorId(const Colour&, std::int16_t, std::string&) override { return false; }
    void activateKnobs(CSwatchList&, double) override {}
    void setUndoablePosition(std::string_view) override {}
    ListRecords list1Records() override { return {}; }
    ScrollView& scroller(CSwatchList&) override { return noScroller; }
    Menu& menu(CSwatchList&) override { return noMenu; }
};

} // namespace chromalog::test
