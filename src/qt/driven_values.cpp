#include "qt/driven_values.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "qt/qt_desktop.h"

namespace chromalog {
namespace {

DrivenColours coloursOf(const WorkingColours& colours) {
    return {colours.getFirstColor(), colours.getSecondColor(), colours.getLuminosity(),
            colours.getAlpha(),      colours.lastAlpha(),      colours.getHarmonyMode()};
}

DrivenWheel wheelOf(const chromaticCircleView& wheel) {
    const HarmonyPoints& points = wheel.harmony();
    return {{wheel.bounds().w, wheel.bounds().h},
            wheel.selectedPoint(),
            points.opposite,
            points.balance1,
            points.balance2,
            points.equi1,
            points.equi2,
            points.quadri1,
            points.quadri2};
}

DrivenChart chartOf(const chartView& chart) {
    return {chart.selectedColor(), chart.isPrinting()};
}

/// The characters after a length byte, as far as the field reaches.
std::vector<std::uint8_t> charactersOf(std::span<const std::uint8_t> pascal) {
    const auto characters = pascal.subspan(1, pascal[0]);
    return {characters.begin(), characters.end()};
}

/// How far the list's top has moved out of its clip.
double scrolledBy(const CSwatchList& list) {
    const auto clip = list.superviewBounds();
    return clip ? clip->y : 0;
}

DrivenList listOf(const SwatchPanel& panel, SwatchPanels& panels) {
    const CSwatchList& view = panel.view;
    DrivenList list;
    list.viewCount = view.getNumberOfColors();
    list.storedCount = panel.storedCount;
    list.selected = view.getSelected();
    list.start = view.getStartColor();
    list.viewName = view.getSwatchName();
    list.storedName = charactersOf(panel.storedName);
    list.scroller = panel.scroller->verticalScroller();
    list.scrollY = scrolledBy(view);
    list.contentHeight = view.frame().h;
    list.selectedRows = panels.rows(view).selection().rows();
    for (const FoundEntry& hit : view.hits())
        list.hits.push_back({hit.position, hit.scrollValue});
    list.lastShown = static_cast<std::int64_t>(view.lastShown());
    list.direction = view.direction();
    for (const FCOStruct& record : view.shownRecords())
        list.records.push_back(
            {charactersOf(record.Namen), record.Namen[0], record.SRed, record.SGreen, record.SBlue});
    return list;
}

DrivenHistory historyOf(ChromalogControler& controler) {
    const GlobalRecord& data = controler.record();
    const ProtocolControler& history = controler.history();
    DrivenHistory out{
        data.useSecondColor, data.undoLimit, history.undoSteps(), history.undoStepsAtMost(), false, {}, {}};
    if (const SnapshotStack* manager = history.manager()) {
        out.keepsSteps = true;
        out.undoNames = manager->undoNames();
        out.redoNames = manager->redoNames();
    }
    return out;
}

DrivenPasteboard pasteboardValues(const Pasteboard& board) {
    return {board.colourType, board.textType, board.colour, board.text};
}

DrivenHost hostOf(const PickParms& parms) {
    DrivenHost host{parms.sourceSpace, parms.resultSpace, {}};
    for (const std::uint16_t component : parms.colorComponents)
        host.components.push_back(component);
    return host;
}

} // namespace

void takeDialogState(DrivenState& state, ChromalogControler& controler) {
    const degradeView& gradient = controler.views().gradient;
    const GradientCorners& corners = gradient.corners();
    const PrintOptions& print = controler.printOptions();
    state.colours = coloursOf(controler.colours());
    state.wheel = wheelOf(controler.views().wheel);
    state.gradient = chartOf(gradient);
    state.corners = {corners.UL, corners.UR, corners.LL, corners.LR};
    state.tone = chartOf(controler.views().tone);
    SwatchPanels& panels = controler.panels();
    state.lists = {listOf(panels.one, panels), listOf(panels.two, panels)};
    state.history = historyOf(controler);
    state.print = {print.printSize, print.printName, print.printRGB, print.printCMYK, {}};
    state.host = hostOf(controler.record().pickerRecord->pickParms);
}

void takeDesktopState(DrivenState& state, QtDesktop& desktop) {
    state.print.info = desktop.sharedPrintInfo();
    state.pasteboard = pasteboardValues(desktop.generalPasteboard());
    if (const auto& drag = desktop.drags().last)
        state.lastDrag = {pasteboardValues(drag->request.pasteboard), drag->request.image.size,
                          drag->result != Qt::IgnoreAction};
    for (const PanelRecord& panel : desktop.panels().records())
        state.panels.push_back({panel.kind, panel.parent, panel.types});
    for (const Alert& alert : desktop.alerts())
        state.alerts.push_back({alert.message, alert.informative, alert.button});
    state.sounds = desktop.sounds();
    state.log.assign(desktop.logRing().lines().begin(), desktop.logRing().lines().end());
    state.status = desktop.statusLine().text();
}

} // namespace chromalog
