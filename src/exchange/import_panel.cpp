#include "exchange/import_panel.h"

#include "base/translated.h"

namespace chromalog {
namespace {

std::vector<Colour> coloursOf(const Palette& swatches) {
    std::vector<Colour> colours;
    for (const PaletteColour& colour : swatches.colours) {
        const PaletteComponents& c = colour.components;
        colours.push_back(Colour::rgb(c[0], c[1], c[2], 1));
    }
    return colours;
}

std::string lossText(const ImportSource& source, const PaletteLoss& loss, const std::string& ink) {
    std::string text;
    if (source.unread > 0) text = translated("%1 could not be read", source.unread) + "\n";
    for (const std::string& line : lossLines(loss, ink))
        text += line + "\n";
    return text.empty() ? translated("Everything is kept.") : text;
}

/// "Append 16"
std::string titleOf(std::string_view words, const ImportPlan& plan) {
    return translated(words, plan.swatches.from.size());
}

} // namespace

ImportPanel::ImportPanel(Desktop& desktop, const ImportSource& source, const std::string& into,
                         ConstListRecords rows, const CmykToRgb& convert, const std::string& ink)
    : desktop_(desktop) {
    form_ = desktop_.loadForm("ImportPanel", owner());
    if (!form_) desktop_.log("failed to load the form ImportPanel");
    importWindow->whenClosed([this] { desktop_.stopModal(0); });
    show(source, into, rows, convert, ink);
}

FormOwner ImportPanel::owner() {
    return {{{"importWindow", &importWindow},
             {"importNote", &importNote},
             {"importLoss", &importLoss},
             {"importPatches", &patches_},
             {"importReplace", &importReplace},
             {"importAppend", &importAppend},
             {"importNew", &importNew}},
            {{"importReplace:", [this] { choose(ImportWay::replace); }},
             {"importAppend:", [this] { choose(ImportWay::append); }},
             {"importNew:", [this] { choose(ImportWay::onlyNew); }},
             {"closeImport:", [this] { desktop_.stopModal(0); }}}};
}

void ImportPanel::show(const ImportSource& source, const std::string& into, ConstListRecords rows,
                       const CmykToRgb& convert, const std::string& ink) {
    const ImportPlan all = planImport(source.palette, ImportWay::replace, rows, convert);
    const ImportPlan appended = planImport(source.palette, ImportWay::append, rows, convert);
    const ImportPlan fresh = planImport(source.palette, ImportWay::onlyNew, rows, convert);
    importNote->setText(translated("%1: %2, into %3", source.name, source.description, into));
    importLoss->setText(lossText(source, all.loss, ink));
    patches_.setColours(coloursOf(all.swatches.palette));
    importReplace->setTitle(titleOf(translatable("Replace by %1"), all));
    importAppend->setTitle(titleOf(translatable("Append %1"), appended));
    importNew->setTitle(titleOf(translatable("Add new %1"), fresh));
    importReplace->setEnabled(!all.swatches.from.empty());
    importAppend->setEnabled(!appended.swatches.from.empty());
    importNew->setEnabled(!fresh.swatches.from.empty());
}

void ImportPanel::choose(ImportWay way) {
    chosen_ = way;
    desktop_.stopModal(0);
}

std::optional<ImportWay> ImportPanel::run() {
    if (!importWindow.connected()) return std::nullopt;
    desktop_.runModal(*importWindow);
    importWindow->orderOut();
    return chosen_;
}

} // namespace chromalog
