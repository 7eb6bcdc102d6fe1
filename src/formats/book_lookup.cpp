#include "formats/book_lookup.h"

#include <bit>
#include <utility>

namespace chromalog {
namespace {

std::uint64_t tagOf(const BookKey& key) {
    std::uint64_t bits = 0;
    for (const std::uint8_t byte : key)
        bits = bits << 8 | byte;
    return bits << 16 | 1;
}

} // namespace

BookIndex::BookIndex(Bytes file) {
    BookCursor book(file);
    space_ = book.space();
    const int count = std::max<int>(book.count(), 0);
    const auto keys = static_cast<std::size_t>(count);
    tags_.resize(std::bit_ceil(keys + keys / 4 + 1)); // one in five stays empty
    components_.resize(tags_.size());
    BookColour colour;
    for (int i = 0; i < count && book.next(colour); ++i) {
        const std::uint64_t tag = tagOf(colour.key);
        const std::size_t slot = slotOf(tag);
        if (tags_[slot] != 0) continue;
        tags_[slot] = tag;
        components_[slot] = colour.components;
    }
}

std::size_t BookIndex::slotOf(std::uint64_t tag) const {
    // The product spreads keys that differ in one digit over its upper bits.
    std::size_t at = (tag * 0x9E3779B97F4A7C15) >> 40 & (tags_.size() - 1);
    while (tags_[at] != 0 && tags_[at] != tag)
        at = (at + 1) & (tags_.size() - 1);
    return at;
}

const BookComponents* BookIndex::find(const BookKey& key) const {
    const std::size_t slot = slotOf(tagOf(key));
    return tags_[slot] == 0 ? nullptr : &components_[slot];
}

void BookLookup::meetUnknownSpace(std::int16_t space) {
    unknownBook_ = "farbe.Ctype =" + std::to_string(space);
    book_ = unknownBook_;
    lookedFor_ = false;
}

void BookLookup::putInForce(std::string_view book) {
    if (book.data() == book_.data()) return; // names of books are constants
    book_ = book;
    lookedFor_ = false;
}

const BookIndex* BookLookup::indexInForce() {
    if (std::exchange(lookedFor_, true)) return index_;
    const auto [entry, isNew] = read_.try_emplace(std::string(book_));
    if (isNew)
        if (const auto bytes = registry_.readBook(book_)) entry->second.emplace(Bytes(*bytes));
    return index_ = entry->second ? &*entry->second : nullptr;
}

const std::int16_t (&BookLookup::getValueFromAse(std::int16_t space, const BookKey& key))[4] {
    if (space != chosenSpace_ || keyDecides(space)) choice_ = bookForSpace(space, key);
    chosenSpace_ = space;
    const BookChoice* choice = choice_;
    if (choice) putInForce(choice->file);
    if (choice && !choice->opens) return result_;
    const BookIndex* index = indexInForce();
    const BookComponents* found = index ? index->find(key) : nullptr;
    if (!found) return result_;
    if (index->space() == kBookRgb)
        for (std::size_t i = 0; i < 3;
             ++i) // scaled here and again by the reader: 128 and above turn negative, kept
            result_[i] = static_cast<std::int16_t>((*found)[i] * 256);
    else
        convertBookColour(index->space(), *found, services_, result_);
    return result_;
}

} // namespace chromalog
