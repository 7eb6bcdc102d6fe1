#include "prefs/preferences_store.h"

#include "files/replace_file.h"
#include "files/temporary_file.h"

#include <cerrno>
#include <map>

#include <sys/stat.h>

namespace chromalog {
namespace {

/// The files that this process read or wrote last, by path. They outlive a pick; where a host unloads the
/// plug-in in between, they are forgotten, and at most one copy more is kept.
std::map<std::string, FileIdentity>& ourFiles() {
    static std::map<std::string, FileIdentity> files;
    return files;
}

bool isOurs(const std::string& path, const FileIdentity& file) {
    const auto known = ourFiles().find(path);
    return known != ourFiles().end() && known->second == file;
}

std::string besideReal(const std::string& path, const char* what) {
    return realFile(path).value_or(path) + what;
}

} // namespace

PreferencesStore::PreferencesStore(std::string path)
    : path_(std::move(path)), mark_(besideReal(path_, ".open")), copies_(path_), atStart_(identityOf(path_)) {
}

std::optional<std::size_t> PreferencesStore::read(std::span<std::uint8_t> zeros, std::vector<Extent>* held) {
    FileIdentity file;
    const auto length = readFileInto(path_, zeros, &file, held);
    if (length) ourFiles()[path_] = file;
    return length;
}

/// A later pick replaces PATH.before: that alone would not keep lists that this process wrote.
void PreferencesStore::skip() {
    skipped_ = true;
    ourFiles().erase(path_);
}

StoreOutcome PreferencesStore::write(std::span<const std::uint8_t> data, std::size_t zeros, Flush flush) {
    const auto real = realFile(path_);
    if (!real) return {errno};
    const WriteLock lock(*real + ".lock");
    if (lock.refused()) return {EWOULDBLOCK};
    removeStaleTemporaries(folderOf(*real));
    struct stat there;
    const bool exists = ::stat(real->c_str(), &there) == 0;
    if (exists ? !mayBeReplaced(*real, there) : errno != ENOENT) return {errno};
    StoreOutcome outcome;
    if (exists) {
        const FileIdentity file = identityOf(there);
        if (!isOurs(path_, file)) {
            if (!keepStranger(*real)) return {errno, true};
            outcome.kept = copies_.latest();
        }
        if (file == atStart_) copies_.keepBefore(*real); // not so after the first write
    }
    FileIdentity written;
    const auto mode = exists ? std::optional(there.st_mode) : std::nullopt;
    if (!replaceFile(*real, data, zeros, flush, mode, &written)) return {errno};
    if (flush == Flush::toDisk) flushFolder(folderOf(*real));
    copies_.prune();
    ourFiles()[path_] = written;
    skipped_ = false;
    return outcome;
}

bool PreferencesStore::keepStranger(const std::string& real) {
    return skipped_ ? copies_.keepSkipped(real) : copies_.keepDated(real);
}

} // namespace chromalog
