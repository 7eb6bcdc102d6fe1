#include "formats/book_format.h"

namespace chromalog {
namespace {

constexpr std::size_t kSkippedHeader = 8; // signature, version, identifier
constexpr int kHeaderStrings = 4;         // title, prefix, postfix, description
constexpr std::size_t kPageFields = 4;

void storeBookColour(FCOStruct& record, const BookKey& key, std::int64_t red, std::int64_t green,
                     std::int64_t blue) {
    record.SRed = red * 256;
    record.SGreen = green * 256;
    record.SBlue = blue * 256;
    record.Namen[0] = static_cast<std::uint8_t>(key.size());
    std::copy(key.begin(), key.end(), record.Namen + 1);
}

} // namespace

BookCursor::BookCursor(Bytes file) : cursor_(file, kSkippedHeader) {
    for (int i = 0; i < kHeaderStrings; ++i)
        skipString();
    count_ = static_cast<std::int16_t>(cursor_.word());
    cursor_.skip(kPageFields);
    space_ = static_cast<std::int16_t>(cursor_.word());
}

void BookCursor::skipString() {
    cursor_.skip(2);
    cursor_.skip(std::size_t{2} * cursor_.word());
}

bool BookCursor::next(BookColour& colour) {
    skipString();
    const std::size_t components = space_ == kBookCmyk ? 4 : 3;
    if (!cursor_.has(colour.key.size() + components)) return false;
    colour.key = cursor_.take<6>();
    for (std::size_t i = 0; i < components; ++i)
        colour.components[i] = cursor_.byte();
    return true;
}

void convertBookColour(std::int16_t space, const BookComponents& c, ColorServicesProc services,
                       std::int16_t (&slots)[4]) {
    if (space != kBookCmyk && space != kBookLab) return;
    CSSetColor(slots, c[0], c[1], c[2], space == kBookCmyk ? c[3] : 0);
    HostCSConvertColor(services,
                       space == kBookCmyk ? plugIncolorServicesCMYKSpace : plugIncolorServicesLabSpace,
                       plugIncolorServicesRGBSpace, slots);
}

std::int16_t loadBook(Bytes file, ListRecords records, ColorServicesProc services) {
    BookCursor book(file);
    const auto count = static_cast<std::int16_t>(std::min<int>(book.count(), kListCapacity));
    std::int16_t slots[4] = {}; // of a space unknown here they stay what the colour before left
    BookColour colour;
    for (int i = 0; i < count && book.next(colour); ++i) {
        FCOStruct* record = recordAt(records, i);
        if (!record) break;
        const auto& c = colour.components;
        convertBookColour(book.space(), c, services, slots);
        if (book.space() == kBookRgb)
            storeBookColour(*record, colour.key, c[0], c[1], c[2]);
        else
            storeBookColour(*record, colour.key, slots[0], slots[1], slots[2]);
    }
    return count;
}

} // namespace chromalog
