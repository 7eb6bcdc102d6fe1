#include "print/chart_printing.h"

#include "print/chart_pages.h"

namespace chromalog {
namespace {

/// Both charts count as printing, and so as flipped, for as long as this lives.
class ChartsPrinting {
  public:
    ChartsPrinting(chartView& a, chartView& b) : a_(a), b_(b) { set(true); }
    ChartsPrinting(const ChartsPrinting&) = delete;
    ChartsPrinting& operator=(const ChartsPrinting&) = delete;
    ~ChartsPrinting() { set(false); }

  private:
    void set(bool printing) {
        a_.setPrinting(printing);
        b_.setPrinting(printing);
    }
    chartView &a_, &b_;
};

} // namespace

void printToneOrDegrade(degradeView& gradient, toneView& tone, int toneOrDegrade, Desktop& desktop) {
    const bool chosenTone = toneOrDegrade == 1;
    const auto layOut = [&](const PrintInfo& info) -> PrintPages {
        const Size area = info.printable(), page = info.page();
        if (area.w <= 0 || area.h <= 0) return {};
        const auto paint = [&, page](int, Canvas& canvas) {
            const ChartsPrinting flags(gradient, tone);
            if (!chosenTone) return paintPage(degradePage(gradient.corners(), page), canvas);
            canvas.fillRect({0, 0, page.w, page.h}); // in the canvas's current colour, as on the screen: kept
            paintPage(tonePage(tone.circle(), tone.middle(), page), canvas);
        };
        return {1, page, paint};
    };
    desktop.runPrintOperation({chosenTone ? "Tone chart" : "Gradient", layOut});
}

} // namespace chromalog
