#include "swatches/list_edits.h"

#include "record/name_text.h"

#include <cstring>

namespace chromalog {
namespace {

std::int64_t channel(double component) {
    return static_cast<std::int64_t>(component * 65535.0); // components are 0..1
}

std::int64_t signedChannel(double component) {
    return static_cast<std::int16_t>(channel(component)); // the low 16 bits, sign-extended
}

} // namespace

void moveRecords(ListRecords records, std::int64_t from, std::int64_t to, std::int64_t count) {
    const std::int64_t skipped = std::max<std::int64_t>({0, -from, -to}); // in front of the array
    const std::int64_t room = std::ssize(records) - std::max(from, to);
    const std::int64_t moved = std::min(count, room) - skipped;
    if (moved > 0) std::memmove(&records[to + skipped], &records[from + skipped], moved * sizeof(FCOStruct));
}

void deleteRecord(ListRecords records, int count, int index) {
    moveRecords(records, index + 1, index, count - index);
}

int insertGap(ListRecords records, int count, int position) {
    if (position >= count) return count;
    moveRecords(records, position, position + 1, count - position);
    return position;
}

void moveRecord(ListRecords records, int from, int to) {
    const FCOStruct* moved = recordAt(records, from);
    if (!moved) return;
    const FCOStruct saved = *moved;
    const int target = std::clamp(to, 0, static_cast<int>(records.size()) - 1);
    if (target > from)
        moveRecords(records, from + 1, from, target - from);
    else
        moveRecords(records, target, target + 1, from - target);
    records[target] = saved;
}

void storeColour(FCOStruct& record, const Colour& colour) {
    record.SRed = channel(colour.red());
    record.SGreen = channel(colour.green());
    record.SBlue = channel(colour.blue());
}

void overwriteColour(FCOStruct& record, const Colour& colour) {
    record.SRed = signedChannel(colour.red());
    record.SGreen = signedChannel(colour.green());
    record.SBlue = signedChannel(colour.blue());
}

StoredName::StoredName(std::string_view utf8)
    : bytes(lossyAscii(utf8)), length(static_cast<std::uint8_t>(utf16Length(utf8))) {}

void writeName(FCOStruct& record, const StoredName& name) {
    std::memcpy(record.Namen + 1, name.bytes.data(), std::min<std::size_t>(name.bytes.size(), 255));
    record.Namen[0] = name.length;
}

} // namespace chromalog
