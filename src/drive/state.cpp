#include "drive/state.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "drive/command_error.h"
#include "drive/json_values.h"
#include "drive/state_lists.h"
#include "drive/state_outlets.h"
#include "files/size_limit_signal.h"
#include "qt/convert.h"
#include "qt/qt_desktop.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace chromalog::drive {
namespace {

void addAll(QJsonObject& state, const QJsonObject& more) {
    for (auto each = more.begin(); each != more.end(); ++each)
        state[each.key()] = each.value();
}

QJsonObject coloursState(ChromalogControler& controler) {
    const WorkingColours& colours = controler.colours();
    return {{"firstColor", json(colours.getFirstColor())},
            {"secondColor", json(colours.getSecondColor())},
            {"luminosity", colours.getLuminosity()},
            {"alpha1", colours.getAlpha()},
            {"alpha2", colours.lastAlpha()},
            {"harmonyMode", colours.getHarmonyMode()}};
}

QJsonObject wheelState(const chromaticCircleView& wheel) {
    const HarmonyPoints& points = wheel.harmony();
    return {{"size", json(Size{wheel.bounds().w, wheel.bounds().h})},
            {"selectedPoint", json(wheel.selectedPoint())},
            {"oppositePoint", json(points.opposite)},
            {"balance1", json(points.balance1)},
            {"balance2", json(points.balance2)},
            {"equi1", json(points.equi1)},
            {"equi2", json(points.equi2)},
            {"quadri1", json(points.quadri1)},
            {"quadri2", json(points.quadri2)}};
}

QJsonObject chartState(const chartView& chart) {
    return {{"selectedColor", json(chart.selectedColor())}, {"isPrinting", chart.isPrinting() ? 1 : 0}};
}

QJsonObject gradientState(const degradeView& gradient) {
    QJsonObject state = chartState(gradient);
    const GradientCorners& corners = gradient.corners();
    addAll(state, {{"UL", json(corners.UL)},
                   {"UR", json(corners.UR)},
                   {"LL", json(corners.LL)},
                   {"LR", json(corners.LR)}});
    return state;
}

QJsonObject historyState(ChromalogControler& controler) {
    const GlobalRecord& data = controler.record();
    const ProtocolControler& history = controler.history();
    QJsonObject state{{"useSecondColor", data.useSecondColor},
                      {"undoLimit", data.undoLimit},
                      {"undoCount", history.undoSteps()},
                      {"maxUndoSteps", history.undoStepsAtMost()}};
    if (const SnapshotStack* manager = history.manager())
        addAll(state, {{"undoNames", jsonArray(manager->undoNames())},
                       {"redoNames", jsonArray(manager->redoNames())}});
    return state;
}

QJsonObject printState(QtDesktop& desktop, const PrintOptions& options) {
    const PrintInfo& info = desktop.sharedPrintInfo();
    return {{"printSize", options.printSize},
            {"printName", options.printName},
            {"printRGB", options.printRGB},
            {"printCMYK", options.printCMYK},
            {"printInfo", QJsonObject{{"paper", json(info.paper)},
                                      {"margins", QJsonArray{info.left, info.right, info.top, info.bottom}},
                                      {"scale", info.scale}}}};
}

QJsonArray typesOf(const Pasteboard& board) {
    QJsonArray types;
    if (board.colourType) types.append("color");
    if (board.textType) types.append("string");
    return types;
}

QJsonObject pasteboardState(const Pasteboard& board) {
    QJsonObject state{{"types", typesOf(board)}};
    if (board.colour) state["color"] = json(*board.colour);
    if (board.text) state["string"] = json(*board.text);
    return state;
}

QJsonObject dragState(const DragRecord& drag) {
    return {{"types", typesOf(drag.request.pasteboard)},
            {"imageSize", json(drag.request.image.size)},
            {"result", drag.result == Qt::IgnoreAction ? "none" : "copy"}};
}

QJsonObject panelState(const PanelRecord& panel) {
    return {{"kind", json(panel.kind)},
            {"types", jsonArray(panel.types)},
            {"parent", json(panel.parent)},
            {"multiple", false}};
}

QJsonObject alertState(const Alert& alert) {
    return {{"message", json(alert.message)},
            {"informative", json(alert.informative)},
            {"buttons", QJsonArray{json(alert.button)}}};
}

template <typename Records, typename State> QJsonArray eachOf(const Records& records, State stateOf) {
    QJsonArray array;
    for (const auto& record : records)
        array.append(stateOf(record));
    return array;
}

/// The list view logs every draw; those lines would drown the others.
QJsonArray logState(const LogRing& ring) {
    QJsonArray lines;
    for (const std::string& line : ring.lines())
        if (!line.starts_with("DrawSwatches")) lines.append(json(line));
    return lines;
}

QJsonObject desktopState(QtDesktop& desktop) {
    QJsonObject state{{"pasteboard", pasteboardState(desktop.generalPasteboard())},
                      {"panels", eachOf(desktop.panels().records(), panelState)},
                      {"alerts", eachOf(desktop.alerts(), alertState)},
                      {"sounds", jsonArray(desktop.sounds())},
                      {"log", logState(desktop.logRing())},
                      {"status", json(desktop.statusLine().text())}};
    if (desktop.drags().last) state["lastDrag"] = dragState(*desktop.drags().last);
    return state;
}

QJsonArray misuseState(const StandaloneSuite& suite) {
    QJsonArray misuse;
    for (std::int32_t i = 0; i < suite.misuseCount(); ++i)
        misuse.append(QString::fromUtf8(suite.misuse(i)));
    return misuse;
}

QJsonObject callsState(const StandaloneSuite& suite) {
    QJsonObject calls;
    for (const char* name : {"newProc", "lockProc", "unlockProc", "getPropertyProc", "colorServices"})
        calls[name] = suite.callCount(name);
    return calls;
}

QJsonObject hostState(ChromalogControler& controler, const StandaloneSuite* suite) {
    const PickParms& parms = controler.record().pickerRecord->pickParms;
    QJsonArray components;
    for (const std::uint16_t component : parms.colorComponents)
        components.append(component);
    QJsonObject state{{"record", QJsonObject{{"sourceSpace", parms.sourceSpace},
                                             {"resultSpace", parms.resultSpace},
                                             {"colorComponents", components}}}};
    if (suite) addAll(state, {{"misuse", misuseState(*suite)}, {"calls", callsState(*suite)}});
    return state;
}

} // namespace

QJsonObject dialogState(QtDesktop& desktop, ChromalogControler& controler,
                        const StandaloneSuite* standalone) {
    QJsonObject state{{"outlets", outletsState()},
                      {"wheel", wheelState(controler.views().wheel)},
                      {"gradient", gradientState(controler.views().gradient)},
                      {"tone", chartState(controler.views().tone)},
                      {"lists", listsState(controler)},
                      {"host", hostState(controler, standalone)}};
    addAll(state, coloursState(controler));
    addAll(state, historyState(controler));
    addAll(state, printState(desktop, controler.printOptions()));
    addAll(state, desktopState(desktop));
    return state;
}

void writeState(const QJsonObject& state, const std::string& path) {
    const SizeLimitSignalBlock onlyFails;
    QFile file(toQt(path));
    const QByteArray text = QJsonDocument(state).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        throw CommandError{path + ": " + fromQt(file.errorString())};
}

} // namespace chromalog::drive
