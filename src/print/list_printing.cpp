#include "print/list_printing.h"

#include "desktop/on_paper.h"
#include "host/globals.h"
#include "print/page_layout.h"

#include <algorithm>
#include <memory>

namespace chromalog {
namespace {

void runPrintOptions(PrintDesk& desk) {
    PrintOptionController(desk).showVarianteWindow();
    gPrintOptionController = nullptr;
}

SwatchPrintSetting settingOf(PrintDesk& desk) {
    SwatchPrintSetting setting;
    setting.options.printSize = desk.getMyPrintSize();
    setting.options.printName = desk.isNameToPrint();
    setting.options.printRGB = desk.isRGBToPrint();
    setting.options.printCMYK = desk.isCMYKToPrint();
    setting.services = desk.colorServices();
    setting.date = printDate(desk.desktop().localTime());
    setting.userName = desk.desktop().userName();
    return setting;
}

/// The printable area must take a swatch, both as it stands (the view is given whole pages of it) and scaled.
bool fits(const PrintInfo& info, std::int16_t printSize) {
    return swatchGrid(info.printable(), printSize).fits() && swatchGrid(info.page(), printSize).fits();
}

PrintPages layOutList(CSwatchList& list, PrintDesk& desk, const PrintInfo& info) {
    if (!fits(info, desk.getMyPrintSize())) return {};
    const auto swatches =
        list.records().first(std::min<std::size_t>(list.records().size(), list.shownRows()));
    const auto pages =
        std::make_shared<const std::vector<PrintPage>>(swatchPages(swatches, info.page(), settingOf(desk)));
    const Size area = info.printable();
    const SwatchGrid grid = swatchGrid(area, desk.getMyPrintSize());
    const Rect frame{list.frame().x, list.frame().y, area.w, grid.pages(list.shownRows()) * area.h};
    const Rect bounds{list.bounds().x, list.bounds().y, info.page().w, frame.h};
    const auto paint = [&list, pages, frame, bounds](int index, Canvas& canvas) {
        const OnPaper paper(list, frame, bounds);
        list.onPaper = [&](Canvas& sheet) { paintPage((*pages)[static_cast<std::size_t>(index)], sheet); };
        list.drawRect(canvas);
        list.onPaper = nullptr;
    };
    return {static_cast<int>(pages->size()), info.page(), paint};
}

} // namespace

void printSwatchList(CSwatchList& list, PrintDesk& desk) {
    runPrintOptions(desk);
    Desktop& desktop = desk.desktop();
    bool tooSmall = !fits(desktop.sharedPrintInfo(), desk.getMyPrintSize());
    const auto layOut = [&](const PrintInfo& info) {
        PrintPages pages = layOutList(list, desk, info);
        tooSmall = pages.sheets == 0;
        return pages;
    };
    const std::string title = list.getSwatchName().empty() ? "Swatches" : list.getSwatchName();
    if (!tooSmall) desktop.runPrintOperation({title, layOut});
    if (tooSmall) desktop.runAlert({"The paper is too small for these swatches. ", "", "ok"});
}

} // namespace chromalog
