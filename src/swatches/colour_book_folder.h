#pragma once

#include "swatches/formats/book_lookup.h"

namespace chromalog {

/// The folder of colour books on disk. Without a name no book is found.
class ColourBookFolder : public ColourBookShelf {
  public:
    explicit ColourBookFolder(std::string path) : path_(std::move(path)) {}
    std::optional<std::vector<std::uint8_t>> readBook(std::string_view file) const override;

  private:
    std::string path_;
};

} // namespace chromalog
