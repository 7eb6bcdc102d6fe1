#include "fuzz_support.h"

#include "formats/book_format.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    const Bytes file(data, size);
    const ListRecords records = fuzz::listRecords();
    const std::int16_t count = loadBook(file, records, fuzz::convert);
    fuzz::require(count <= kListCapacity, "a book fills the list at most");
    // What was loaded is named by the keys of the file, in its order.
    BookCursor book(file);
    BookColour colour;
    for (int i = 0; i < count && book.next(colour); ++i) {
        const std::string_view name = nameBytes(records[static_cast<std::size_t>(i)]);
        fuzz::require(std::equal(name.begin(), name.end(), colour.key.begin(), colour.key.end(),
                                 [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; }),
                      "a swatch is named by its key");
    }
    return 0;
}
