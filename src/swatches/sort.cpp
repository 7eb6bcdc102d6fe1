#include "swatches/sort.h"

#include "colour/colour.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace chromalog {
namespace {

/// One swatch while its list is being sorted.
template <typename Key> struct swatchEntry {
    Key key;
    std::uint16_t position; ///< index before sorting
};

/// The name's first eight bytes, the first one highest: compares as they do, zeros after the end.
std::uint64_t leadingBytes(std::string_view name) {
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < 8; ++i)
        key = key << 8 | (i < name.size() ? static_cast<std::uint8_t>(name[i]) : 0);
    return key;
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

template <typename Key, typename KeyOf, typename Less>
void sortRecords(ListRecords shown, KeyOf keyOf, Less less) {
    std::vector<swatchEntry<Key>> entries;
    entries.reserve(shown.size());
    for (const FCOStruct& record : shown)
        entries.push_back({keyOf(record), static_cast<std::uint16_t>(entries.size())});
    std::stable_sort(entries.begin(), entries.end(), less);
    applyOrder(shown, entries);
}

} // namespace

void sortByName(ListRecords shown) {
    using Entry = swatchEntry<std::uint64_t>;
    const auto keyOf = [](const FCOStruct& record) { return leadingBytes(zeroTerminatedName(record)); };
    const auto less = [shown](const Entry& a, const Entry& b) {
        if (a.key != b.key) return a.key < b.key;
        return zeroTerminatedName(shown[a.position]) < zeroTerminatedName(shown[b.position]);
    };
    sortRecords<std::uint64_t>(shown, keyOf, less);
}

float hueOf(const FCOStruct& record) {
    const auto component = [](std::int64_t channel) { return static_cast<float>(channel) / 65535.0; };
    return static_cast<float>(
        Colour::rgb(component(record.SRed), component(record.SGreen), component(record.SBlue)).hue());
}

void sortByHue(ListRecords shown) {
    using Entry = swatchEntry<float>;
    sortRecords<float>(shown, hueOf, [](const Entry& a, const Entry& b) { return a.key < b.key; });
}

} // namespace chromalog
