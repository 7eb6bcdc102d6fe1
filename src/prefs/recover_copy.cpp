#include "prefs/recover_copy.h"

#include "base/file_name.h"
#include "files/real_file.h"
#include "files/replace_file.h"
#include "files/temporary_file.h"
#include "files/write_lock.h"
#include "prefs/copy_keeper.h"
#include "prefs/kept_copies.h"

#include <algorithm>
#include <cerrno>

namespace chromalog {
namespace {

std::string withoutFile(std::string name, const std::string& preferences) {
    const std::string_view own = fileNameOf(preferences);
    if (name.starts_with(own)) name.erase(0, own.size());
    if (name.starts_with('.')) name.erase(0, 1);
    return name;
}

Recovery failed(const std::string& what) {
    return {what + ": " + reasonOf(errno)};
}

} // namespace

Recovery recoverCopy(const std::string& preferences, const std::string& name) {
    const std::string own = withoutFile(name, preferences);
    const auto copies = keptCopies(preferences);
    const auto copy = std::ranges::find(copies, own, &KeptCopy::name);
    if (copy == copies.end()) return {"no copy is named '" + name + "'"};
    const auto real = realFile(preferences);
    if (!real) return failed(preferences);
    const OpenMark mark(*real + ".open");
    if (mark.others()) return {"a pick is open on these lists: close it first"};
    const WriteLock lock(*real + ".lock");
    if (lock.refused()) return {"another program is writing these lists"};
    removeStaleTemporaries(folderOf(*real));
    CopyKeeper keeper(preferences);
    const bool exists = identityOf(*real).has_value();
    if (!exists && errno != ENOENT) return failed(preferences);
    if (exists && !keeper.keepDated(*real)) return failed("the present lists cannot be kept");
    if (!copyFile(copy->path, *real, Flush::toDisk)) return failed(preferences);
    flushFolder(folderOf(*real));
    keeper.prune();
    return {{}, keeper.latest()};
}

} // namespace chromalog
