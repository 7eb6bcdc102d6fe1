#include "prefs/copy_keeper.h"

#include "files/real_file.h"
#include "files/replace_file.h"
#include "files/temporary_file.h"
#include "prefs/kept_copies.h"

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr std::time_t kDay = 24 * 60 * 60;

bool exists(const std::string& path) {
    struct stat status;
    return ::lstat(path.c_str(), &status) == 0;
}

bool isFile(const std::string& path) {
    struct stat status;
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool sameFile(const std::string& a, const std::string& b) {
    const auto one = identityOf(a), other = identityOf(b);
    return one && other && one->sameFile(*other);
}

/// Ordered by which of them goes first.
struct DatedCopy {
    bool holdsColours;
    std::time_t made;
    std::string path;
    auto operator<=>(const DatedCopy&) const = default;
};

std::vector<DatedCopy> datedCopies(const std::string& preferences) {
    std::vector<DatedCopy> copies;
    for (const std::string& name : copyNames(preferences)) {
        const std::string path = preferences + '.' + name;
        if (const auto made = dateOfCopy(name)) copies.push_back({mayHoldColours(path), *made, path});
    }
    return copies;
}

/// Whether a file may take the place of a copy.
bool mayReplace(const std::string& real, const std::string& copy) {
    return !exists(copy) || mayHoldColours(real) || !mayHoldColours(copy);
}

} // namespace

bool CopyKeeper::keepBefore(const std::string& real) {
    if (sameFile(real, pathOf(kBeforeCopy)) || !mayReplace(real, pathOf(kBeforeCopy))) return true;
    return keepAs(real, kBeforeCopy, Flush::later);
}

bool CopyKeeper::keepSkipped(const std::string& real) {
    const std::string skipped = pathOf(kSkippedCopy);
    if (sameFile(real, skipped) || !mayReplace(real, skipped)) return true;
    if (isFile(skipped) && mayHoldColours(skipped)) {
        const std::string name = freshName();
        if (::rename(skipped.c_str(), pathOf(name).c_str()) != 0) return false;
        toMakeRoom_ = name;
    }
    if (!keepAs(real, kSkippedCopy, Flush::toDisk)) return false;
    latest_ = kSkippedCopy;
    return true;
}

bool CopyKeeper::keepDated(const std::string& real) {
    if (isKept(real)) return true;
    const std::string name = dated_.empty() ? freshName() : dated_;
    if (!mayReplace(real, pathOf(name))) return true;
    if (!keepAs(real, name, Flush::toDisk)) return false;
    dated_ = latest_ = toMakeRoom_ = name;
    return true;
}

/// A name that is in the way (a folder) is left alone, and the copy fails.
bool CopyKeeper::keepAs(const std::string& real, const std::string& name, Flush flush) {
    const std::string copy = pathOf(name), temporary = temporaryName(copy);
    if (::link(real.c_str(), temporary.c_str()) == 0) {
        const bool placed = ::rename(temporary.c_str(), copy.c_str()) == 0;
        const int why = errno;
        if (!placed) ::unlink(temporary.c_str());
        errno = why;
        return placed;
    }
    if (!copyFile(real, copy, flush)) return false;
    if (flush == Flush::toDisk) flushFolder(folderOf(copy));
    return true;
}

/// A killed pick may have kept the file and not replaced it. PREFERENCES.before does not count: it goes with
/// the next pick.
bool CopyKeeper::isKept(const std::string& real) const {
    return std::ranges::any_of(copyNames(preferences_), [&](const std::string& name) {
        return name != kBeforeCopy && sameFile(real, pathOf(name));
    });
}

std::string CopyKeeper::freshName() const {
    const std::string first = datedCopyName(std::time(nullptr));
    std::string name = first;
    for (int i = 2; exists(pathOf(name)); ++i)
        name = first + '-' + std::to_string(i);
    return name;
}

void CopyKeeper::prune() {
    const std::string made = std::exchange(toMakeRoom_, {});
    if (made.empty()) return;
    const bool forColours = mayHoldColours(pathOf(made));
    std::vector<DatedCopy> copies = datedCopies(preferences_);
    std::ranges::sort(copies);
    std::size_t left = copies.size();
    for (const DatedCopy& copy : copies) {
        if (left <= kMostDatedCopies) return;
        const bool old = copy.made + kDay < std::time(nullptr);
        if (old && (forColours || !copy.holdsColours) && ::unlink(copy.path.c_str()) == 0) --left;
    }
}

} // namespace chromalog
