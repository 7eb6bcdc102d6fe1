#include "qt/settings_file.h"

#include "files/file_io.h"
#include "prefs/preferences_file.h"

#include <QJsonDocument>

namespace chromalog {

namespace {
constexpr const char* kName = "Chromalog-settings.json";
constexpr std::size_t kLongest = 1 << 16; ///< bytes that are read
} // namespace

std::string settingsPath(const std::string& applicationsDirectory) {
    const std::string lists = applicationDataDirectory(applicationsDirectory);
    return lists.empty() ? lists : lists.substr(0, lists.rfind('/') + 1) + kName;
}

QJsonObject readSettings(const std::string& path) {
    const auto file = readDataFromFileAtURL(path, kLongest);
    if (!file) return {};
    const QByteArray text(reinterpret_cast<const char*>(file->data()), qsizetype(file->size()));
    return QJsonDocument::fromJson(text).object();
}

bool changeSettings(const std::string& path, const QJsonObject& values) {
    const QJsonObject before = readSettings(path);
    QJsonObject all = before;
    for (auto value = values.begin(); value != values.end(); ++value)
        all[value.key()] = value.value();
    if (all == before) return true;
    const QByteArray text = QJsonDocument(all).toJson();
    return writeDataToFileAtURL(
        path, {reinterpret_cast<const std::uint8_t*>(text.data()), std::size_t(text.size())});
}

} // namespace chromalog
