#include "drive/state.h"

#include "drive/command_error.h"
#include "drive/json_values.h"
#include "drive/state_lists.h"
#include "drive/state_outlets.h"
#include "files/size_limit_signal.h"
#include "qt/driven_dialog.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace chromalog::drive {
namespace {

void addAll(QJsonObject& state, const QJsonObject& more) {
    for (auto each = more.begin(); each != more.end(); ++each)
        state[each.key()] = each.value();
}

QJsonObject coloursState(const DrivenColours& colours) {
    return {{"firstColor", json(colours.first)}, {"secondColor", json(colours.second)},
            {"luminosity", colours.luminosity},  {"alpha1", colours.alpha1},
            {"alpha2", colours.alpha2},          {"harmonyMode", colours.harmonyMode}};
}

QJsonObject wheelState(const DrivenWheel& wheel) {
    return {{"size", json(wheel.size)},
            {"selectedPoint", json(wheel.selected)},
            {"oppositePoint", json(wheel.opposite)},
            {"balance1", json(wheel.balance1)},
            {"balance2", json(wheel.balance2)},
            {"equi1", json(wheel.equi1)},
            {"equi2", json(wheel.equi2)},
            {"quadri1", json(wheel.quadri1)},
            {"quadri2", json(wheel.quadri2)}};
}

QJsonObject chartState(const DrivenChart& chart) {
    return {{"selectedColor", json(chart.selected)}, {"isPrinting", chart.printing ? 1 : 0}};
}

QJsonObject gradientState(const DrivenChart& gradient, const DrivenCorners& corners) {
    QJsonObject state = chartState(gradient);
    addAll(state, {{"UL", json(corners.UL)},
                   {"UR", json(corners.UR)},
                   {"LL", json(corners.LL)},
                   {"LR", json(corners.LR)}});
    return state;
}

QJsonObject historyState(const DrivenHistory& history) {
    QJsonObject state{{"useSecondColor", history.useSecondColor},
                      {"undoLimit", history.undoLimit},
                      {"undoCount", history.undoSteps},
                      {"maxUndoSteps", history.undoStepsAtMost}};
    if (history.keepsSteps)
        addAll(state,
               {{"undoNames", jsonArray(history.undoNames)}, {"redoNames", jsonArray(history.redoNames)}});
    return state;
}

QJsonObject printState(const DrivenPrint& print) {
    const PrintInfo& info = print.info;
    return {{"printSize", print.size},
            {"printName", print.name},
            {"printRGB", print.rgb},
            {"printCMYK", print.cmyk},
            {"printInfo", QJsonObject{{"paper", json(info.paper)},
                                      {"margins", QJsonArray{info.left, info.right, info.top, info.bottom}},
                                      {"scale", info.scale}}}};
}

QJsonArray typesOf(const DrivenPasteboard& board) {
    QJsonArray types;
    if (board.colourType) types.append("color");
    if (board.textType) types.append("string");
    return types;
}

QJsonObject pasteboardState(const DrivenPasteboard& board) {
    QJsonObject state{{"types", typesOf(board)}};
    if (board.colour) state["color"] = json(*board.colour);
    if (board.text) state["string"] = json(*board.text);
    return state;
}

QJsonObject dragState(const DrivenDrag& drag) {
    return {{"types", typesOf(drag.pasteboard)},
            {"imageSize", json(drag.imageSize)},
            {"result", drag.taken ? "copy" : "none"}};
}

QJsonObject panelState(const DrivenPanel& panel) {
    return {{"kind", json(panel.kind)},
            {"types", jsonArray(panel.types)},
            {"parent", json(panel.parent)},
            {"multiple", false}};
}

QJsonObject alertState(const DrivenAlert& alert) {
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
QJsonArray logState(const std::vector<std::string>& log) {
    QJsonArray lines;
    for (const std::string& line : log)
        if (!line.starts_with("DrawSwatches")) lines.append(json(line));
    return lines;
}

QJsonObject desktopState(const DrivenState& driven) {
    QJsonObject state{{"pasteboard", pasteboardState(driven.pasteboard)},
                      {"panels", eachOf(driven.panels, panelState)},
                      {"alerts", eachOf(driven.alerts, alertState)},
                      {"sounds", jsonArray(driven.sounds)},
                      {"log", logState(driven.log)},
                      {"status", json(driven.status)}};
    if (driven.lastDrag) state["lastDrag"] = dragState(*driven.lastDrag);
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

QJsonObject hostState(const DrivenHost& host, const StandaloneSuite* suite) {
    QJsonArray components;
    for (const int component : host.components)
        components.append(component);
    QJsonObject state{{"record", QJsonObject{{"sourceSpace", host.sourceSpace},
                                             {"resultSpace", host.resultSpace},
                                             {"colorComponents", components}}}};
    if (suite) addAll(state, {{"misuse", misuseState(*suite)}, {"calls", callsState(*suite)}});
    return state;
}

} // namespace

QJsonObject dialogState(const DrivenDialog& dialog, const StandaloneSuite* standalone) {
    const DrivenState driven = dialog.state();
    QJsonObject state{{"outlets", outletsState()},
                      {"wheel", wheelState(driven.wheel)},
                      {"gradient", gradientState(driven.gradient, driven.corners)},
                      {"tone", chartState(driven.tone)},
                      {"lists", listsState(driven.lists)},
                      {"host", hostState(driven.host, standalone)}};
    addAll(state, coloursState(driven.colours));
    addAll(state, historyState(driven.history));
    addAll(state, printState(driven.print));
    addAll(state, desktopState(driven));
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
