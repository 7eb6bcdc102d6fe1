#include "swatches/nearest_display.h"

#include "swatches/list_fixture.h"
#include "swatches/nearest.h"

namespace chromalog {
namespace {

class NearestDisplayTest : public test::ListTest {
  protected:
    void SetUp() override {
        ListTest::SetUp();
        display.nearColor.connect(&well);
        display.nearName.connect(&name);
        display.baterieSwatch.connect(&level);
        Outlet<TextField>* outlets[] = {&display.near.R, &display.near.G, &display.near.B, &display.near.C,
                                        &display.near.M, &display.near.Y, &display.near.K};
        for (int i = 0; i < 7; ++i)
            outlets[i]->connect(&fields[i]);
    }
    std::vector<std::string> shown() const {
        std::vector<std::string> texts;
        for (const auto& field : fields)
            texts.push_back(field.text());
        return texts;
    }

    test::HeadlessColorWell well;
    test::HeadlessTextField name, fields[7];
    test::HeadlessLevelIndicator level;
    NearestDisplay display;
};

TEST_F(NearestDisplayTest, ShowsTheNearestSwatchWithItsValuesNameAndCloseness) {
    fill(swatch1, {test::swatch("far"), test::swatch("orange\x8E", 65535, 32896, 0)});
    display.getNearFco(swatch1, Colour::rgb(1, 32896 / 65535.0, 0), nullptr);
    EXPECT_EQ(shown(), (std::vector<std::string>{"255", "128", "0", "0", "49", "100", "100"}))
        << "without colour services the inks are the inverted values";
    EXPECT_EQ(name.text(), "orange\u00e9");
    EXPECT_EQ(level.value(), 10);
    EXPECT_EQ(well.color().green(), 32896 / 65535.0);
}

TEST_F(NearestDisplayTest, ClosenessFallsBelowZeroUnclamped) {
    fill(swatch1, {test::swatch("black")});
    display.getNearFco(swatch1, Colour::rgb(1, 1, 1), nullptr);
    EXPECT_LT(level.value(), 0);
    EXPECT_EQ(level.value(), static_cast<double>(closeness(
                                 nearestSwatch(swatch1.shownRecords(), Colour::rgb(1, 1, 1)).distance)));
}

TEST_F(NearestDisplayTest, AnEmptyListShowsItsRecord0) {
    data->swatchList1[0] = test::swatch("left over", 65535);
    display.getNearFco(swatch1, Colour(), nullptr);
    EXPECT_EQ(name.text(), "left over");
    EXPECT_EQ(fields[0].text(), "255");
    EXPECT_LT(level.value(), -1000);
}

TEST_F(NearestDisplayTest, OnlyList1IsAskedAndListChangesAreNotFollowed) {
    fill(swatch1, {test::swatch("one", 100)});
    fill(swatch2, {test::swatch("two", 500)});
    display.getNearFco(swatch1, colour(500, 0, 0), nullptr);
    EXPECT_EQ(name.text(), "one");
    fill(swatch1, {test::swatch("closer", 500)});
    EXPECT_EQ(name.text(), "one") << "until the second colour changes";
}

TEST_F(NearestDisplayTest, NegativeChannelsShowAsBlack) {
    fill(swatch1, {test::swatch("white once", -1, -1, -1)});
    display.getNearFco(swatch1, Colour(), nullptr);
    EXPECT_EQ(fields[0].text(), "0");
    EXPECT_EQ(well.color().red(), 0);
}

TEST_F(NearestDisplayTest, WithoutAListNothingIsShown) {
    swatch1.setSwatchList(nullptr);
    display.getNearFco(swatch1, Colour(), nullptr);
    EXPECT_EQ(name.text(), "");
    EXPECT_EQ(display.table().size(), 11u);
}

} // namespace
} // namespace chromalog
