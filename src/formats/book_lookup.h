#pragma once

#include "formats/book_format.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// The folder of colour books, as a look-up sees it.
class ColourBookRegistry {
  public:
    virtual ~ColourBookRegistry() = default;
    /// A whole book by its file name, or nothing where it cannot be read.
    virtual std::optional<std::vector<std::uint8_t>> readBook(std::string_view file) const = 0;
};

/// The colours of one book by key; of equal keys the first in the file.
class BookIndex {
  public:
    explicit BookIndex(Bytes file);
    std::int16_t space() const { return space_; }
    const BookComponents* find(const BookKey&) const;

  private:
    /// The slot that has the tag, or the empty one where it would stand.
    std::size_t slotOf(std::uint64_t tag) const;

    std::int16_t space_ = 0;
    std::vector<std::uint64_t>
        tags_; ///< by slot: the key above 16 bits of 1; 0 is empty. A power of two of them
    std::vector<BookComponents> components_; ///< by slot
};

/// Looks up the colour-book references of one swatch file. It lives as long as one load: each book is read
/// once, and the book in force and the last result are carried from record to record.
class BookLookup {
  public:
    BookLookup(const ColourBookRegistry& registry, ColorServicesProc services)
        : registry_(registry), services_(services) {}

    /// Red, green and blue for a reference; those of the look-up before (at first 0, 0, 0) where nothing is
    /// found.
    const std::int16_t (&getValueFromAse(std::int16_t space, const BookKey&))[4];
    /// A record of an unknown space names the book in force after its code: no book has that name.
    void meetUnknownSpace(std::int16_t space);

  private:
    void putInForce(std::string_view book);
    const BookIndex* indexInForce();

    const ColourBookRegistry& registry_;
    ColorServicesProc services_;
    const BookChoice* choice_ = nullptr; ///< for the space of the record before; most follow in runs
    std::int16_t chosenSpace_ = 0;       ///< no book's
    std::string_view book_;              ///< file name of the book in force: a constant, or the next
    std::string unknownBook_;
    const BookIndex* index_ = nullptr; ///< of the book in force, once it was looked for
    bool lookedFor_ = false;
    std::int16_t result_[4] = {};
    std::map<std::string, std::optional<BookIndex>> read_; ///< nothing inside: could not be read
};

} // namespace chromalog
