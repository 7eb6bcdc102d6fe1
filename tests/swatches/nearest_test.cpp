#include "swatches/nearest.h"

#include "swatches/list_fixture.h"

#include <cmath>
#include <cstring>
#include <random>

namespace chromalog {
namespace {

using test::swatch;

TEST(Nearest, TakesTheLowerIndexOfTwoThatAreEquallyFar) {
    const std::vector<FCOStruct> list{swatch("", 0, 0, 0), swatch("", 65535, 65535, 65535)};
    EXPECT_EQ(nearestSwatch(list, Colour::rgb(32768 / 65535.0, 32768 / 65535.0, 32768 / 65535.0)).index, 1);
    EXPECT_EQ(nearestSwatch(list, Colour::rgb(0.5, 0.5, 0.5)).index, 0);
}

TEST(Nearest, OfNoRecordsIsIndex0FarAway) {
    const NearestSwatch none = nearestSwatch({}, Colour());
    EXPECT_EQ(none.index, 0);
    EXPECT_NEAR(none.distance, 3'162'277.6, 0.3);
}

TEST(Nearest, NegativeChannelsEnterAsTheyAre) {
    const std::vector<FCOStruct> list{swatch("", -1, -1, -1)};
    EXPECT_FLOAT_EQ(nearestSwatch(list, Colour::rgb(1, 1, 1)).distance, std::sqrt(3.0F) * 65536);
}

TEST(Nearest, RecordsFartherThanTheStartingMinimumAreNotFound) {
    const std::vector<FCOStruct> list{swatch("", 1LL << 40), swatch("", INT64_MIN)};
    const NearestSwatch nearest = nearestSwatch(list, Colour());
    EXPECT_EQ(nearest.index, 0);
    EXPECT_NEAR(nearest.distance, 3'162'277.6, 0.3);
}

TEST(Nearest, AgreesBitForBitWithThePlainRuleOnRandomLists) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        std::vector<FCOStruct> list(1 + random() % 400);
        for (FCOStruct& record : list)
            record = swatch("", random() % 65536, random() % 65536,
                            static_cast<std::int64_t>(random() % 70'000) - 4000);
        const Colour target =
            Colour::rgb(random() / 4294967296.0, random() / 4294967296.0, random() / 4294967296.0);
        const float r = static_cast<float>(target.red() * 65535.0),
                    g = static_cast<float>(target.green() * 65535.0),
                    b = static_cast<float>(target.blue() * 65535.0);
        float best = 1e13F;
        int index = 0;
        for (std::size_t i = 0; i < list.size(); ++i) {
            const float x = r - static_cast<float>(list[i].SRed), y = g - static_cast<float>(list[i].SGreen),
                        z = b - static_cast<float>(list[i].SBlue);
            if (const float s = x * x + y * y + z * z; s < best) best = s, index = static_cast<int>(i);
        }
        const NearestSwatch nearest = nearestSwatch(list, target);
        const float distance = std::sqrt(best);
        EXPECT_EQ(nearest.index, index);
        EXPECT_EQ(std::memcmp(&nearest.distance, &distance, sizeof distance), 0);
    }
}

TEST(Nearest, ClosenessRunsFrom10Through0) {
    EXPECT_EQ(closeness(0), 10.0F);
    EXPECT_NEAR(closeness(28'377), 0, 0.001);
    EXPECT_LT(closeness(3'162'277.6F), -1000);
    EXPECT_EQ(closeness(1000), static_cast<float>(1000 / -1.732 / 65535.0 * 4.0 + 1.0) * 10.0F);
}

} // namespace
} // namespace chromalog
