#include "swatches/sort_keys.h"

#include "spaces/ciede2000.h"
#include "swatches/shown_colour.h"
#include "swatches/sort.h"

#include <algorithm>
#include <numeric>

namespace chromalog {
namespace {

template <typename KeyOf>
std::vector<int> orderBy(ConstListRecords shown, std::span<const int> rows, KeyOf keyOf) {
    std::vector<std::pair<decltype(keyOf(shown[0])), int>> keys;
    keys.reserve(rows.size());
    for (const int row : rows)
        keys.emplace_back(keyOf(shown[static_cast<std::size_t>(row)]), static_cast<int>(keys.size()));
    std::ranges::sort(keys); // the index keeps equal ones in order
    std::vector<int> order;
    order.reserve(keys.size());
    for (const auto& [key, index] : keys)
        order.push_back(index);
    return order;
}

std::vector<int> reversedOrder(std::size_t count) {
    std::vector<int> order(count);
    std::iota(order.rbegin(), order.rend(), 0);
    return order;
}

} // namespace

std::vector<int> sortedOrder(ConstListRecords shown, std::span<const int> rows, SortKey key,
                             const Colour& reference) {
    const Lab from = labOf(rgbOf(reference));
    switch (key) {
    case SortKey::name:
        return orderBy(shown, rows, zeroTerminatedName);
    case SortKey::hue:
        return orderBy(shown, rows, hueOf);
    case SortKey::brightness:
        return orderBy(shown, rows, [](const FCOStruct& r) { return shownColour(r).brightness(); });
    case SortKey::saturation:
        return orderBy(shown, rows, [](const FCOStruct& r) { return shownColour(r).saturation(); });
    case SortKey::difference:
        return orderBy(shown, rows,
                       [&from](const FCOStruct& r) { return ciede2000(from, labOf(rgbOf(shownColour(r)))); });
    case SortKey::reversed:
        break;
    }
    return reversedOrder(rows.size());
}

} // namespace chromalog
