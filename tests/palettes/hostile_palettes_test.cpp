#include "palettes/component_codes.h"
#include "palettes/fit_palette.h"
#include "palettes/random_palettes.h"

#include <gtest/gtest.h>
#include <limits>

namespace chromalog {
namespace {

/// Reads as a person's file would be, whatever it says it is; the colours that came of it.
std::size_t colours(const PaletteFormatRules& rules, Bytes file) {
    try {
        return rules.read(file).palette.colours.size();
    } catch (const PaletteError&) {
        return 0;
    }
}

Bytes bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::vector<std::uint8_t> sample(const PaletteFormatRules& rules) {
    std::mt19937 random(3);
    Palette palette;
    for (int i = 0; i < 12; ++i)
        palette.colours.push_back(test::randomColour(random, PaletteSpace::rgb));
    const auto noInk = [](const PaletteComponents&) { return Rgb(); };
    return rules.write(fitPalette(palette, rules.format, noInk).palette);
}

template <typename Check> void forEachReader(const Check& check) {
    for (const PaletteFormatRules& rules : paletteFormats())
        if (rules.read) check(rules);
}

TEST(HostilePalettes, RealsThatAreNoNumbersAreNothing) {
    const float none = std::numeric_limits<float>::quiet_NaN(), far = std::numeric_limits<float>::infinity();
    for (const PaletteSpace space : {PaletteSpace::rgb, PaletteSpace::lab}) {
        PaletteColour colour;
        colour.space = space;
        takeAseReals({none, far, -far, 0}, colour);
        EXPECT_EQ(colour.components, PaletteComponents{});
    }
}

TEST(HostilePalettes, EndAtEveryByte) {
    forEachReader([](const PaletteFormatRules& rules) {
        const auto file = sample(rules);
        std::size_t whole = colours(rules, file);
        EXPECT_EQ(whole, 12u) << rules.word;
        if (rules.format == PaletteFormat::act) whole = 256; // a table without its count is full
        for (std::size_t size = 0; size < file.size(); ++size)
            ASSERT_LE(colours(rules, Bytes(file).first(size)), whole) << rules.word << " of " << size;
    });
}

TEST(HostilePalettes, EveryByteAtItsEnds) {
    forEachReader([](const PaletteFormatRules& rules) {
        auto file = sample(rules);
        for (std::size_t i = 0; i < std::min<std::size_t>(file.size(), 2000); ++i)
            for (const int value : {0x00, 0x7F, 0x80, 0xFF}) {
                const auto before = std::exchange(file[i], static_cast<std::uint8_t>(value));
                ASSERT_LE(colours(rules, file), 256u) << rules.word << ", byte " << i;
                file[i] = before;
            }
    });
}

TEST(HostilePalettes, CountsPromiseMoreThanThereIs) {
    using namespace std::string_view_literals;
    const auto unread = [](PaletteFormat format, std::string_view text) {
        return rulesOf(format).read(bytesOf(text)).unread;
    };
    EXPECT_EQ(unread(PaletteFormat::aco, "\0\2\xFF\xFF"sv), 65535u);
    EXPECT_EQ(unread(PaletteFormat::aco, "\0\2\0\1\0\0\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\0A"sv),
              0u); // the name ends with the file
    EXPECT_EQ(unread(PaletteFormat::riff, "RIFF\xFF\xFF\xFF\xFFPAL data\xFF\xFF\xFF\xFF\0\3\xFF\xFF"sv),
              65535u);
    EXPECT_THROW(unread(PaletteFormat::acb, "8BCB\0\1\0\0\xFF\xFF\xFF\xFF\0A"sv), PaletteError);
}

TEST(HostilePalettes, AFileOfNoneOfTheKindsIsRefused) {
    using F = PaletteFormat;
    for (const F format : {F::aco, F::acb, F::ase, F::gpl, F::act, F::jasc, F::riff, F::soc, F::tokens})
        EXPECT_THROW(rulesOf(format).read(bytesOf("Colours\n0 128 255 Blue\n")), PaletteError)
            << rulesOf(format).word;
}

TEST(HostilePalettes, JsonTenThousandDeepIsRefused) {
    std::string objects, arrays(10'000, '[');
    for (int i = 0; i < 10'000; ++i)
        objects += "{\"a\":";
    for (const std::string& text : {objects, arrays})
        try {
            rulesOf(PaletteFormat::tokens).read(bytesOf(text));
            ADD_FAILURE() << "it was read";
        } catch (const PaletteError& error) {
            EXPECT_STREQ(error.what(), "this JSON file is nested too deeply");
        }
}

TEST(HostilePalettes, EntitiesOfXmlAreRefused) {
    std::string bomb = "<!DOCTYPE t [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 10; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " '" + before + before + before + before + "'>";
    }
    bomb += "]><t:color-table xmlns:t='t' xmlns:draw='d'><draw:color draw:name='&a9;' "
            "draw:color='#000000'/></t:color-table>";
    const std::string file =
        "<!DOCTYPE t [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><t:color-table>&a;</t:color-table>";
    for (const std::string& text : {bomb, file})
        try {
            rulesOf(PaletteFormat::soc).read(bytesOf(text));
            ADD_FAILURE() << "it was read";
        } catch (const PaletteError& error) {
            EXPECT_STREQ(error.what(), "this XML file declares entities of its own");
        }
}

TEST(HostilePalettes, TooManyColoursAreRefused) {
    std::string text;
    for (int i = 0; i < 65'536; ++i)
        text += "#000\n";
    EXPECT_THROW(rulesOf(PaletteFormat::hex).read(bytesOf(text)), PaletteError);
    text.resize(text.size() - 5);
    EXPECT_EQ(colours(rulesOf(PaletteFormat::hex), bytesOf(text)), 65'535u);
}

} // namespace
} // namespace chromalog
