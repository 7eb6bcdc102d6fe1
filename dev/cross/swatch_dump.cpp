#include "files/file_io.h"
#include "formats/aco_reader.h"
#include "formats/book_format.h"
#include "formats/books_on_disk.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <memory>

// Reads swatch files (.aco) and colour books (.acb) and prints what the readers make of them, a line of JSON
// a file. Conversions leave the components as they are.

namespace chromalog {
namespace {

using nlohmann::json;

std::int16_t unchanged(ColorServicesInfo*) {
    return 0;
}

/// A character a byte.
std::string latin1(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text.push_back(c);
        } else {
            text.push_back(static_cast<char>(0xC0 | byte >> 6));
            text.push_back(static_cast<char>(0x80 | (byte & 0x3F)));
        }
    }
    return text;
}

json swatchFile(Bytes file) {
    const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    const ListRecords list(records.get(), kListCapacity);
    const AcoHeader header = readAcoHeader(file, 0);
    const auto second = readAcoRecords(file, header, 0, list, unchanged, BooksOnDisk(""));
    json out = json::array();
    for (const FCOStruct& r :
         list.first(static_cast<std::size_t>(clampedCount(second.value_or(header.viewCount)))))
        out.push_back({{"name", latin1(nameBytes(r))}, {"rgb", {r.SRed, r.SGreen, r.SBlue}}});
    return out;
}

json colourBook(Bytes file) {
    BookCursor book(file);
    json out = json::array();
    BookColour colour;
    for (int i = 0; i < book.count() && book.next(colour); ++i)
        out.push_back({{"key", latin1({reinterpret_cast<const char*>(colour.key.data()), colour.key.size()})},
                       {"components", colour.components}});
    return {{"space", book.space()}, {"colours", out}};
}

} // namespace
} // namespace chromalog

int main(int argc, char** argv) {
    using namespace chromalog;
    for (int i = 1; i < argc; ++i) {
        const std::string path = argv[i];
        const auto file = readDataFromFileAtURL(path);
        if (!file) {
            std::fprintf(stderr, "swatch_dump: cannot read %s\n", argv[i]);
            return 2;
        }
        const json read = path.ends_with(".acb") ? colourBook(*file) : swatchFile(*file);
        std::printf("%s\n", json{{"path", path}, {"read", read}}.dump().c_str());
    }
    return 0;
}
