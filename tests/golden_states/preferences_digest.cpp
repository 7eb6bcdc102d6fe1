#include "golden_states/digests.h"
#include "record/global_record.h"

#include <algorithm>
#include <cstring>

namespace chromalog::golden {
namespace {

constexpr std::size_t kFirstByte = 18; ///< of the record that the file holds
constexpr std::size_t kFileSize = 3'040'536;
constexpr std::size_t kFirstList = offsetof(GlobalRecord, swatchList1) - kFirstByte;
constexpr std::size_t kBehindLists = offsetof(GlobalRecord, numColors1) - kFirstByte;

std::string_view characters(const std::uint8_t (&pascal)[256]) {
    return {reinterpret_cast<const char*>(pascal + 1), pascal[0]};
}

/// `area` is where the list stands in the file; its hash tells what the swatches' lines do not.
json listDigest(const FCOStruct* list, int count, std::string_view area) {
    std::vector<std::string> swatches;
    for (const FCOStruct* each = list; each < list + std::clamp(count, 0, kListCapacity); ++each)
        swatches.push_back(
            swatchText(each->Namen[0], characters(each->Namen), each->SRed, each->SGreen, each->SBlue));
    return {{"count", count}, {"swatches", shortened(swatches)}, {"hash", hashOf(area)}};
}

} // namespace

json preferencesDigest(std::string_view bytes) {
    if (bytes.size() != kFileSize) return rowsDigest(bytes);
    static GlobalRecord record; // large
    std::memcpy(reinterpret_cast<char*>(&record) + kFirstByte, bytes.data(), sizeof record - kFirstByte);
    constexpr std::size_t area = sizeof record.swatchList1;
    return {
        {"size", bytes.size()},
        {"list1", listDigest(record.swatchList1, record.numColors1, bytes.substr(kFirstList, area))},
        {"list2", listDigest(record.swatchList2, record.numColors2, bytes.substr(kFirstList + area, area))},
        {"before", rowsDigest(bytes.substr(0, kFirstList))},
        {"behind", rowsDigest(bytes.substr(kBehindLists))}};
}

} // namespace chromalog::golden
