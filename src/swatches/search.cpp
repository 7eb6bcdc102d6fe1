#include "swatches/search.h"

namespace chromalog {

bool nameHolds(const FCOStruct& record, std::string_view text) {
    const std::string_view name = zeroTerminatedName(record);
    if (text.empty() || name.find(text) == std::string_view::npos) return false;
    return std::all_of(name.begin(), name.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

std::vector<FoundEntry> findByName(ListRecords searched, ListRecords list1, int count,
                                   std::string_view text) {
    std::vector<FoundEntry> hits;
    const int used = std::min<int>(clampedCount(count), static_cast<int>(searched.size()));
    for (int i = 0; i < used; ++i) {
        if (FCOStruct* record = recordAt(list1, i)) terminateName(*record);
        if (nameHolds(searched[i], text))
            hits.push_back({i, static_cast<float>(i) / static_cast<float>(count)});
    }
    return hits;
}

} // namespace chromalog
