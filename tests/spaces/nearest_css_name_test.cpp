#include "base/css_names.h"
#include "random_colours.h"
#include "spaces/ciede2000.h"
#include "spaces/nearest_css_name.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace chromalog {
namespace {

std::uint32_t bytesOfName(std::string_view name) {
    return std::ranges::lower_bound(kCssColours, name, {}, &CssColour::name)->rgb;
}

TEST(NearestCssName, EveryNamedColourIsItsOwn) {
    for (const auto& [name, rgb] : kCssColours)
        EXPECT_EQ(bytesOfName(nearestCssName(rgbOfBytes(rgb))), rgb) << name;
    EXPECT_EQ(nearestCssName(rgbOfBytes(0x00FFFF)), "aqua"); // the first of aqua and cyan
    EXPECT_EQ(nearestCssName(rgbOfBytes(0x808080)), "gray");
}

TEST(NearestCssName, NoOtherIsNearer) {
    RandomColours random(9);
    for (int i = 0; i < 500; ++i) {
        const Lab lab = labOf(random.rgb());
        const double found = ciede2000(lab, labOf(rgbOfBytes(bytesOfName(nearestCssName(lab)))));
        for (const auto& [name, rgb] : kCssColours)
            EXPECT_LE(found, ciede2000(lab, labOf(rgbOfBytes(rgb)))) << name;
    }
}

TEST(NearestCssName, IsWhatAPersonWouldSay) {
    EXPECT_EQ(nearestCssName(rgbOfBytes(0xFF0101)), "red");
    EXPECT_EQ(nearestCssName(rgbOfBytes(0x010203)), "black");
    EXPECT_EQ(nearestCssName(rgbOfBytes(0xFDA400)), "orange");
}

} // namespace
} // namespace chromalog
