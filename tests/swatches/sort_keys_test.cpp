#include "spaces/ciede2000.h"
#include "swatches/list_fixture.h"
#include "swatches/sort_keys.h"

#include <numeric>

namespace chromalog {
namespace {

using Ints = std::vector<int>;
using test::swatch;

const std::vector<FCOStruct> kFive = {swatch("b", 65535, 0, 0),          // full red
                                      swatch("a", 20000, 20000, 20000),  // dark grey
                                      swatch("c", 40000, 30000, 30000),  // dull red
                                      swatch("B", -1, -1, -1),           // white, as Store writes it
                                      swatch("d", 65535, 52428, 52428)}; // pink
const Ints kAll = {0, 1, 2, 3, 4};

TEST(SortKeys, EachRisesAndKeepsEqualOnesInOrder) {
    const Colour black = Colour::rgb(0, 0, 0);
    EXPECT_EQ(sortedOrder(kFive, kAll, SortKey::name, black), (Ints{3, 1, 0, 2, 4})) << "capitals first";
    EXPECT_EQ(sortedOrder(kFive, kAll, SortKey::brightness, black), (Ints{1, 2, 0, 3, 4}));
    EXPECT_EQ(sortedOrder(kFive, kAll, SortKey::saturation, black), (Ints{1, 3, 4, 2, 0}));
    EXPECT_EQ(sortedOrder(kFive, kAll, SortKey::reversed, black), (Ints{4, 3, 2, 1, 0}));
}

TEST(SortKeys, DifferenceIsTheOneThatEyesSee) {
    const Colour red = Colour::rgb(1, 0, 0);
    const Ints order = sortedOrder(kFive, kAll, SortKey::difference, red);
    EXPECT_EQ(order.front(), 0);
    const Lab from = labOf(rgbOf(red));
    const auto difference = [&](int row) {
        const FCOStruct& r = kFive[static_cast<std::size_t>(row)];
        const auto part = [](std::int64_t v) { return static_cast<std::uint16_t>(v) / 65535.0; };
        return ciede2000(from, labOf(Rgb{part(r.SRed), part(r.SGreen), part(r.SBlue)}));
    };
    for (std::size_t i = 1; i < order.size(); ++i)
        EXPECT_LE(difference(order[i - 1]), difference(order[i]));
}

TEST(SortKeys, OnlyTheRowsThatAreAskedForTakePart) {
    EXPECT_EQ(sortedOrder(kFive, Ints{0, 2, 4}, SortKey::saturation, Colour()), (Ints{2, 1, 0}));
}

} // namespace
} // namespace chromalog
