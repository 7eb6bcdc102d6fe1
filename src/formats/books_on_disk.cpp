#include "formats/books_on_disk.h"

#include "files/file_io.h"

namespace chromalog {

std::optional<std::vector<std::uint8_t>> BooksOnDisk::readBook(std::string_view file) const {
    if (path_.empty() || file.empty()) return std::nullopt;
    return readDataFromFileAtURL(std::string(path_).append("/").append(file));
}

} // namespace chromalog
