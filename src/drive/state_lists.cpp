#include "drive/state_lists.h"

#include "dialog/chromalog_controler.h"
#include "drive/json_values.h"

#include <QJsonObject>

namespace chromalog::drive {
namespace {

/// The characters after a length byte, as far as the field reaches.
QJsonValue charactersOf(std::span<const std::uint8_t> pascal) {
    return hex(pascal.subspan(1, pascal[0]));
}

QJsonObject recordState(const FCOStruct& record) {
    return {{"length", record.Namen[0]},
            {"name", charactersOf(record.Namen)},
            {"SRed", qint64(record.SRed)},
            {"SGreen", qint64(record.SGreen)},
            {"SBlue", qint64(record.SBlue)}};
}

QJsonArray recordsState(const CSwatchList& list) {
    QJsonArray records;
    for (const FCOStruct& record : list.shownRecords())
        records.append(recordState(record));
    return records;
}

QJsonArray hitsState(const CSwatchList& list) {
    QJsonArray hits;
    for (const FoundEntry& hit : list.hits())
        hits.append(QJsonObject{{"position", qint64(hit.position)}, {"scrollValue", hit.scrollValue}});
    return hits;
}

/// How far the list's top has moved out of its clip.
double scrolledBy(const CSwatchList& list) {
    const auto clip = list.superviewBounds();
    return clip ? clip->y : 0;
}

QJsonObject listState(const SwatchPanel& panel) {
    const CSwatchList& list = panel.view;
    return {{"viewCount", list.getNumberOfColors()},
            {"storedCount", panel.storedCount},
            {"selected", list.getSelected()},
            {"start", list.getStartColor()},
            {"viewName", json(list.getSwatchName())},
            {"storedName", charactersOf(panel.storedName)},
            {"scroller", panel.scroller->verticalScroller()},
            {"scrollY", scrolledBy(list)},
            {"contentHeight", list.frame().h},
            {"hits", hitsState(list)},
            {"lastShown", qint64(list.lastShown())},
            {"sens", list.direction()},
            {"records", recordsState(list)}};
}

} // namespace

QJsonArray listsState(ChromalogControler& controler) {
    return {listState(controler.panels().one), listState(controler.panels().two)};
}

} // namespace chromalog::drive
