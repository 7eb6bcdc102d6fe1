#include "spaces/colour_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <span>

namespace chromalog {
namespace {

using Strings = std::vector<std::string>;

/// Each colour as "name=rrggbb".
Strings read(std::string_view text, std::size_t limit = 5000) {
    Strings colours;
    for (const auto& [name, colour] : readColourTexts(text, limit)) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "%06x", bytesOf(colour.rgb));
        colours.push_back(name + "=" + hex);
    }
    return colours;
}

struct Paste {
    std::string_view text;
    Strings colours;
};

void expectPastes(std::span<const Paste> table) {
    for (const auto& [text, colours] : table)
        EXPECT_EQ(read(text), colours) << text;
}

TEST(ColourTexts, NamesStandBeforeOrAfter) {
    const Paste table[] = {
        {"Sky: #87ceeb", {"Sky=87ceeb"}},
        {"Sky blue #87ceeb", {"Sky blue=87ceeb"}},
        {"#87ceeb Sky blue", {"Sky blue=87ceeb"}},
        {"#87ceeb\tSky blue", {"Sky blue=87ceeb"}},
        {"- Sky: #87ceeb", {"Sky=87ceeb"}},
        {"\xE2\x80\xA2 Sky \xE2\x80\x94 #87ceeb", {"Sky=87ceeb"}},
        {"* #87ceeb - Sky", {"Sky=87ceeb"}},
        {"| Sky | #87ceeb |", {"Sky=87ceeb"}},
        {"Sky = #87ceeb", {"Sky=87ceeb"}},
        {"Sky rgb(135, 206, 235)", {"Sky=87ceeb"}},
        {"rgb(135 206 235) Sky", {"Sky=87ceeb"}},
        {"Sky oklch(50% 0 0) old", {"Sky=636363"}},
        {"Green, dark: #005500", {"Green, dark=005500"}},
        {"Red (warm, old): #a00", {"Red (warm, old)=aa0000"}},
        {"Gr\xC3\xBCn #0a0", {"Gr\xC3\xBCn=00aa00"}},
        {"87ceeb Sky", {"Sky=87ceeb"}},
        {"Sky 87CEEB", {"Sky=87ceeb"}},
        {"ffffff White", {"White=ffffff"}},
        {"a\x01z #87ceeb", {"a z=87ceeb"}},
    };
    expectPastes(table);
}

TEST(ColourTexts, ManyLinesAreManyColours) {
    EXPECT_EQ(read("Sky: #87ceeb\r\nNight: #000033\n\n  #fff\r#eee Snow"),
              (Strings{"Sky=87ceeb", "Night=000033", "=ffffff", "Snow=eeeeee"}));
}

TEST(ColourTexts, DeclarationsAreNamedByTheirProperty) {
    const Paste table[] = {
        {"--brand-blue: #36c; /* main */", {"brand-blue=3366cc"}},
        {"$sky: #87ceeb;", {"sky=87ceeb"}},
        {"color: red; background: #0f0", {"color=ff0000", "background=00ff00"}},
        {".a { color: red; }", {"color=ff0000"}},
        {".a{color:#f00;background:#0f0}", {"color=ff0000", "background=00ff00"}},
        {"\"sky\": \"#87ceeb\",", {"sky=87ceeb"}},
        {"  50: '#f0f9ff', 100: '#e0f2fe',", {"50=f0f9ff", "100=e0f2fe"}},
        {"{\"sky\": \"#87ceeb\", \"night\": \"navy\"}", {"sky=87ceeb", "night=000080"}},
        {":root { --a: rgb(1, 2, 3); --b: hsl(0 0% 100%) }", {"a=010203", "b=ffffff"}},
        {"border: 1px solid #36c;", {"border: 1px solid=3366cc"}},
    };
    expectPastes(table);
}

TEST(ColourTexts, ListsAreTakenWhole) {
    const Paste table[] = {
        {"#f00, #0f0, blue", {"=ff0000", "=00ff00", "blue=0000ff"}},
        {"#f00 #0f0 #00f", {"=ff0000", "=00ff00", "=0000ff"}},
        {"#f00,#0f0;#00f", {"=ff0000", "=00ff00", "=0000ff"}},
        {"['#f00', \"#0f0\"]", {"=ff0000", "=00ff00"}},
        {"red, rgb(1, 2, 3)", {"red=ff0000", "=010203"}},
        {"rgb(1, 2, 3), rgb(4, 5, 6)", {"=010203", "=040506"}},
        {"ff0000 00ff00 0000ff", {"=ff0000", "=00ff00", "=0000ff"}},
        {"ff0000,00ff00", {"=ff0000", "=00ff00"}},
        {"red blue", {"red=ff0000", "blue=0000ff"}},
        {"Tomato", {"Tomato=ff6347"}},
        {"#f00 Red, #0f0 Green", {"Red=ff0000", "Green=00ff00"}},
        {"Red #f00, Green #0f0", {"Red=ff0000", "Green=00ff00"}},
        {"linear-gradient(#f00, #0f0)", {"linear-gradient=ff0000", "=00ff00"}},
    };
    expectPastes(table);
}

TEST(ColourTexts, ProseHasNoColours) {
    for (const std::string_view text :
         {"", "The red car.", "A new facade", "decade by decade", "ticket #12345 is open",
          "&#123; is an entity", "no colour here", "rgb(1, 2)", "C# and F#", "call(me) later", "#deadbeefs",
          "####", "10, 20, 30"})
        EXPECT_THAT(read(text), testing::IsEmpty()) << text;
}

TEST(ColourTexts, AlphaAndWideGamutsAreKept) {
    const auto colours = readColourTexts("Glass: #87ceeb80\nWide: oklch(70% 0.35 150)", 10);
    ASSERT_EQ(colours.size(), 2u);
    EXPECT_EQ(byteOf(colours[0].colour.alpha), 0x80u);
    EXPECT_TRUE(colours[1].colour.mapped);
}

TEST(ColourTexts, TheLimitIsKept) {
    EXPECT_EQ(read("#111, #222, #333\n#444", 2), (Strings{"=111111", "=222222"}));
    EXPECT_THAT(read("#111", 0), testing::IsEmpty());
    std::string lines;
    for (int i = 0; i < 6000; ++i)
        lines += "Colour " + std::to_string(i) + ": #123456\n";
    EXPECT_EQ(read(lines).size(), 5000u);
    EXPECT_EQ(read(lines).back(), "Colour 4999=123456");
}

TEST(ColourTexts, OfALineTheFirstMegabyteIsRead) {
    const std::string line = "#111" + std::string((1 << 20) - 5, ' ') + ",#222";
    EXPECT_EQ(read(line + "\n#333"), (Strings{"=111111", "=333333"}));
}

TEST(ColourTexts, ALongHostileTextEnds) {
    for (const std::string_view part :
         {"#", "(", "rgb(", "a:", ",", "#abc", "abc ", "{", "\xE2\x80\xA2", "a(#", "\"-"}) {
        std::string text;
        while (text.size() < 2'000'000)
            text += part;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_LE(readColourTexts(text, 5000).size(), 5000u) << part;
        // Hundreds of times what it takes; growing with the square it would be hours.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << part;
    }
}

} // namespace
} // namespace chromalog
