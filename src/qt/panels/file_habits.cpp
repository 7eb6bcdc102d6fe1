#include "qt/panels/file_habits.h"

#include "qt/convert.h"
#include "qt/settings_file.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>

#include <utility>

namespace chromalog {

namespace {

constexpr std::size_t kMostFiles = 8;
constexpr const char* kRecent = "recentFiles";
constexpr const char* kFolders = "folders";

} // namespace

void FileHabits::rememberIn(std::string settingsPath) {
    settings_ = std::move(settingsPath);
    read_ = false;
}

/// What stands in the file may be anything: only absolute paths are taken.
void FileHabits::read() {
    if (std::exchange(read_, true) || settings_.empty()) return;
    const QJsonObject settings = readSettings(settings_);
    for (const auto& each : settings[kRecent].toArray())
        if (const QString path = each.toString(); QDir::isAbsolutePath(path) && recent_.size() < kMostFiles)
            recent_.push_back(fromQt(path));
    const QJsonObject folders = settings[kFolders].toObject();
    for (auto folder = folders.begin(); folder != folders.end(); ++folder)
        if (const QString path = folder->toString(); QDir::isAbsolutePath(path))
            folders_[fromQt(folder.key())] = path;
}

void FileHabits::store() const {
    if (settings_.empty()) return;
    QJsonArray recent;
    for (const std::string& path : recent_)
        recent.append(toQt(path));
    QJsonObject folders;
    for (const auto& [kind, folder] : folders_)
        folders[toQt(kind)] = folder;
    changeSettings(settings_, {{kRecent, recent}, {kFolders, folders}});
}

std::vector<std::string> FileHabits::recent() {
    read();
    return recent_;
}

void FileHabits::loaded(const std::string& path) {
    read();
    if (!path.starts_with('/')) return;
    std::erase(recent_, path);
    recent_.insert(recent_.begin(), path);
    if (recent_.size() > kMostFiles) recent_.pop_back();
    store();
}

void FileHabits::forget(const std::string& path) {
    read();
    if (std::erase(recent_, path) > 0) store();
}

QString FileHabits::folderOf(const std::string& kind) {
    if (settings_.empty()) return {};
    read();
    const auto folder = folders_.find(kind);
    return folder != folders_.end() && QDir(folder->second).exists() ? folder->second : QString();
}

void FileHabits::usedFolder(const std::string& kind, const QString& folder) {
    if (settings_.empty()) return;
    read();
    if (std::exchange(folders_[kind], folder) != folder) store();
}

} // namespace chromalog
