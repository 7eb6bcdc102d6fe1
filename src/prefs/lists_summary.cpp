#include "prefs/lists_summary.h"

#include "base/translated.h"
#include "files/descriptor.h"
#include "prefs/preferences_layout.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <fcntl.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

constexpr int kMostColours = 5000;
constexpr std::size_t kFrom = kFileCounts[0], kTo = kFileNames[1] + kFileNameSize;

/// The counts and the names, as they stand one after the other in the file.
struct Told {
    std::array<std::uint8_t, kTo - kFrom> bytes{};
    std::size_t length = 0; ///< as much of them as the file has
    std::int64_t fileSize = 0;
    std::time_t written = 0;

    std::uint8_t at(std::size_t offset) const { return bytes[offset - kFrom]; }
};

std::optional<Told> readTold(const std::string& file) {
    const Descriptor open(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!open.isOpen() || ::fstat(open.get(), &status) != 0) return std::nullopt;
    Told told;
    told.fileSize = status.st_size;
    told.written = status.st_mtime;
    while (told.length < told.bytes.size()) {
        const ssize_t got = ::pread(open.get(), told.bytes.data() + told.length,
                                    told.bytes.size() - told.length, static_cast<off_t>(kFrom + told.length));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        told.length += static_cast<std::size_t>(got);
    }
    return told;
}

int countIn(const Told& told, int list) {
    const unsigned bits = told.at(kFileCounts[list]) | told.at(kFileCounts[list] + 1) << 8;
    return std::clamp<int>(static_cast<std::int16_t>(bits), 0, kMostColours);
}

std::string nameIn(const Told& told, int list) {
    std::string name;
    for (std::size_t i = 1; i <= told.at(kFileNames[list]); ++i) {
        const std::uint8_t c = told.at(kFileNames[list] + i);
        if (c == 0) break;
        name += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : '?';
    }
    return name;
}

} // namespace

std::optional<ListsSummary> readSummary(const std::string& file) {
    const auto told = readTold(file);
    if (!told) return std::nullopt;
    errno = 0;
    if (told->length < told->bytes.size()) return std::nullopt;
    ListsSummary summary;
    for (const int list : {0, 1})
        summary.lists[list] = {countIn(*told, list), nameIn(*told, list)};
    summary.written = told->written;
    return summary;
}

std::string describe(const ListsSummary& summary) {
    std::tm local{};
    ::localtime_r(&summary.written, &local);
    char date[40];
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M", &local);
    std::string text = date;
    for (const int list : {0, 1}) {
        const auto& [count, name] = summary.lists[list];
        text += ", " + translated("list %1", list + 1) + ": ";
        text += count == 0 ? translated("empty")
                           : translatedCount(static_cast<std::size_t>(count), "%1 color", "%1 colors");
        if (!name.empty()) text += " (" + name + ")";
    }
    return text;
}

bool mayHoldColours(const std::string& file) {
    const auto told = readTold(file);
    if (!told) return true;
    constexpr std::size_t kCountBytes = 4;
    if (told->length < kCountBytes) return told->fileSize > 0; // it ends inside the lists
    return std::any_of(told->bytes.begin(), told->bytes.begin() + kCountBytes, [](int b) { return b != 0; });
}

} // namespace chromalog
