#include "prefs/kept_copies.h"

#include "base/file_name.h"
#include "files/real_file.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

bool isCopyName(const std::string& name) {
    return name == kBeforeCopy || name == kSkippedCopy || dateOfCopy(name);
}

} // namespace

std::string datedCopyName(std::time_t when) {
    std::tm utc{};
    ::gmtime_r(&when, &utc);
    char date[40];
    std::strftime(date, sizeof date, "kept-%Y%m%dT%H%M%SZ", &utc);
    return date;
}

std::optional<std::time_t> dateOfCopy(const std::string& name) {
    std::tm utc{};
    if (std::sscanf(name.c_str(), "kept-%4d%2d%2dT%2d%2d%2dZ", &utc.tm_year, &utc.tm_mon, &utc.tm_mday,
                    &utc.tm_hour, &utc.tm_min, &utc.tm_sec) != 6)
        return std::nullopt;
    utc.tm_year -= 1900;
    utc.tm_mon -= 1;
    const std::time_t when = ::timegm(&utc);
    const std::string beginning = datedCopyName(when);
    if (!name.starts_with(beginning)) return std::nullopt;
    const std::string rest = name.substr(beginning.size());
    const bool numbered =
        rest.size() > 1 && rest[0] == '-' && rest.find_first_not_of("0123456789", 1) == std::string::npos;
    return rest.empty() || numbered ? std::optional(when) : std::nullopt;
}

std::vector<std::string> copyNames(const std::string& preferences) {
    const std::string own = std::string(fileNameOf(preferences)) + '.';
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folderOf(preferences).c_str()), &::closedir);
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        const std::string_view file = entry->d_name;
        if (!file.starts_with(own)) continue;
        const std::string name(file.substr(own.size()));
        struct stat status;
        const bool regular =
            ::stat((preferences + '.' + name).c_str(), &status) == 0 && S_ISREG(status.st_mode);
        if (regular && isCopyName(name)) names.push_back(name);
    }
    return names;
}

std::vector<KeptCopy> keptCopies(const std::string& preferences) {
    std::vector<KeptCopy> copies;
    for (const std::string& name : copyNames(preferences)) {
        const std::string path = preferences + '.' + name;
        copies.push_back({name, path, readSummary(path)});
    }
    const auto order = [](const KeptCopy& copy) {
        return std::pair(copy.lists ? -copy.lists->written : 0, copy.name);
    };
    std::ranges::sort(copies, {}, order);
    return copies;
}

} // namespace chromalog
