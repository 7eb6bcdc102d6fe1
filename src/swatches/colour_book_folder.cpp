#include "swatches/colour_book_folder.h"

#include "prefs/file_io.h"

namespace chromalog {

std::optional<std::vector<std::uint8_t>> ColourBookFolder::readBook(std::string_view file) const {
    if (path_.empty() || file.empty()) return std::nullopt;
    return readDataFromFileAtURL(std::string(path_).append("/").append(file));
}

} // namespace chromalog
