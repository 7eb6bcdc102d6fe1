#include "swatches/sort.h"

#include "base/channels.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace chromalog {
namespace {

/// One swatch while its list is being sorted.
template <typename Key> struct swatchEntry {
    Key key;
    std::uint16_t position; ///< index before sorting
};

/// A name, and eight of its bytes from `skipped` on, the first one highest: they compare as the bytes do,
/// with zeros after the end.
struct NameKey {
    std::string_view nom;
    std::uint64_t bytes = 0;

    NameKey(std::string_view name, std::size_t skipped) : nom(name) {
        for (std::size_t i = skipped; i < skipped + 8; ++i)
            bytes = bytes << 8 | (i < name.size() ? static_cast<std::uint8_t>(name[i]) : 0);
    }
    bool operator<(const NameKey& other) const {
        return bytes != other.bytes ? bytes < other.bytes : nom < other.nom;
    }
};

/// Length of what all names begin with: the names of one book often share their first word.
std::size_t sharedPrefix(ConstListRecords shown) {
    if (shown.empty()) return 0;
    std::string_view shared = zeroTerminatedName(shown[0]);
    for (const FCOStruct& record : shown) {
        const std::string_view name = zeroTerminatedName(record);
        const auto [end, ignored] = std::mismatch(shared.begin(), shared.end(), name.begin(), name.end());
        shared = shared.substr(0, static_cast<std::size_t>(end - shared.begin()));
    }
    return shared.size();
}

/// Puts each record where its entry stands, moving every record once: a cycle of places at a time.
template <typename Key> void applyOrder(ListRecords records, std::vector<swatchEntry<Key>>& sorted) {
    for (std::size_t start = 0; start < sorted.size(); ++start) {
        if (sorted[start].position == start) continue;
        const FCOStruct saved = records[start];
        std::size_t place = start;
        while (sorted[place].position != start) {
            const std::size_t source = sorted[place].position;
            records[place] = records[source];
            sorted[place].position = static_cast<std::uint16_t>(place);
            place = source;
        }
        records[place] = saved;
        sorted[place].position = static_cast<std::uint16_t>(place);
    }
}

template <typename KeyOf> void sortRecords(ListRecords shown, KeyOf keyOf) {
    using Entry = swatchEntry<decltype(keyOf(shown[0]))>;
    std::vector<Entry> entries;
    entries.reserve(shown.size());
    for (const FCOStruct& record : shown)
        entries.push_back({keyOf(record), static_cast<std::uint16_t>(entries.size())});
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.key < b.key; });
    applyOrder(shown, entries);
}

} // namespace

void sortByName(ListRecords shown) {
    const std::size_t shared = sharedPrefix(shown);
    sortRecords(shown,
                [shared](const FCOStruct& record) { return NameKey(zeroTerminatedName(record), shared); });
}

float hueOf(const FCOStruct& record) {
    return static_cast<float>(
        Colour::rgb(fractionOf(record.SRed), fractionOf(record.SGreen), fractionOf(record.SBlue)).hue());
}

void sortByHue(ListRecords shown) {
    sortRecords(shown, hueOf);
}

} // namespace chromalog
