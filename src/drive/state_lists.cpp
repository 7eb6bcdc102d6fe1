#include "drive/state_lists.h"

#include "drive/json_values.h"
#include "qt/driven_dialog.h"

#include <QJsonObject>

namespace chromalog::drive {
namespace {

QJsonObject recordState(const DrivenSwatch& swatch) {
    return {{"length", swatch.nameLength},
            {"name", hex(swatch.name)},
            {"SRed", qint64(swatch.red)},
            {"SGreen", qint64(swatch.green)},
            {"SBlue", qint64(swatch.blue)}};
}

QJsonArray recordsState(const DrivenList& list) {
    QJsonArray records;
    for (const DrivenSwatch& swatch : list.records)
        records.append(recordState(swatch));
    return records;
}

QJsonArray rowsState(const DrivenList& list) {
    QJsonArray rows;
    for (const int row : list.selectedRows)
        rows.append(row);
    return rows;
}

QJsonArray hitsState(const DrivenList& list) {
    QJsonArray hits;
    for (const DrivenHit& hit : list.hits)
        hits.append(QJsonObject{{"position", qint64(hit.position)}, {"scrollValue", hit.scrollValue}});
    return hits;
}

QJsonObject listState(const DrivenList& list) {
    return {{"viewCount", list.viewCount},         {"storedCount", list.storedCount},
            {"selected", list.selected},           {"start", list.start},
            {"viewName", json(list.viewName)},     {"storedName", hex(list.storedName)},
            {"scroller", list.scroller},           {"scrollY", list.scrollY},
            {"contentHeight", list.contentHeight}, {"hits", hitsState(list)},
            {"lastShown", qint64(list.lastShown)}, {"sens", list.direction},
            {"selectedRows", rowsState(list)},     {"records", recordsState(list)}};
}

} // namespace

QJsonArray listsState(const std::vector<DrivenList>& lists) {
    QJsonArray states;
    for (const DrivenList& list : lists)
        states.append(listState(list));
    return states;
}

} // namespace chromalog::drive
