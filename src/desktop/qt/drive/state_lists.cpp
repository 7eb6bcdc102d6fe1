#include "desktop/qt/drive/state_lists.h"

#include "desktop/qt/drive/json_values.h"
#include "host/chromalog_controler.h"

#include <QJsonObject>

namespace chromalog::drive {
namespace {

/// The characters after a length byte, as far as the field reaches.
QJsonValue charactersOf(const std::uint8_t (&pascal)[256]) {
    return hex(std::span(pascal).subspan(1, pascal[0]));
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

QJsonObject listState(ChromalogControler& controler, int number) {
    const GlobalRecord& data = controler.record();
    const CSwatchList& list = controler.list(number);
    return {{"viewCount", list.getNumberOfColors()},
            {"storedCount", number == 1 ? data.numColors1 : data.numColors2},
            {"selected", list.getSelected()},
            {"start", list.getStartColor()},
            {"viewName", json(list.getSwatchName())},
            {"storedName", charactersOf(number == 1 ? data.swatchName1 : data.swatchName2)},
            {"scroller", controler.listScroller(number).verticalScroller()},
            {"scrollY", scrolledBy(list)},
            {"contentHeight", list.frame().h},
            {"hits", hitsState(list)},
            {"lastShown", qint64(list.lastShown())},
            {"sens", list.direction()},
            {"records", recordsState(list)}};
}

} // namespace

QJsonArray listsState(ChromalogControler& controler) {
    return {listState(controler, 1), listState(controler, 2)};
}

} // namespace chromalog::drive
