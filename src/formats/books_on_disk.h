#pragma once

#include "formats/book_lookup.h"

namespace chromalog {

/// The folder of colour books on disk. Without a name no book is found.
class BooksOnDisk : public ColourBookRegistry {
  public:
    explicit BooksOnDisk(std::string path) : path_(std::move(path)) {}
    std::optional<std::vector<std::uint8_t>> readBook(std::string_view file) const override;

  private:
    std::string path_;
};

} // namespace chromalog
