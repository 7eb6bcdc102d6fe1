#include "qt/string_table.h"

#include "qt/convert.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace chromalog {

StringTable::StringTable(const std::string& overridingFolder) {
    const QString file = QLocale().name().section('_', 0, 0) + ".json";
    QFile table(toQt(overridingFolder) + "/strings/" + file);
    if (overridingFolder.empty() || !table.exists()) table.setFileName(":/chromalog/strings/" + file);
    if (!table.open(QIODevice::ReadOnly)) return;
    const QJsonObject texts = QJsonDocument::fromJson(table.readAll()).object();
    for (auto entry = texts.begin(); entry != texts.end(); ++entry)
        texts_[fromQt(entry.key())] = fromQt(entry.value().toString());
}

std::string StringTable::text(std::string_view key) const {
    const auto entry = texts_.find(key);
    return entry == texts_.end() || entry->second.empty() ? std::string(key) : entry->second;
}

} // namespace chromalog
