#include "print/chart_printing.h"

#include "desktop/on_paper.h"

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

void printToneOrDegrade(chartView& gradient, chartView& tone, int toneOrDegrade, Desktop& desktop) {
    chartView& chosen = toneOrDegrade == 1 ? tone : gradient;
    const auto layOut = [&](const PrintInfo& info) -> PrintPages {
        const Size area = info.printable(), page = info.page();
        if (area.w <= 0 || area.h <= 0) return {};
        const auto paint = [&, area, page](int, Canvas& canvas) {
            const ChartsPrinting flags(gradient, tone);
            const OnPaper paper(chosen, {chosen.frame().x, chosen.frame().y, area.w, area.h},
                                {0, 0, page.w, page.h});
            chosen.drawRect(canvas);
        };
        return {1, page, paint};
    };
    desktop.runPrintOperation({toneOrDegrade == 1 ? "Tone chart" : "Gradient", layOut});
}

} // namespace chromalog
