#include "pictures/exif_orientation.h"

#include <algorithm>
#include <string_view>

namespace chromalog {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint64_t kOrientationTag = 0x112, kShort = 3;
constexpr std::size_t kEntry = 12;          ///< bytes of an entry in a directory
constexpr std::size_t kLongestBlock = 4096; ///< the orientation stands near the start
constexpr int kMostChunks = 10'000;         ///< of a file that repeats tiny ones for ever

/// An unsigned number; 0 beyond the end.
std::uint64_t numberAt(Bytes bytes, std::uint64_t at, std::size_t size, bool littleEndian) {
    if (at > bytes.size() || bytes.size() - at < size) return 0;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | bytes[at + (littleEndian ? size - 1 - i : i)];
    return value;
}

bool startsWith(Bytes bytes, std::string_view text, std::size_t at = 0) {
    return bytes.size() >= at + text.size() &&
           std::equal(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char c, std::uint8_t b) { return static_cast<std::uint8_t>(c) == b; });
}

struct ChunkRules {
    std::uint64_t first;   ///< where the first chunk begins
    std::string_view name; ///< of the chunk that is wanted
    std::size_t lengthAt, nameAt;
    bool littleEndian;
    std::uint64_t around; ///< bytes of a chunk beside its contents
    bool padded;          ///< to an even length
};

int orientationInChunk(const BytesAt& read, const ChunkRules& rules) {
    std::uint64_t at = rules.first;
    for (int i = 0; i < kMostChunks; ++i) {
        const std::vector<std::uint8_t> head = read(at, 8);
        if (head.size() < 8) return 1;
        const std::uint64_t length = numberAt(head, rules.lengthAt, 4, rules.littleEndian);
        if (startsWith(head, rules.name, rules.nameAt))
            return exifOrientation(read(at + 8, std::min<std::uint64_t>(length, kLongestBlock)));
        at += length + rules.around + (rules.padded ? length & 1 : 0);
    }
    return 1;
}

} // namespace

int exifOrientation(Bytes exif) {
    if (startsWith(exif, std::string_view("Exif\0\0", 6))) exif = exif.subspan(6);
    const bool littleEndian = startsWith(exif, "II");
    if (!littleEndian && !startsWith(exif, "MM")) return 1;
    const std::uint64_t directory = numberAt(exif, 4, 4, littleEndian);
    const std::uint64_t entries = numberAt(exif, directory, 2, littleEndian);
    for (std::uint64_t i = 0; i < entries; ++i) {
        const std::uint64_t entry = directory + 2 + i * kEntry;
        if (numberAt(exif, entry, 2, littleEndian) != kOrientationTag) continue;
        const std::uint64_t value = numberAt(exif, entry + 8, 2, littleEndian);
        const bool known = numberAt(exif, entry + 2, 2, littleEndian) == kShort && value >= 1 && value <= 8;
        return known ? static_cast<int>(value) : 1;
    }
    return 1;
}

int orientationOfPng(const BytesAt& read) {
    return orientationInChunk(read, {8, "eXIf", 0, 4, false, 12, false});
}

int orientationOfWebp(const BytesAt& read) {
    return orientationInChunk(read, {12, "EXIF", 4, 0, true, 8, true});
}

} // namespace chromalog
