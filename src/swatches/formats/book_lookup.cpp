#include "swatches/formats/book_lookup.h"

#include <bit>
#include <utility>

namespace chromalog {

BookIndex::BookIndex(Bytes file) : space_(0) {
    BookCursor book(file);
    space_ = book.space();
    slots_.resize(std::bit_ceil(2 * static_cast<std::size_t>(std::max<int>(book.count(), 1))));
    BookColour colour;
    for (int i = 0; i < book.count() && book.next(colour); ++i) {
        std::uint16_t& slot = slots_[slotOf(colour.key)];
        if (slot != 0) continue;
        colours_.push_back(colour);
        slot = static_cast<std::uint16_t>(colours_.size()); // a 16-bit count is at most 32767
    }
}

std::size_t BookIndex::slotOf(const BookKey& key) const {
    std::uint64_t hash = 0;
    for (const std::uint8_t byte : key)
        hash = hash << 8 | byte;
    hash *= 0x9E3779B97F4A7C15; // spreads keys that differ in a digit over the upper bits
    std::size_t at = (hash >> 32) & (slots_.size() - 1);
    while (slots_[at] != 0 && colours_[slots_[at] - 1u].key != key)
        at = (at + 1) & (slots_.size() - 1);
    return at;
}

const BookColour* BookIndex::find(const BookKey& key) const {
    const std::uint16_t slot = slots_[slotOf(key)];
    return slot == 0 ? nullptr : &colours_[slot - 1u];
}

const BookIndex* BookLookup::indexOf(const std::string& file) {
    const auto [entry, isNew] = read_.try_emplace(file);
    if (isNew)
        if (const auto bytes = shelf_.readBook(file)) entry->second.emplace(Bytes(*bytes));
    return entry->second ? &*entry->second : nullptr;
}

const std::int16_t (&BookLookup::getValueFromAse(std::int16_t space, const BookKey& key))[4] {
    const std::optional<BookChoice> choice = bookForSpace(space, key);
    if (choice) book_ = choice->file;
    if (choice && !choice->opens) return result_;
    const BookIndex* index = indexOf(book_);
    const BookColour* colour = index ? index->find(key) : nullptr;
    if (!colour) return result_;
    if (index->space() == kBookRgb)
        for (int i = 0; i < 3;
             ++i) // scaled here and again by the reader, so that 128 and above turn negative: kept
            result_[i] = static_cast<std::int16_t>(colour->components[static_cast<std::size_t>(i)] * 256);
    else
        convertBookColour(index->space(), *colour, services_, result_);
    return result_;
}

} // namespace chromalog
