#pragma once

#include <QJsonArray>

namespace chromalog {
class ChromalogControler;
}

namespace chromalog::drive {

/// Both swatch lists: counts, names, scrolling, hits of the last search, and the records that the views show.
QJsonArray listsState(ChromalogControler&);

} // namespace chromalog::drive
