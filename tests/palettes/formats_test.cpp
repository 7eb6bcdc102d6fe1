#include "palettes/fit_palette.h"
#include "palettes/formats/css_palette.h"
#include "palettes/palette_loss.h"
#include "palettes/swatch_palette.h"

#include <cmath>
#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::ElementsAre;

Rgb noInk(const PaletteComponents&) {
    return {};
}

Bytes bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

ReadPalette readAs(PaletteFormat format, std::string_view text) {
    return rulesOf(format).read(bytesOf(text));
}

std::string written(PaletteFormat format, const Palette& palette) {
    const auto file = rulesOf(format).write(fitPalette(palette, format, noInk).palette);
    return {file.begin(), file.end()};
}

PaletteColour inSpace(PaletteSpace space, PaletteComponents components, std::string name = {}) {
    PaletteColour colour;
    colour.name = std::move(name);
    colour.space = space;
    colour.components = components;
    return colour;
}

PaletteColour colour(std::string name, std::uint32_t rgb) {
    const Rgb c = rgbOfBytes(rgb);
    return inSpace(PaletteSpace::rgb, {c.red, c.green, c.blue}, std::move(name));
}

/// "name #rrggbb" of each.
std::vector<std::string> told(const Palette& palette) {
    std::vector<std::string> lines;
    for (const PaletteColour& c : palette.colours) {
        char hex[16];
        std::snprintf(hex, sizeof hex, "#%06x", static_cast<unsigned>(bytesOf(rgbOf(c, noInk))));
        lines.push_back((c.group.empty() ? "" : c.group + ": ") + c.name + " " + hex);
    }
    return lines;
}

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(AcoPalette, ComponentsAreThoseOfThePublishedFormat) {
    const auto read = readAs(PaletteFormat::aco, "\0\1\0\6"
                                                 "\0\0\xFF\xFF\x80\x80\0\0\0\0"
                                                 "\0\1\x80\0\xFF\xFF\xFF\xFF\0\0"
                                                 "\0\2\xFF\xFF\0\0\0\0\xFF\xFF"
                                                 "\0\7\x05\xDC\xFB\x50\xFB\x50\0\0"
                                                 "\0\x8\x03\xE8\0\0\0\0\0\0"
                                                 "\0\x9\x27\x10\0\0\x13\x88\0\0"sv);
    ASSERT_EQ(read.palette.colours.size(), 6u);
    const auto& c = read.palette.colours;
    EXPECT_THAT(c[0].components, ElementsAre(1, 128 / 255.0, 0, 0));
    EXPECT_EQ(c[1].space, PaletteSpace::hsb);
    EXPECT_DOUBLE_EQ(c[1].components[0], 0x8000 / 65535.0);
    EXPECT_EQ(c[2].space, PaletteSpace::cmyk);
    EXPECT_THAT(c[2].components, ElementsAre(0, 1, 1, 0)); // red: all magenta and yellow
    EXPECT_EQ(c[3].space, PaletteSpace::lab);
    EXPECT_THAT(c[3].components, ElementsAre(15, -12, -12, 0));
    EXPECT_EQ(c[4].space, PaletteSpace::gray);
    EXPECT_DOUBLE_EQ(c[4].components[0], 0.9); // a tenth of grey
    EXPECT_THAT(c[5].components, ElementsAre(1, 0, 0.5, 0));
}

TEST(AcoPalette, SpacesOfNoKnownBookAreUnread) {
    const auto read = readAs(PaletteFormat::aco, "\0\1\0\6"
                                                 "\0\6\0\0\0\0\0\0\0\0"
                                                 "\0\xB\0\0\0\0\0\0\0\0"
                                                 "\0\xC\0\0\0\0\0\0\0\0"
                                                 "\xB\xB7\0\0\0\0\0\0\0\0"
                                                 "\xB\xB8\0\0\0\0\0\0\0\0"
                                                 "\xFF\xFF\0\0\0\0\0\0\0\0"sv);
    std::vector<double> codes;
    for (const PaletteColour& c : read.palette.colours) {
        EXPECT_EQ(c.space, PaletteSpace::book);
        codes.push_back(c.components[0]);
    }
    EXPECT_THAT(codes, ElementsAre(6, 11, 3000, 65535));
    EXPECT_EQ(read.unread, 2u) << "12 and 2999";
}

TEST(AcoPalette, ComponentsBeyondTheirRangeAreClamped) {
    const auto read =
        readAs(PaletteFormat::aco, "\0\1\0\2\0\7\xFF\xFF\x80\0\x7F\xFF\0\0\0\x8\xFF\xFF\0\0\0\0\0\0"sv);
    ASSERT_EQ(read.palette.colours.size(), 2u);
    EXPECT_THAT(read.palette.colours[0].components, ElementsAre(100, -128, 127, 0));
    EXPECT_THAT(read.palette.colours[1].components, ElementsAre(0, 0, 0, 0));
}

TEST(AcoPalette, ASecondSectionNamesTheColours) {
    const auto read = readAs(PaletteFormat::aco, "\0\1\0\1\0\0\xFF\xFF\0\0\0\0\0\0"
                                                 "\0\2\0\1\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\3\1\x7C\0z\0\0"sv);
    EXPECT_THAT(told(read.palette), ElementsAre("\u017Cz #ff0000"));
}

TEST(AcoPalette, ANameWithoutItsTerminatorKeepsItsLastLetter) {
    const auto read = readAs(PaletteFormat::aco, "\0\2\0\1\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\4\0V\0o\0i\0d"sv);
    EXPECT_THAT(told(read.palette), ElementsAre("Void #ff0000"));
}

TEST(AcoPalette, WhereTheNamesEndEarlyTheFirstSectionCounts) {
    const auto read = readAs(PaletteFormat::aco, "\0\1\0\2\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\0\0\0\xFF\xFF\0\0"
                                                 "\0\2\0\3\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\2\0A\0\0\0\0"sv);
    EXPECT_THAT(told(read.palette), ElementsAre("A #ff0000", " #0000ff"));
    EXPECT_EQ(read.unread, 2u) << "the second one's name, and the third";
}

TEST(ActPalette, TheTransparentColourIsRead) {
    const std::string table(768, '\x40');
    const auto alphas = [&table](std::string_view tail) {
        std::vector<double> all;
        for (const PaletteColour& c : readAs(PaletteFormat::act, table + std::string(tail)).palette.colours)
            all.push_back(c.alpha);
        return all;
    };
    EXPECT_THAT(alphas("\0\3\0\1"sv), ElementsAre(1, 0, 1));
    EXPECT_THAT(alphas("\0\2\xFF\xFF"sv), ElementsAre(1, 1));
    EXPECT_THAT(alphas("\0\2\0\7"sv), ElementsAre(1, 1));
}

TEST(RiffPalette, SizesAndCountsStandLastByteFirst) {
    Palette palette;
    palette.colours = {colour("", 0xFF8000)};
    EXPECT_EQ(written(PaletteFormat::riff, palette), "RIFF\x14\0\0\0PAL data\x8\0\0\0\0\3\1\0\xFF\x80\0\0"sv);
}

TEST(RiffPalette, AnOddChunkBeforeTheColoursIsFollowedByAByteOfFilling) {
    const auto read =
        readAs(PaletteFormat::riff, "RIFF\x24\0\0\0PAL note\3\0\0\0abc\0data\x8\0\0\0\0\3\1\0\xFF\x80\0\0"s);
    EXPECT_THAT(told(read.palette), ElementsAre(testing::HasSubstr("#ff8000")));
}

TEST(HexPalette, CommentsAreNeitherColoursNorMissed) {
    const auto read = readAs(PaletteFormat::hex, "// a comment\n; another\n#ff8000 Orange\n"s);
    EXPECT_THAT(told(read.palette), ElementsAre("Orange #ff8000"));
    EXPECT_EQ(read.unread, 0u);
}

TEST(ActPalette, HoldsTwoHundredAndFiftySix) {
    Palette palette;
    palette.colours.resize(300);
    EXPECT_EQ(fitPalette(palette, PaletteFormat::act, nullptr).palette.colours.size(), 256u);
}

TEST(AcbPalette, NamesArePrefixNameAndPostfix) {
    const std::string text = "8BCB\0\1\0\0"s + "\0\0\0\x09\0$\0$\0$\0/\0t\0=\0B\0^\0R"s + "\0\0\0\2\0P\0 "s +
                             "\0\0\0\2\0 \0C"s + "\0\0\0\0\0\2\0\x9\0\0\0\x7"s + "\0\0\0\1\0\x37"s +
                             "KEY   \xFF\x80\x80"s + "\0\0\0\0      \0\0\0"s;
    const auto read = readAs(PaletteFormat::acb, text);
    EXPECT_EQ(read.palette.title, "B\u00AE");
    EXPECT_THAT(told(read.palette), ElementsAre("P 7 C #ffffff")); // the record without a name fills a page
    EXPECT_EQ(read.unread, 0u);
}

TEST(AsePalette, GroupsWithoutAnEndAndAWrongCountOfBlocksAreRead) {
    const auto read =
        readAs(PaletteFormat::ase, "ASEF\0\1\0\0\0\0\0\x63"
                                   "\xC0\1\0\0\0\6\0\2\0G\0\0"
                                   "\0\1\0\0\0\x18\0\2\0R\0\0RGB \x3F\x80\0\0\0\0\0\0\0\0\0\0\0\1"
                                   "\xC0\1\0\0\0\6\0\2\0H\0\0"
                                   "\0\1\0\0\0\x10\0\2\0W\0\0Gray\x3F\x80\0\0\0\2"
                                   "\0\1\0\0\0\x10\0\2\0X\0\0What\x3F\x80\0\0\0\2"sv);
    EXPECT_THAT(told(read.palette), ElementsAre("G: R #ff0000", "H: W #ffffff"));
    EXPECT_TRUE(read.palette.colours[0].isSpot);
    EXPECT_FALSE(read.palette.colours[1].isSpot);
    EXPECT_EQ(read.unread, 1u);
}

TEST(GplPalette, AFourthNumberBeginsTheName) {
    const auto read = readAs(
        PaletteFormat::gpl, "GIMP Palette\r\nName: Mine\r\nColumns: 4\r\n# 1 2 3\r\n  0 128 255\t7 up\r\n255 "
                            "0 0\r\n300 0 0 Latin \xFC\r\nnonsense\r\n");
    EXPECT_EQ(read.palette.title, "Mine");
    EXPECT_THAT(told(read.palette), ElementsAre("7 up #0080ff", " #ff0000", "Latin \u00FC #ff0000"));
    EXPECT_EQ(read.unread, 1u);
}

TEST(TextPalettes, AreReadAsTheirProgramsWriteThem) {
    EXPECT_THAT(told(readAs(PaletteFormat::jasc, "JASC-PAL\r\n0100\r\n2\r\n255 0 0\r\n0 0 255\r\n").palette),
                ElementsAre(" #ff0000", " #0000ff"));
    EXPECT_EQ(readAs(PaletteFormat::jasc, "JASC-PAL\n0100\n9\n255 0 0\n").unread, 8u);
    const auto paint = readAs(PaletteFormat::paintNet, "; comment\n80FF0000\nFF0000FF ; blue\n");
    EXPECT_THAT(told(paint.palette), ElementsAre(" #ff0000", " #0000ff"));
    EXPECT_DOUBLE_EQ(paint.palette.colours[0].alpha, 128 / 255.0);
    EXPECT_THAT(told(readAs(PaletteFormat::hex, "#f00 Red\n0000ff\n// no\n#00ff0080\tGreen \n?").palette),
                ElementsAre("Red #ff0000", " #0000ff", "Green #00ff00"));
    EXPECT_THAT(told(readAs(PaletteFormat::soc,
                            "<?xml version='1.0'?><o:color-table xmlns:o='o' xmlns:draw='d'>"
                            "<draw:color draw:name='A &amp; B' draw:color='#0000FF'/></o:color-table>")
                         .palette),
                ElementsAre("A & B #0000ff"));
}

TEST(CssPalette, TakesCustomPropertiesInAnyNotation) {
    const auto read =
        readAs(PaletteFormat::css, ":root { --a: #f00; /* --b: blue; */ --c: rgb(0 0 255);\n"
                                   "--gap: 4px; --d: hsl(120 100% 50%) !important }\n"
                                   "p { color: red; background: url('x;--e:red') }\n$f: lime !default;");
    EXPECT_THAT(told(read.palette), ElementsAre("a #ff0000", "c #0000ff", "d #00ff00", "f #00ff00"));
    EXPECT_EQ(read.unread, 0u);
}

TEST(CssPalette, NamesBecomeIdentifiersOfTheirOwn) {
    Palette palette;
    palette.colours = {colour("Sky blue!", 0x87CEEB), colour("Sky-blue", 0xFF), colour("", 0), colour("", 1)};
    EXPECT_EQ(written(PaletteFormat::css, palette),
              ":root {\n  --Sky-blue: #87ceeb;\n  --Sky-blue-2: #0000ff;\n"
              "  --color: #000000;\n  --color-2: #000001;\n}\n");
}

TEST(TokenPalette, ReadsGroupsTypesObjectsAndAliases) {
    const auto read = readAs(PaletteFormat::tokens, R"({
      "$description": "Mine",
      "brand": {"$type": "color",
        "red": {"$value": "#ff0000"},
        "deep": {"blue": {"$value": {"colorSpace": "srgb", "components": [0, 0, 1], "alpha": 0.5}}},
        "same": {"$value": "{brand.deep.blue}"}, "lost": {"$value": "{brand.nothing}"}},
      "gap": {"$type": "dimension", "$value": "4px"},
      "lab": {"$type": "color", "$value": {"colorSpace": "lab", "components": [100, 0, 0]}},
      "odd": {"$type": "color", "$value": {"colorSpace": "what", "components": [1], "hex": "#00ff00"}},
      "plain": "#123456", "list": ["#111111", "#222222"]})");
    EXPECT_EQ(read.palette.title, "Mine");
    EXPECT_THAT(told(read.palette), ElementsAre("brand: red #ff0000", "brand/deep: blue #0000ff",
                                                "brand: same #0000ff", "lab #ffffff", "odd #00ff00",
                                                "plain #123456", "list:  #111111", "list:  #222222"));
    EXPECT_EQ(read.palette.colours[1].alpha, 0.5);
    EXPECT_EQ(read.unread, 1u); // the alias that leads nowhere
}

TEST(TokenPalette, ObjectsOfAListHaveNoName) {
    const auto read =
        readAs(PaletteFormat::tokens, R"([{"a": "#ff0000", "b": "#00ff00"}, {"c": "#0000ff"}])");
    EXPECT_THAT(told(read.palette), ElementsAre("a #ff0000", "b #00ff00", "c #0000ff"));
}

TEST(AsePalette, NamesAndGroupsEndWhereTheirLengthsDo) {
    Palette palette;
    palette.colours = {colour(std::string(70'000, 'n'), 0xFF)};
    palette.colours[0].group = std::string(70'000, 'g');
    const FittedPalette fitted = fitPalette(palette, PaletteFormat::ase, noInk);
    EXPECT_EQ(fitted.palette.colours[0].name.size(), 65534u);
    const std::string file = written(PaletteFormat::ase, palette);
    EXPECT_TRUE(readAs(PaletteFormat::ase, file).palette == fitted.palette);
}

TEST(TokenPalette, AliasesInACircleLeadNowhere) {
    const auto read = readAs(PaletteFormat::tokens, R"({"a": {"$value": "{b}"}, "b": {"$value": "{a}"}})");
    EXPECT_TRUE(read.palette.colours.empty());
    EXPECT_EQ(read.unread, 2u);
}

TEST(SvgPalette, LabelsItsRectangles) {
    Palette palette;
    palette.colours = {colour("A & \"B\"", 0x336699), colour("", 0xFF)};
    const std::string sheet = written(PaletteFormat::svg, palette);
    EXPECT_THAT(sheet, testing::HasSubstr("<title>A &amp; &quot;B&quot;</title><rect x=\"8\" y=\"8\""));
    EXPECT_THAT(sheet, testing::HasSubstr("fill=\"#336699\""));
    EXPECT_THAT(sheet, testing::HasSubstr("<title>#0000ff</title>"));
}

TEST(FitPalette, LabOutsideSrgbComesInsideAndInkGoesToItsConverter) {
    const PaletteColour lab = inSpace(PaletteSpace::lab, {60, 127, 127});
    const Rgb rgb = rgbOf(lab, noInk);
    EXPECT_LE(std::max({rgb.red, rgb.green, rgb.blue}), 1);
    EXPECT_GE(std::min({rgb.red, rgb.green, rgb.blue}), 0);
    const PaletteColour ink = inSpace(PaletteSpace::cmyk, {0.25, 0, 0, 0});
    const auto convert = [](const PaletteComponents& c) { return Rgb{c[0], 2, std::nan("")}; };
    EXPECT_EQ(rgbOf(ink, convert), (Rgb{0.25, 1, 0}));
}

TEST(SwatchPalette, NamesAreComposedReplacedAndCut) {
    Palette palette;
    palette.colours = {colour("e\u0301te\u0301", 0), colour("\u00E9t\u00E9", 0),
                       colour("\u017B\U0001F308", 0), colour("a\nb \u0301", 0),
                       colour(std::string(300, 'n'), 0)};
    const FittedPalette fitted = fitSwatches(palette, 5000, noInk);
    std::vector<std::string> names;
    for (const PaletteColour& c : fitted.palette.colours)
        names.push_back(c.name);
    EXPECT_THAT(names, ElementsAre("\u00E9t\u00E9", "\u00E9t\u00E9", "Z??", "a b", std::string(255, 'n')));
    const PaletteLoss loss = lossOf(palette, fitted);
    EXPECT_EQ(loss.namesCut, 1u);
    EXPECT_EQ(loss.namesChanged, 3u);
}

TEST(SwatchPalette, AListComesBackAsItWas) {
    std::vector<FCOStruct> records(3), again(3);
    for (std::size_t i = 0; i < 3; ++i) {
        records[i].Namen[0] = 2;
        records[i].Namen[1] = 0x8E; // e with acute
        records[i].Namen[2] = static_cast<std::uint8_t>('0' + i);
        records[i].SRed = static_cast<std::int64_t>(21845 * i + 1);
    }
    const Palette palette = paletteOfSwatches(records, "List");
    const FittedPalette fitted = fitSwatches(palette, 5000, noInk);
    EXPECT_EQ(lossOf(palette, fitted), PaletteLoss());
    storeSwatches(fitted.palette, again, 0);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(nameBytes(again[i]), nameBytes(records[i]));
        EXPECT_EQ(again[i].SRed, records[i].SRed);
    }
    storeSwatches(fitted.palette, again, 2); // what finds no record is dropped
    EXPECT_EQ(again[2].SRed, records[0].SRed);
}

TEST(PaletteLoss, CountsEachKindAndSaysItInWords) {
    Palette before, after;
    before.title = "Mine";
    before.colours = {colour("one", 1), colour("two", 2), colour("three", 3), colour("four", 4)};
    before.colours[1].space = PaletteSpace::cmyk;
    before.colours[3].space = PaletteSpace::book;
    after.colours = {colour("tw", 2), colour("", 9)};
    after.colours[0].alpha = 0.5;
    const PaletteLoss loss = lossOf(before, {after, {1, 2}});
    EXPECT_THAT(
        lossLines(loss, "the host"),
        ElementsAre("1 color left out for want of room", "1 color left out: found in a color book only",
                    "1 color converted from CMYK to RGB by the host", "1 color rounded", "1 name lost",
                    "1 name cut short", "1 color with another alpha", "the palette's name is lost"));
    EXPECT_THAT(lossLines(lossOf(before, {{"Mine", {before.colours[2], before.colours[0]}}, {2, 0}}), ""),
                testing::Contains("2 colors in another order"));
    const Palette lab{{}, {inSpace(PaletteSpace::lab, {50, 0, 0})}};
    EXPECT_THAT(lossLines(lossOf(lab, {{{}, {colour("", 7)}}, {0}}), "the host"),
                ElementsAre("1 color converted from Lab to RGB by a formula"));
    EXPECT_TRUE(lossLines({}, "").empty());
}

TEST(PaletteFormat, ContentsCountAndTheExtensionOnlyHelps) {
    const auto of = [](std::string_view text, std::string_view path) {
        return formatOfContents(bytesOf(text), path);
    };
    EXPECT_EQ(of("GIMP Palette\n", "a.aco"), PaletteFormat::gpl);
    EXPECT_EQ(of("\xEF\xBB\xBF {}", "a.gpl"), PaletteFormat::tokens);
    EXPECT_EQ(of("FF112233\n", "a.txt"), PaletteFormat::paintNet);
    EXPECT_EQ(of("FF112233\n", "a.HEX"), PaletteFormat::hex);
    EXPECT_EQ(of(std::string(768, '\0'), ""), PaletteFormat::act);
    EXPECT_EQ(of("\0\1\0\x4C"s + std::string(764, '\0'), "a.aco"), PaletteFormat::aco);
    EXPECT_EQ(of("\0\1\0\x4C"s + std::string(764, '\0'), "a.act"), PaletteFormat::act);
    EXPECT_EQ(of("Dear all", "a.txt"), std::nullopt);
    EXPECT_EQ(of("\x7F\x45LF\1\2", "a.css"), std::nullopt);
    EXPECT_EQ(of("", ""), std::nullopt);
    EXPECT_EQ(formatOfExtension("/a.b/c.GPL"), PaletteFormat::gpl);
    EXPECT_EQ(formatOfExtension("/a.gpl/c"), std::nullopt);
}

} // namespace
} // namespace chromalog
