#include "fuzz_support.h"

#include "formats/book_lookup.h"

namespace chromalog {
namespace {

class OneBook : public ColourBookRegistry {
  public:
    explicit OneBook(Bytes file) : file_(file) {}
    std::optional<std::vector<std::uint8_t>> readBook(std::string_view) const override {
        return std::vector<std::uint8_t>(file_.begin(), file_.end());
    }

  private:
    Bytes file_;
};

/// The first colour with the key, found by walking the book.
std::optional<BookColour> walkTo(Bytes file, const BookKey& key) {
    BookCursor book(file);
    BookColour colour;
    for (int i = 0; i < book.count() && book.next(colour); ++i)
        if (colour.key == key) return colour;
    return std::nullopt;
}

void expectSameAsWalking(const BookIndex& index, Bytes file, const BookKey& key) {
    const BookComponents* found = index.find(key);
    const std::optional<BookColour> walked = walkTo(file, key);
    fuzz::require((found != nullptr) == walked.has_value(), "the index holds the book's keys and no other");
    fuzz::require(!found || *found == walked->components, "of equal keys the first counts");
}

} // namespace
} // namespace chromalog

/// Space code and key of a reference, then the book.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    ByteCursor cursor({data, size});
    const auto space = static_cast<std::int16_t>(cursor.word());
    const BookKey key = cursor.take<6>();
    const Bytes file = size > 8 ? Bytes(data + 8, size - 8) : Bytes();
    const BookIndex index(file);
    expectSameAsWalking(index, file, key);
    BookCursor book(file);
    BookColour colour;
    for (int i = 0; i < std::min<int>(book.count(), 100) && book.next(colour); ++i)
        expectSameAsWalking(index, file, colour.key);
    const OneBook registry(file);
    BookLookup lookup(registry, fuzz::convert);
    lookup.getValueFromAse(space, key);
    lookup.meetUnknownSpace(space);
    lookup.getValueFromAse(10, key);
    return 0;
}
