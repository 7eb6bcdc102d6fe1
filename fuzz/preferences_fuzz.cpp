#include "fuzz_support.h"

#include "formats/aco_writer.h"
#include "prefs/preferences_file.h"
#include "record/name_text.h"

#include <algorithm>
#include <vector>

namespace chromalog {
namespace {

/// A preferences file is 3 MB, mostly of zeros: the input says where its bytes lie in a file of which length.
std::vector<std::uint8_t> fileFrom(Bytes input) {
    ByteCursor cursor(input);
    const std::size_t length = (std::size_t{cursor.word()} << 16 | cursor.word()) % (kPreferencesSize + 4096);
    const std::size_t position =
        (std::size_t{cursor.word()} << 16 | cursor.word()) % (kPreferencesSize + 4096);
    std::vector<std::uint8_t> file(length);
    for (std::size_t at = position; at < length && cursor.has(1); ++at)
        file[at] = cursor.byte();
    return file;
}

/// What the dialog reads of a list at its start, under the count that it was told.
void readList(ListRecords records, std::int16_t count) {
    for (FCOStruct& record : records.first(static_cast<std::size_t>(clampedCount(count)))) {
        terminateName(record);
        if (record.Namen[0] != 0)
            fuzz::require(!macRomanToUtf8(nameBytes(record)).empty(), "a name is shown");
    }
    std::vector<std::uint8_t> saved;
    writeAco(saved, records, count);
    fuzz::require(saved.size() >= 4, "a list can be saved");
}

} // namespace
} // namespace chromalog

/// Length of the file, where the bytes stand (4 bytes each), then the bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    static const auto record = std::make_unique<GlobalRecord>();
    std::int16_t result = 0;
    record->resultCode = &result;
    record->pickerRecord = nullptr;
    const std::vector<std::uint8_t> file = fileFrom({data, size});
    applyPreferences(*record, file);
    fuzz::require(record->resultCode == &result && !record->pickerRecord, "the pointers are out of reach");
    const auto image = preferencesImage(*record);
    fuzz::require(std::equal(image.begin(),
                             image.begin() + static_cast<std::ptrdiff_t>(std::min(image.size(), file.size())),
                             file.begin()),
                  "what was read is what the record holds");
    readList(record->swatchList1, record->numColors1);
    readList(record->swatchList2, record->numColors2);
    return 0;
}
