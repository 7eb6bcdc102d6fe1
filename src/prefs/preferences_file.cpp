#include "prefs/preferences_file.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace chromalog {
namespace {

constexpr std::size_t kImageSize = sizeof(GlobalRecord) - kPreferencesOffset;
constexpr std::size_t kCountsAt = offsetof(GlobalRecord, numColors1) - kPreferencesOffset;
static_assert(kImageSize + 2 == kPreferencesSize);
static_assert(kCountsAt == 3'040'006);
static_assert(offsetof(GlobalRecord, swatchList1) - kPreferencesOffset == 6);
static_assert(kPreferencesOffset >= offsetof(GlobalRecord, pickerRecord) + sizeof(PickerRecord*));

bool holdsColours(std::span<const std::uint8_t> file) {
    const auto counts = file.subspan(std::min(kCountsAt, file.size()));
    return std::ranges::any_of(counts.first(std::min<std::size_t>(4, counts.size())),
                               [](int b) { return b != 0; });
}

} // namespace

std::string applicationDataDirectory(std::string_view applicationsDirectory) {
    if (applicationsDirectory.empty()) return {};
    std::string path(applicationsDirectory);
    if (path.back() != '/') path += '/';
    path += kPreferencesFolder;
    std::error_code ignored; // the write that follows fails as silently
    std::filesystem::create_directories(path, ignored);
    return path.append(kPreferencesName);
}

std::span<const std::uint8_t> preferencesImage(const GlobalRecord& record) {
    return {reinterpret_cast<const std::uint8_t*>(&record) + kPreferencesOffset, kImageSize};
}

void applyPreferences(GlobalRecord& record, std::span<const std::uint8_t> file) {
    const std::size_t length = std::min(file.size(), kImageSize);
    if (length > 0)
        std::memcpy(reinterpret_cast<std::uint8_t*>(&record) + kPreferencesOffset, file.data(), length);
}

bool readPreferences(const std::string& path, GlobalRecord& record) {
    const auto file = readDataFromFileAtURL(path, kImageSize);
    if (file) applyPreferences(record, *file);
    return file.has_value();
}

bool writePreferences(const std::string& path, const GlobalRecord& record, Flush flush) {
    return writeDataToFileAtURL(path, preferencesImage(record), kPreferencesSize - kImageSize, flush);
}

void keepSkippedPreferences(const std::string& path) {
    const auto file = readDataFromFileAtURL(path);
    const std::string copy = path + ".skipped";
    std::error_code error;
    if (!file || (!holdsColours(*file) && std::filesystem::exists(copy, error))) return;
    writeDataToFileAtURL(copy, *file);
}

} // namespace chromalog
