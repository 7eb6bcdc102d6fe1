#include "print/list_printing.h"

#include "base/translated.h"
#include "print/page_layout.h"
#include "print/print_option_controller.h"

#include <memory>

namespace chromalog {
namespace {

SwatchPrintSetting settingOf(const PrintOptions& options, ColorServicesProc services,
                             const Desktop& desktop) {
    return {options, services, printDate(desktop.localTime()), desktop.userName()};
}

/// The printable area must take a swatch, both as it stands and scaled.
bool fits(const PrintInfo& info, std::int16_t printSize) {
    return swatchGrid(info.printable(), printSize).fits() && swatchGrid(info.page(), printSize).fits();
}

PrintPages layOutList(const CSwatchList& list, const SwatchPrintSetting& setting, const PrintInfo& info) {
    if (!fits(info, setting.options.printSize)) return {};
    const auto pages = std::make_shared<const std::vector<PrintPage>>(
        swatchPages(list.shownRecords(), info.page(), setting));
    const auto paint = [&list, pages](int index, Canvas& canvas) {
        // An empty list draws nothing, not even its page's footer: kept.
        if (list.getNumberOfColors() > 0) paintPage((*pages)[static_cast<std::size_t>(index)], canvas);
    };
    return {static_cast<int>(pages->size()), info.page(), paint};
}

} // namespace

void printSwatchList(const CSwatchList& list, PrintOptions& options, ColorServicesProc services,
                     Desktop& desktop) {
    {
        PrintOptionController dialog(options, desktop);
        dialog.showVarianteWindow();
        if (dialog.cancelled()) return;
    }
    bool tooSmall = !fits(desktop.sharedPrintInfo(), options.printSize);
    const auto layOut = [&](const PrintInfo& info) {
        PrintPages pages = layOutList(list, settingOf(options, services, desktop), info);
        tooSmall = pages.sheets == 0;
        return pages;
    };
    const std::string title = list.getSwatchName().empty() ? "Swatches" : list.getSwatchName();
    if (!tooSmall) desktop.runPrintOperation({title, layOut});
    if (tooSmall)
        desktop.runAlert({translated("The paper is too small for these swatches. "), "", translated("ok")});
}

} // namespace chromalog
