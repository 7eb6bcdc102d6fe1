#include "prefs/preferences_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>

namespace chromalog {
namespace {

template <std::size_t field> constexpr bool standsAt(std::size_t offset) {
    return field - kPreferencesOffset == offset;
}
static_assert(kPreferencesZeros == 2);
static_assert(standsAt<offsetof(GlobalRecord, swatchList1)>(kFileLists[0]));
static_assert(standsAt<offsetof(GlobalRecord, swatchList2)>(kFileLists[1]));
static_assert(standsAt<offsetof(GlobalRecord, numColors1)>(kFileCounts[0]));
static_assert(standsAt<offsetof(GlobalRecord, numColors2)>(kFileCounts[1]));
static_assert(standsAt<offsetof(GlobalRecord, swatchName1)>(kFileNames[0]));
static_assert(standsAt<offsetof(GlobalRecord, swatchName2)>(kFileNames[1]));
static_assert(kPreferencesOffset >= offsetof(GlobalRecord, pickerRecord) + sizeof(void*));

/// Of memory from calloc, which the system fills with zeros only where it is touched.
struct Free {
    void operator()(std::uint8_t* bytes) const { std::free(bytes); }
};

std::span<std::uint8_t> writableImage(GlobalRecord& record) {
    return {reinterpret_cast<std::uint8_t*>(&record) + kPreferencesOffset, kPreferencesImage};
}

bool isAllZero(std::span<const std::uint8_t> bytes) {
    return bytes[0] == 0 && std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
}

/// Pages that nobody wrote stay the system's.
void clear(std::span<std::uint8_t> bytes) {
    constexpr std::size_t kPiece = 4096;
    for (std::size_t at = 0; at < bytes.size(); at += kPiece) {
        const auto piece = bytes.subspan(at, std::min(kPiece, bytes.size() - at));
        if (!isAllZero(piece)) std::ranges::fill(piece, std::uint8_t{0});
    }
}

} // namespace

std::string applicationDataDirectory(std::string_view applicationsDirectory) {
    if (applicationsDirectory.empty()) return {};
    std::string path(applicationsDirectory);
    if (path.back() != '/') path += '/';
    path += kPreferencesFolder;
    std::error_code ignored; // the write that follows fails and says so
    std::filesystem::create_directories(path, ignored);
    return path.append(kPreferencesName);
}

std::span<const std::uint8_t> preferencesImage(const GlobalRecord& record) {
    return {reinterpret_cast<const std::uint8_t*>(&record) + kPreferencesOffset, kPreferencesImage};
}

namespace {

/// Memory that is as the file has it is left alone: pages that nobody wrote yet stay the system's.
void copyWhereOther(std::span<std::uint8_t> to, std::span<const std::uint8_t> from) {
    constexpr std::size_t kPiece = 4096;
    for (std::size_t at = 0; at < from.size(); at += kPiece) {
        const std::size_t count = std::min(kPiece, from.size() - at);
        if (std::memcmp(&to[at], &from[at], count) != 0) std::memcpy(&to[at], &from[at], count);
    }
}

} // namespace

void applyPreferences(GlobalRecord& record, std::span<const std::uint8_t> file) {
    copyWhereOther(writableImage(record), file.first(std::min(file.size(), kPreferencesImage)));
}

/// Into a record that is still empty the file is read at once.
bool readPreferences(GlobalRecord& record, PreferencesStore& store) {
    const auto image = writableImage(record);
    if (isAllZero(image)) {
        if (store.read(image)) return true;
        const int why = errno;
        clear(image);
        errno = why;
        return false;
    }
    const std::unique_ptr<std::uint8_t, Free> zeros(
        static_cast<std::uint8_t*>(std::calloc(kPreferencesImage, 1)));
    if (!zeros) throw std::bad_alloc();
    std::vector<Extent> held;
    const auto length = store.read({zeros.get(), kPreferencesImage}, &held);
    if (!length) return false;
    std::size_t at = 0;
    for (const auto& [begin, end] : held) { // the rest of the file is zeros, which take no memory unread
        clear(image.subspan(at, begin - at));
        copyWhereOther(image.subspan(begin), {&zeros.get()[begin], end - begin});
        at = end;
    }
    clear(image.subspan(at, *length - at));
    return true;
}

} // namespace chromalog
