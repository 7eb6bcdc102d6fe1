#include "formats/aco_writer.h"

namespace chromalog {
namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kFixedEntrySize = 16; // colour, length and terminating unit

std::uint8_t* put16(std::uint8_t* out, std::int64_t value) {
    *out++ = static_cast<std::uint8_t>(value >> 8);
    *out++ = static_cast<std::uint8_t>(value);
    return out;
}

std::uint8_t* putEntry(std::uint8_t* out, const FCOStruct& record) {
    const std::uint8_t length = record.Namen[0];
    for (const std::int64_t word :
         {std::int64_t{0}, record.SRed, record.SGreen, record.SBlue, std::int64_t{0}})
        out = put16(out, word);
    out = put16(out, 0);
    out = put16(out, static_cast<std::uint8_t>(length + 1)); // 255 characters write 0: kept
    for (int k = 1; k <= length; ++k)
        out = put16(out, record.Namen[k]);
    return put16(out, 0);
}

} // namespace

void writeAco(std::vector<std::uint8_t>& data, ConstListRecords records, std::int16_t count) {
    records = records.first(std::min(records.size(), static_cast<std::size_t>(clampedCount(count))));
    std::size_t size = kHeaderSize;
    for (const FCOStruct& record : records)
        size += kFixedEntrySize + 2u * record.Namen[0];
    const std::size_t before = data.size();
    data.resize(before + size);
    std::uint8_t* out = data.data() + before;
    *out++ = 0;
    *out++ = 2;
    *out++ = static_cast<std::uint8_t>(count / 256); // truncated toward zero
    *out++ = static_cast<std::uint8_t>(count);
    for (const FCOStruct& record : records)
        out = putEntry(out, record);
}

} // namespace chromalog
