// Names that colours share: groups that hosts append to swatch files, and how many bytes of such names a file
// may ask for.
#include "palettes/byte_reader.h"
#include "palettes/palette_format.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::ElementsAre;

void text(ByteWriter& out, std::string_view ascii) {
    out.longWord(static_cast<std::uint32_t>(ascii.size() + 1));
    for (const char c : ascii)
        out.word(static_cast<unsigned char>(c));
    out.word(0);
}

void word(ByteWriter& out, std::string_view characters) {
    out.longWord(characters.size() == 4 ? 0 : static_cast<std::uint32_t>(characters.size()));
    out.bytes(characters);
}

/// An object of the list of groups and colours.
void object(ByteWriter& out, std::string_view kind, const std::string* name = nullptr) {
    out.bytes("Objc");
    text(out, "");
    word(out, kind);
    out.longWord(name ? 2 : 0);
    if (!name) return;
    word(out, "Nm  "), out.bytes("TEXT"), text(out, *name);
    word(out, "zuid"), out.bytes("TEXT"), text(out, "1-2-3");
}

/// So many black swatches without names, then the block. "(name" begins a group, ")" ends it, "." is a
/// colour.
std::string swatchFile(unsigned count, const std::vector<std::string>& objects) {
    ByteWriter list;
    list.longWord(16);
    text(list, "");
    word(list, "null");
    list.longWord(1);
    word(list, "hierarchy"), list.bytes("VlLs");
    list.longWord(static_cast<std::uint32_t>(objects.size()));
    for (const std::string& each : objects) {
        const std::string name = each.substr(1);
        if (each[0] == '(')
            object(list, "Grup", &name);
        else
            object(list, each == "." ? "preset" : "groupEnd");
    }
    ByteWriter out;
    out.word(1);
    out.word(count);
    for (unsigned i = 0; i < count; ++i)
        out.bytes(std::string(10, '\0'));
    out.word(2);
    out.word(count);
    for (unsigned i = 0; i < count; ++i)
        out.bytes(std::string(10, '\0')), text(out, "");
    out.bytes("8BIMphry");
    out.longWord(static_cast<std::uint32_t>(list.text().size()));
    return out.text() + list.text();
}

Palette read(PaletteFormat format, std::string_view file) {
    return rulesOf(format).read({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}).palette;
}

std::vector<std::string> groups(std::string_view swatches) {
    std::vector<std::string> all;
    for (const PaletteColour& colour : read(PaletteFormat::aco, swatches).colours)
        all.push_back(colour.group);
    return all;
}

TEST(SharedNames, GroupsOfASwatchFileAreThoseThatItsHostAppended) {
    const std::vector<std::string> objects{".", "(Warm", ".", "(Deep", ".", ")",
                                           ".", ")",     "(", ".",     ")", ")"};
    EXPECT_THAT(groups(swatchFile(6, objects)), ElementsAre("", "Warm", "Warm/Deep", "Warm", "", ""))
        << "the last is not in the block";
    EXPECT_THAT(groups(swatchFile(1, objects)), ElementsAre(""));
}

TEST(SharedNames, ABlockOfGroupsThatIsBrokenChangesNoColour) {
    const std::string whole = swatchFile(2, {"(Warm", ".", ")", "."});
    const std::size_t block = whole.find("8BIM");
    for (std::size_t size = block; size < whole.size(); ++size)
        ASSERT_EQ(groups(std::string_view(whole).substr(0, size)).size(), 2u) << size;
    for (std::size_t i = block; i < whole.size(); ++i) {
        std::string broken = whole;
        for (const char value : {'\0', '\x7F', '\xFF'}) {
            broken[i] = value;
            ASSERT_EQ(groups(broken).size(), 2u) << i;
        }
    }
}

/// A long name, then so many colours that share it: a few hundred KB.
constexpr unsigned kMany = 3000;
const std::string kLong(30'000, 'g');

TEST(SharedNames, AFewBytesAskForNoMoreThanThereIs) {
    std::vector<std::string> objects(kMany + 1, ".");
    objects[0] = "(" + kLong;
    std::string tokens = "{\"" + kLong + "\":{";
    for (unsigned i = 0; i < kMany; ++i)
        tokens += "\"" + std::to_string(i) + "\":{\"$value\":\"#123\"},";
    tokens.back() = '}';
    ByteWriter exchange, book;
    exchange.bytes(std::string("ASEF\0\1\0\0\0\0\0\0", 12));
    exchange.word(0xC001), exchange.longWord(2 + 2 * 30'001), exchange.word(30'001);
    for (const char c : kLong)
        exchange.word(static_cast<unsigned char>(c));
    exchange.word(0);
    book.bytes(std::string("8BCB\0\1\0\0\0\0\0\0", 12));
    book.longWord(30'000);
    for (const char c : kLong)
        book.word(static_cast<unsigned char>(c));
    book.longWord(0), book.longWord(0), book.word(kMany), book.longWord(0), book.word(0);
    for (unsigned i = 0; i < kMany; ++i) {
        exchange.bytes(std::string("\0\1\0\0\0\x16\0\1\0\0RGB \0\0\0\0\0\0\0\0\0\0\0\0\0\2", 28));
        book.longWord(1), book.word('n'), book.bytes("KEY   abc");
    }
    for (const auto& [format, file] : {std::pair(PaletteFormat::aco, swatchFile(kMany, objects)),
                                       {PaletteFormat::tokens, tokens + "}"},
                                       {PaletteFormat::ase, exchange.text()},
                                       {PaletteFormat::acb, book.text()}})
        try {
            read(format, file);
            ADD_FAILURE() << rulesOf(format).word << " was read";
        } catch (const PaletteError& error) {
            EXPECT_STREQ(error.what(), "the names that its colors share are too long")
                << rulesOf(format).word;
        }
}

} // namespace
} // namespace chromalog
