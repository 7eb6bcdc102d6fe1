#include "golden_states/samples.h"

#include "record/global_record.h"
#include "support/swatch_files.h"

#include <fstream>

namespace chromalog::golden {
namespace {

using test::FileBuilder;

struct Swatch {
    const char* name;
    int red, green, blue;
};

constexpr Swatch kFive[] = {{"Red", 65535, 0, 0},
                            {"Green", 0, 65535, 0},
                            {"Blue", 0, 0, 65535},
                            {"White", 65535, 65535, 65535},
                            {"Grey", 32768, 32768, 32768}};
constexpr Swatch kMixed[] = {{"teal", 0, 0x8080, 0x8080},
                             {"Apricot", 65000, 52000, 45000},
                             {"apple", 20000, 50000, 10000},
                             {"Navy blue", 0, 0, 0x8080},
                             {"Black", 0, 0, 0},
                             {"Light Blue", 20000, 30000, 60000},
                             {"blueberry", 10000, 5000, 40000},
                             {"Pale", 0xF8F8, 0xF9F9, 0xFAFA},
                             {"Apricot", 65000, 52000, 45001},
                             {"zinc", 0x7F80, 0x7F7F, 0x807F}};

class Folder {
  public:
    explicit Folder(const std::string& path) : path_(path) {}
    void write(const std::string& name, const FileBuilder& file) const {
        std::ofstream(path_ + "/" + name, std::ios::binary)
            .write(reinterpret_cast<const char*>(file.bytes.data()),
                   static_cast<std::streamsize>(file.bytes.size()));
    }

  private:
    const std::string path_;
};

template <std::size_t N> FileBuilder rgbFile(const Swatch (&swatches)[N]) {
    FileBuilder file;
    file.header(2, N);
    for (const Swatch& s : swatches)
        file.colour(0, s.red, s.green, s.blue).name(s.name);
    return file;
}

/// Numbered colours of which no two are alike.
FileBuilder manyColours(int count) {
    FileBuilder file;
    file.header(2, count);
    for (int i = 0; i < count; ++i)
        file.colour(0, i * 7919 % 65536, i * 104729 % 65536, i * 13 % 65536)
            .name("Colour " + std::to_string(i * 31 % count));
    return file;
}

/// The colours of a file in spaces that the host converts, with names or, in a first section, without.
FileBuilder& addSpaces(FileBuilder& file, bool named) {
    const int colours[][5] = {
        {0, 65535, 32768, 1, 0},   {1, 0, 65535, 65535, 0},     {1, 32768, 32767, 20000, 0},
        {2, 65535, 0, 32768, 257}, {7, 5000, 3000, -4000, 0},   {7, 1500, -1200, -1200, 0},
        {8, 5000, 0, 0, 0},        {9, 1000, 2000, 3000, 4000}, {15, 1, 2, 3, 4}};
    for (const auto& [space, w, x, y, z] : colours) {
        file.colour(space, w, x, y, z);
        if (named) file.name("Space " + std::to_string(space));
    }
    return file;
}

void writeVersions(const Folder& folder) {
    FileBuilder first, second, both;
    folder.write("version1.aco", addSpaces(first.header(1, 9), false));
    folder.write("version2.aco", addSpaces(second.header(2, 9), true));
    folder.write("both.aco", addSpaces(addSpaces(both.header(1, 9), false).header(2, 9), true));
    folder.write("low-bytes.aco", FileBuilder().header(1, 2).colour(0, 255, 128, 1).colour(0, 0, 7, 200));
    folder.write("version3.aco", FileBuilder().header(3, 7).colour(0, 1, 2, 3));
}

void writeNames(const Folder& folder) {
    FileBuilder file;
    file.header(2, 6).colour(0, 1, 2, 3).name("").colour(0, 4, 5, 6).name("Caf\xe9 \x8a");
    file.colour(0, 7, 8, 9).name(std::string(255, 'n')).colour(0, 10, 11, 12).units("Void");
    file.colour(0, 13, 14, 15)
        .longWord(3)
        .word(0x0141)
        .word(0x0107)
        .word(0)
        .colour(0, 16, 17, 18)
        .name("<b>'\"");
    folder.write("names.aco", file);
}

void writeBooks(const Folder& folder, const Folder& books) {
    const auto book = FileBuilder()
                          .bookHeader(3, 0)
                          .bookColour("One", "  101C", {1, 128, 255})
                          .bookColour("", "      ", {0, 0, 0})
                          .bookColour("Two", "  102C", {200, 100, 50});
    const auto cmyk = FileBuilder()
                          .bookHeader(2, 2)
                          .bookColour("a", "   1-A", {255, 0, 0, 255})
                          .bookColour("b", "   1-B", {10, 20, 30, 40});
    const auto lab = FileBuilder()
                         .bookHeader(2, 7)
                         .bookColour("a", "  1204", {128, 128, 128})
                         .bookColour("b", "  1205", {200, 90, 160});
    folder.write("rgb.acb", book);
    folder.write("cmyk.acb", cmyk);
    folder.write("lab.acb", lab);
    folder.write("other.acb", FileBuilder().bookHeader(1, 4).bookColour("a", "other ", {10, 20, 30}));
    books.write("PANTONE solid coated.acb", book);
    books.write("TRUMATCH.acb", cmyk);
    books.write("FOCOLTONE.acb", lab);
    FileBuilder file;
    file.header(1, 0)
        .header(2, 6)
        .reference(3, "absent")
        .name("first miss")
        .reference(3, "  101C")
        .name("RGB book");
    file.reference(5, "   1-A").name("CMYK book").reference(4, "  1205").name("Lab book");
    file.colour(0, 9, 9, 9).name("no reference").reference(3, "absent").name("miss");
    folder.write("references.aco", file);
}

void writeBroken(const Folder& folder) {
    FileBuilder shorter = rgbFile(kFive);
    shorter.bytes.resize(shorter.bytes.size() - 21);
    folder.write("cut.aco", shorter);
    folder.write("no-colours.aco", FileBuilder().header(2, 0));
    folder.write("negative.aco", FileBuilder().header(2, 0xFFFF).colour(0, 1, 2, 3).name("a"));
    folder.write("promises.aco", FileBuilder().header(2, 4000).colour(0, 1, 2, 3).name("a"));
    folder.write("empty.aco", FileBuilder());
    folder.write("one-byte.aco", FileBuilder().byte(7));
    folder.write(
        "cut.acb",
        FileBuilder().bookHeader(9, 2).bookColour("a", "key   ", {1, 2, 3, 4}).longWord(0).text("key"));
    folder.write("no.acb", FileBuilder().text("GIF89a"));
}

/// One swatch a list, an unknown choice on OK, and counts as another program may have left them.
FileBuilder preferences(std::int16_t count1, std::int16_t count2, std::uint16_t useSecond) {
    static GlobalRecord record; // large
    record = {};
    record.numColors1 = count1;
    record.numColors2 = count2;
    record.useSecondColor = useSecond;
    record.undoLimit = 3;
    record.swatchList1[0].SRed = 65535;
    record.swatchList2[0].SBlue = -7;
    std::copy_n("\x05hello", 6, record.swatchList1[0].Namen);
    std::copy_n("\x08my lists", 9, record.swatchName1);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&record);
    FileBuilder file;
    file.bytes.assign(bytes + 18, bytes + sizeof record);
    file.bytes.resize(3'040'536);
    return file;
}

void writePreferences(const Folder& folder) {
    folder.write("odd.prf", preferences(1, 1, 2));
    folder.write("overfull.prf", preferences(32767, -5, 1));
    FileBuilder part = preferences(1, 1, 1);
    part.bytes.resize(1000);
    folder.write("part.prf", part);
}

} // namespace

void writeSamples(const std::string& path) {
    const Folder folder(path);
    folder.write("five.aco", rgbFile(kFive));
    folder.write("mixed.aco", rgbFile(kMixed));
    folder.write("300.aco", manyColours(300));
    folder.write("4990.aco", manyColours(4990));
    folder.write("6000.aco", manyColours(6000));
    writeVersions(folder);
    writeNames(folder);
    writeBooks(folder, Folder(path + "/books"));
    writeBroken(folder);
    writePreferences(folder);
}

} // namespace chromalog::golden
