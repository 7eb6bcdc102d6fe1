#include "swatches/list_fixture.h"

namespace chromalog {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ListQueries : public test::ListTest {
  protected:
    void SetUp() override {
        ListTest::SetUp();
        fill(swatch1, {test::swatch("Light Blue"), test::swatch("blue"), test::swatch("Blueberry")});
    }
};

TEST_F(ListQueries, SortingKeepsCountAndSelectionAndRedisplays) {
    swatch1.setSelectedColor(1);
    host1.redisplays = 0;
    swatch1.sortSwatchList("nom");
    EXPECT_THAT(names(swatch1), ElementsAre("Blueberry", "Light Blue", "blue"));
    EXPECT_EQ(swatch1.getSelected(), 1);
    EXPECT_EQ(host1.redisplays, 1);
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(ListQueries, SortingLeavesRecordsPastTheCountAndHoldsAnOverstatedOne) {
    data->swatchList1[3] = test::swatch("AAA");
    swatch1.sortSwatchList("nom");
    EXPECT_EQ(nameBytes(data->swatchList1[3]), "AAA");
    data->swatchList2[0] = test::swatch("guard");
    swatch1.setNumberOfColors(30'000);
    swatch1.sortSwatchList("color");
    swatch1.setNumberOfColors(-30'000);
    swatch1.sortSwatchList("nom");
    EXPECT_EQ(nameBytes(data->swatchList2[0]), "guard");
}

TEST_F(ListQueries, AnUnknownKeySortsNothing) {
    swatch1.sortSwatchList("position");
    EXPECT_THAT(names(swatch1), ElementsAre("Light Blue", "blue", "Blueberry"));
}

TEST_F(ListQueries, ASearchKeepsItsHitsInListOrderAndTellsTheirNumber) {
    swatch1.queryForColorsByName("Blue");
    ASSERT_THAT(swatch1.hits(), SizeIs(2));
    EXPECT_EQ(swatch1.hits()[0].position, 0);
    EXPECT_EQ(swatch1.hits()[1].position, 2);
    EXPECT_EQ(swatch1.hits()[1].scrollValue, static_cast<double>(2.0F / 3.0F));
    EXPECT_THAT(knobs, ElementsAre(std::pair(1, 2.0)));
    EXPECT_EQ(swatch1.direction(), 1);
    swatch1.queryForColorsByName("");
    EXPECT_THAT(swatch1.hits(), IsEmpty());
    EXPECT_THAT(knobs.back(), std::pair(1, 0.0));
}

TEST_F(ListQueries, AJumpSelectsAndScrollsButLeavesTheFirstColour) {
    swatch1.queryForColorsByName("Blue");
    host1.redisplays = 0;
    swatch1.jumpToColor(1);
    EXPECT_EQ(swatch1.getSelected(), 2);
    EXPECT_EQ(scroller1.verticalScroller(), static_cast<double>(2.0F / 3.0F));
    EXPECT_EQ(scroller1.scrolledTo, (Point{0, static_cast<double>(2.0F / 3.0F) * swatch1.bounds().h}));
    EXPECT_EQ(scroller1.redisplays, 1);
    EXPECT_EQ(host1.redisplays, 1);
    EXPECT_THAT(platform.logLines, Contains("ScrollValue : ,0.666667"));
    EXPECT_THAT(firstColors, IsEmpty());
}

TEST_F(ListQueries, TheFrogMarksEveryChangeOfDirectionAndTheFirstJump) {
    fillNumbered(swatch1, 30);
    swatch1.queryForColorsByName("1"); // twelve hits: 1, 10..19, 21
    const std::pair<int, std::size_t> steps[] = {{0, 1}, {1, 1},  {2, 1}, {1, 2},
                                                 {0, 2}, {11, 3}, {0, 4}, {0, 5}};
    for (const auto& [hit, sounds] : steps) {
        swatch1.jumpToColor(hit);
        EXPECT_THAT(platform.sounds, SizeIs(sounds)) << hit;
    }
    EXPECT_EQ(platform.sounds[0], "Frog");
}

TEST_F(ListQueries, AJumpPastTheHitsSoundsCountsAndLogsOnceButSelectsNothing) {
    swatch1.queryForColorsByName("berry");
    swatch1.setSelectedColor(1);
    platform.logLines.clear();
    for (const std::int64_t hit : {std::int64_t{4}, std::int64_t{1}})
        swatch1.jumpToColor(hit);
    EXPECT_EQ(swatch1.lastShown(), 1u);
    EXPECT_EQ(swatch1.direction(), 1);
    EXPECT_THAT(platform.sounds, SizeIs(2));
    EXPECT_THAT(platform.logLines, SizeIs(2));
    EXPECT_EQ(swatch1.getSelected(), 1);
    EXPECT_EQ(scroller1.redisplays, 0);
}

TEST_F(ListQueries, HitsStandWhenTheListChangesAndStayInsideTheArray) {
    fillNumbered(swatch1, 3);
    swatch1.queryForColorsByName("2");
    swatch1.setNumberOfColors(0);
    swatch1.jumpToColor(0);
    EXPECT_EQ(swatch1.getSelected(), 2) << "past the count now";
}

TEST_F(ListQueries, ASearchInList2EndsTheNamesOfList1) {
    data->swatchList1[0].Namen[0] = 5;
    fill(swatch2, {test::swatch("any")});
    swatch2.queryForColorsByName("any");
    EXPECT_EQ(data->swatchList1[0].Namen[6], 0);
    EXPECT_THAT(knobs, ElementsAre(std::pair(2, 1.0)));
}

TEST_F(ListQueries, TheNearestOfAnEmptyListIsIndex0) {
    float distance = 0;
    swatch1.setNumberOfColors(0);
    EXPECT_EQ(swatch1.getNearColor(Colour(), distance), 0);
    EXPECT_NEAR(distance, 3'162'277.6, 0.3);
    fillNumbered(swatch1, 9);
    EXPECT_EQ(swatch1.getNearColor(colour(404, 3, 0), distance), 4);
    EXPECT_FLOAT_EQ(distance, 5);
}

} // namespace
} // namespace chromalog
