#include "exchange/export_panel.h"

#include "base/translated.h"
#include "palettes/fit_palette.h"
#include "palettes/palette_loss.h"

namespace chromalog {
namespace {

/// "GIMP palette (.gpl): 2 colors rounded; the palette's name"
std::string rowOf(const PaletteFormatRules& rules, const Palette& list) {
    const auto noInk = [](const PaletteComponents&) { return Rgb(); }; // a list is RGB
    std::string row = translated(rules.label) + " (." + std::string(rules.extension) + "): ", losses;
    for (const std::string& line : lossLines(lossOf(list, fitPalette(list, rules.format, noInk)), ""))
        losses.append(losses.empty() ? "" : "; ").append(line);
    return row + (losses.empty() ? translated("keeps everything") : losses);
}

} // namespace

ExportPanel::ExportPanel(Desktop& desktop, const Palette& list, std::size_t selected) : desktop_(desktop) {
    form_ = desktop_.loadForm("ExportPanel", owner());
    if (!form_) desktop_.log("failed to load the form ExportPanel");
    exportWindow->whenClosed([this] { desktop_.stopModal(0); });
    std::vector<std::string> rows;
    for (const PaletteFormatRules& rules : paletteFormats())
        rows.push_back(rowOf(rules, list));
    exportKinds->setRows(rows);
    exportAll->setEnabled(!list.colours.empty());
    exportSelected->setEnabled(selected > 0);
    exportAll->setTitle(translated("Export all %1…", list.colours.size()));
    exportSelected->setTitle(translated("Export selected %1…", selected));
}

FormOwner ExportPanel::owner() {
    return {{{"exportWindow", &exportWindow},
             {"exportKinds", &exportKinds},
             {"exportAll", &exportAll},
             {"exportSelected", &exportSelected}},
            {{"exportAll:", [this] { choose(false); }},
             {"exportSelected:", [this] { choose(true); }},
             {"closeExport:", [this] { desktop_.stopModal(0); }}}};
}

void ExportPanel::choose(bool selectedOnly) {
    const int row = exportKinds->selectedRow();
    if (row < 0 || row >= std::ssize(paletteFormats())) return;
    chosen_ = {paletteFormats()[static_cast<std::size_t>(row)].format, selectedOnly};
    desktop_.stopModal(0);
}

std::optional<ExportChoice> ExportPanel::run() {
    if (!exportWindow.connected()) return std::nullopt;
    desktop_.runModal(*exportWindow);
    exportWindow->orderOut();
    return chosen_;
}

} // namespace chromalog
