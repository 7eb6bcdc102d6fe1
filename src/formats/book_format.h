#pragma once

#include "formats/byte_cursor.h"
#include "formats/colour_books.h"
#include "record/host_conversion.h"
#include "record/list_store.h"

namespace chromalog {

/// Colour spaces of a book, as its file holds them.
inline constexpr std::int16_t kBookRgb = 0, kBookCmyk = 2, kBookLab = 7;

using BookComponents = std::array<std::uint8_t, 4>; ///< CMYK books fill four, all others three

struct BookColour {
    BookKey key{};
    BookComponents components{};
};

/// Walks through a colour book. Signature, version, identifier and page fields are not examined; of a
/// string's length only the low 16 bits count; names are skipped.
class BookCursor {
  public:
    explicit BookCursor(Bytes file);

    std::int16_t count() const { return count_; } ///< as the file says
    std::int16_t space() const { return space_; }
    /// False where the file ends before the next colour does.
    bool next(BookColour&);

  private:
    void skipString();

    ByteCursor cursor_;
    std::int16_t count_ = 0;
    std::int16_t space_ = 0;
};

/// Asks the host for the RGB of a CMYK or Lab colour, whose bytes already have the host's scale. The slots of
/// any other space stay as they are.
void convertBookColour(std::int16_t space, const BookComponents&, ColorServicesProc,
                       std::int16_t (&slots)[4]);

/// Fills the records from the first on with a whole book, named by their keys. Returns the count for the
/// list: the file's own, clamped to the capacity. A file that ends early leaves the remaining records as they
/// were.
std::int16_t loadBook(Bytes file, ListRecords, ColorServicesProc);

} // namespace chromalog
