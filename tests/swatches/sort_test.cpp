#include "swatches/sort.h"

#include "swatches/list_fixture.h"

#include <random>

namespace chromalog {
namespace {

using test::swatch;
using testing::ElementsAre;

std::vector<std::string> namesOf(const std::vector<FCOStruct>& list) {
    std::vector<std::string> names;
    for (const FCOStruct& record : list)
        names.emplace_back(nameBytes(record));
    return names;
}

TEST(Sort, ByNameComparesUnsignedBytesWithoutLocale) {
    std::vector<FCOStruct> list{swatch("apple"), swatch("\x80pple"), swatch("Zinc"), swatch(""),
                                swatch("Zin")};
    sortByName(list);
    EXPECT_THAT(namesOf(list), ElementsAre("", "Zin", "Zinc", "apple", "\x80pple"));
}

TEST(Sort, ByNameReadsToTheFirstZeroWhateverTheLengthSays) {
    std::vector<FCOStruct> list{swatch("bcd"), swatch("bb")};
    list[0].Namen[0] = 1; // still reads as "bcd"
    sortByName(list);
    EXPECT_EQ(list[0].Namen[2], 'b');
    std::vector<FCOStruct> full{swatch(std::string(255, 'a')), swatch(std::string(254, 'a'))};
    full[0].SRed = 0x61; // must not be read as a 256th character
    sortByName(full);
    EXPECT_EQ(full[0].Namen[0], 254);
}

TEST(Sort, ByNameTellsApartWhatDiffersBehindEightCharacters) {
    std::vector<FCOStruct> list{swatch("Pantone 300"), swatch("Pantone 30"), swatch("Pantone 3"),
                                swatch("Pantone ")};
    sortByName(list);
    EXPECT_THAT(namesOf(list), ElementsAre("Pantone ", "Pantone 3", "Pantone 30", "Pantone 300"));
}

TEST(Sort, ByHueKeepsRedAndGreyInOrderBeforeBlue) {
    std::vector<FCOStruct> list{swatch("blue", 0, 0, 65535), swatch("red", 65535),
                                swatch("grey", 9000, 9000, 9000)};
    sortByHue(list);
    EXPECT_THAT(namesOf(list), ElementsAre("red", "grey", "blue"));
}

TEST(Sort, HueReadsOddChannelsAsClampedComponents) {
    EXPECT_EQ(hueOf(swatch("", -1, -1, -1)), 0.0F);
    EXPECT_EQ(hueOf(swatch("", 0, 0, 1 << 20)), 240.0F / 360);
    EXPECT_EQ(hueOf(swatch("", 65535, 0, 32768)),
              static_cast<float>(Colour::rgb(1, 0, 32768 / 65535.0).hue()));
}

TEST(Sort, EmptyAndSingleListsStay) {
    std::vector<FCOStruct> none, one{swatch("a")};
    sortByName(none);
    sortByHue(none);
    sortByHue(one);
    EXPECT_THAT(namesOf(one), ElementsAre("a"));
}

/// The rule as it is stated: copies in a stable order of the key.
template <typename Less> std::vector<FCOStruct> plainlySorted(std::vector<FCOStruct> list, Less less) {
    std::stable_sort(list.begin(), list.end(), less);
    return list;
}

TEST(Sort, AgreesWithAPlainStableSortOnRandomLists) {
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        std::vector<FCOStruct> list(random() % 300);
        for (FCOStruct& record : list) {
            std::string name(random() % 12, ' ');
            for (char& c : name)
                c = "aAb\xC0 \0"[random() % 6];
            // A few values only, so that many keys are equal; MinRGB tells equal ones apart.
            record = swatch(name, random() % 4 * 20'000, random() % 4 * 20'000, random() % 4 * 20'000);
            record.MinRGB = &record - list.data();
        }
        const auto byName = plainlySorted(list, [](const FCOStruct& a, const FCOStruct& b) {
            return zeroTerminatedName(a) < zeroTerminatedName(b);
        });
        const auto byHue =
            plainlySorted(list, [](const FCOStruct& a, const FCOStruct& b) { return hueOf(a) < hueOf(b); });
        const auto same = [](const FCOStruct& a, const FCOStruct& b) {
            return std::memcmp(&a, &b, sizeof a) == 0;
        };
        auto sorted = list;
        sortByName(sorted);
        EXPECT_TRUE(std::equal(sorted.begin(), sorted.end(), byName.begin(), same));
        sorted = list;
        sortByHue(sorted);
        EXPECT_TRUE(std::equal(sorted.begin(), sorted.end(), byHue.begin(), same));
    }
}

} // namespace
} // namespace chromalog
