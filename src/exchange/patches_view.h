#pragma once

#include "desktop/view.h"

#include <vector>

namespace chromalog {

/// Colours as patches of one size in rows, as large as they all fit.
class PatchesView : public View {
  public:
    void setColours(std::vector<Colour>);

    const char* className() const override { return "PatchesView"; }
    bool isFlipped() const override { return true; }
    void drawRect(Canvas&) override;
    Accessible accessible() const override;

  private:
    std::vector<Colour> colours_;
};

} // namespace chromalog
