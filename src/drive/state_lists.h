#pragma once

#include <QJsonArray>

#include <vector>

namespace chromalog {
struct DrivenList;
}

namespace chromalog::drive {

/// Both swatch lists: counts, names, scrolling, hits of the last search, and the records that the views show.
QJsonArray listsState(const std::vector<DrivenList>&);

} // namespace chromalog::drive
