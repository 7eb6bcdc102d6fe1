#include "swatches/search_knobs.h"

#include "swatches/list_fixture.h"

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SearchKnobsTest : public test::ListTest {
  public:
    void activateKnobs(CSwatchList& list, double hits) override {
        knobs.activateKnobs(&list == &swatch1 ? one : two, hits);
    }

  protected:
    void SetUp() override {
        ListTest::SetUp();
        one.searchField.connect(&field1);
        two.searchField.connect(&field2);
        one.hitStepper.connect(&step1);
        two.hitStepper.connect(&step2);
        one.found.connect(&label1);
        two.found.connect(&label2);
        knobs.observeFields();
        fill(swatch1, {test::swatch("Light Blue"), test::swatch("blue"), test::swatch("Blueberry")});
        fill(swatch2, {test::swatch("Blue"), test::swatch("Red")});
    }

    test::HeadlessTextField field1, field2, label1, label2;
    test::HeadlessStepper step1, step2;
    SearchKnobs knobs{platform, one, two};
};

TEST_F(SearchKnobsTest, SearchesAQuarterOfASecondAfterTheLastKeystroke) {
    field1.type("Bl");
    platform.advance(0.2);
    field1.type("Blue");
    platform.advance(0.24);
    EXPECT_THAT(swatch1.hits(), IsEmpty());
    platform.advance(0.02);
    EXPECT_THAT(swatch1.hits(), SizeIs(2));
    EXPECT_EQ(label1.text(), " 2 found");
    EXPECT_EQ(step1.minimum, 0);
    EXPECT_EQ(step1.maximum, 1);
    EXPECT_EQ(step1.increment, 1);
    EXPECT_TRUE(step1.wraps);
    EXPECT_TRUE(step1.enabled() && label1.enabled());
    EXPECT_EQ(swatch1.getSelected(), 0);
    EXPECT_THAT(platform.sounds, ElementsAre("Frog"));
}

TEST_F(SearchKnobsTest, NothingIsSearchedBeforeTheQuarterOfASecondIsOver) {
    field1.type("Blue"); // the timer starts
    platform.advance(0.2495);
    EXPECT_THAT(swatch1.hits(), IsEmpty());
    field1.type("blue"); // it is moved
    platform.advance(0.2495);
    EXPECT_THAT(swatch1.hits(), IsEmpty());
    platform.advance(0.001);
    EXPECT_THAT(swatch1.hits(), SizeIs(1));
}

TEST_F(SearchKnobsTest, TypingAgainAfterASearchSearchesAgain) {
    field1.type("Blue");
    platform.advance(1);
    field1.type("blue");
    platform.advance(1);
    EXPECT_EQ(label1.text(), " 1 found");
}

TEST_F(SearchKnobsTest, ThePendingTimerKeepsTheFieldThatItWasStartedFor) {
    field1.type("Blue");
    platform.advance(0.1);
    field2.type("Red");
    platform.advance(0.2);
    EXPECT_THAT(swatch1.hits(), IsEmpty()) << "the other field moved the fire date";
    platform.advance(0.1);
    EXPECT_THAT(swatch1.hits(), SizeIs(2));
    EXPECT_THAT(swatch2.hits(), IsEmpty());
    field2.type("Red");
    platform.advance(1);
    EXPECT_THAT(swatch2.hits(), SizeIs(1));
    EXPECT_EQ(label2.text(), " 1 found");
}

TEST_F(SearchKnobsTest, NoHitDisablesStepperAndLabel) {
    knobs.activateKnobs(one, 5);
    field1.type("green");
    platform.advance(1);
    EXPECT_FALSE(step1.enabled());
    EXPECT_FALSE(label1.enabled());
    EXPECT_EQ(label1.text(), " 0 found");
    EXPECT_EQ(step1.maximum, 4) << "the stepper keeps its range and value";
}

TEST_F(SearchKnobsTest, OneHitIsJumpedToWithTheStepperDisabled) {
    field2.type("Red");
    platform.advance(1);
    EXPECT_EQ(swatch2.getSelected(), 1);
    EXPECT_FALSE(step2.enabled());
    EXPECT_EQ(label2.text(), " 1 found");
}

TEST_F(SearchKnobsTest, OneHitIsMissedWhereTheStepperHoldsAnOlderValue) {
    field1.type("Blue");
    platform.advance(1);
    step1.current = 1;
    knobs.jump(one);
    EXPECT_EQ(swatch1.getSelected(), 2);
    platform.logLines.clear();
    field1.type("berry");
    platform.advance(1);
    EXPECT_EQ(swatch1.getSelected(), 2) << "nothing selected";
    EXPECT_EQ(swatch1.lastShown(), 1u);
    EXPECT_THAT(platform.logLines, SizeIs(1));
    EXPECT_EQ(label1.text(), " 1 found") << "the label as usual";
}

TEST_F(SearchKnobsTest, TheSteppersWalkTheirOwnLists) {
    field1.type("Blue");
    platform.advance(1);
    step1.current = 1;
    knobs.jump(one);
    EXPECT_EQ(swatch1.getSelected(), 2);
    fill(swatch2, {test::swatch("a"), test::swatch("a")});
    field2.type("a");
    platform.advance(1);
    step2.current = 1;
    knobs.jump(two);
    EXPECT_EQ(swatch2.getSelected(), 1);
    EXPECT_EQ(step2.maximum, 1);
}

TEST_F(SearchKnobsTest, ReturnGoesToTheNextHitRoundAndRound) {
    field1.type("Blue");
    platform.advance(1);
    field1.onReturn();
    EXPECT_EQ(swatch1.getSelected(), 2);
    EXPECT_EQ(step1.value(), 1);
    field1.onReturn();
    EXPECT_EQ(swatch1.getSelected(), 0);
    EXPECT_EQ(step1.value(), 0);
}

TEST_F(SearchKnobsTest, ReturnRunsASearchThatStillWaits) {
    field1.type("berry");
    field1.onReturn();
    EXPECT_EQ(swatch1.getSelected(), 2);
    swatch1.setSelectedColor(0);
    platform.advance(1);
    EXPECT_EQ(swatch1.getSelected(), 0) << "the timer is gone";
    field1.onReturn();
    EXPECT_EQ(swatch1.getSelected(), 2) << "the one hit again";
}

TEST_F(SearchKnobsTest, ReturnWithoutHitsDoesNothing) {
    field2.onReturn();
    EXPECT_THAT(platform.logLines, IsEmpty());
    EXPECT_THAT(platform.sounds, IsEmpty());
}

TEST_F(SearchKnobsTest, AFractionOfAHitIsCutOff) {
    knobs.activateKnobs(two, 1.9);
    EXPECT_EQ(label2.text(), " 1 found");
}

TEST_F(SearchKnobsTest, UnconnectedControlsDoNothing) {
    for (SwatchPanel* panel : {&one, &two}) {
        panel->searchField.connect(nullptr);
        panel->hitStepper.connect(nullptr);
        panel->found.connect(nullptr);
    }
    knobs.observeFields();
    for (SwatchPanel* panel : {&one, &two}) {
        knobs.searchTextDidChange(*panel);
        platform.advance(1);
        EXPECT_THAT(panel->view.hits(), IsEmpty());
        knobs.nextHit(*panel);
        knobs.activateKnobs(*panel, 3);
    }
    EXPECT_EQ(label1.text() + label2.text(), "");
}

TEST_F(SearchKnobsTest, UpAndDownGoFromHitToHit) {
    field1.type("Blue");
    platform.advance(1);
    field1.onStep(1);
    EXPECT_EQ(swatch1.getSelected(), 2);
    field1.onStep(1);
    EXPECT_EQ(swatch1.getSelected(), 0) << "round and round";
    field1.onStep(-1);
    EXPECT_EQ(swatch1.getSelected(), 2);
}

TEST_F(SearchKnobsTest, WhereHitsAreTakenReturnTakesTheOneThatShows) {
    std::vector<int> taken;
    knobs.takeHit = [&](SwatchPanel& panel) { taken.push_back(panel.view.getSelected()); };
    field1.type("Blue");
    field1.onReturn();
    EXPECT_THAT(taken, IsEmpty()) << "by itself a search goes on to the next hit";
    knobs.choose({.landing = true});
    field1.type("Blueb");
    field1.onReturn();
    EXPECT_THAT(taken, ElementsAre(2)) << "the search that waits runs first";
    swatch1.setSelectedColor(1);
    field1.onReturn();
    EXPECT_THAT(taken, ElementsAre(2, 2)) << "a press that went elsewhere is no hit";
    field1.type("nothing");
    field1.onReturn();
    EXPECT_THAT(taken, ElementsAre(2, 2));
}

TEST_F(SearchKnobsTest, WhereHitsAreTakenASingleOneIsNeverMissed) {
    step1.current = 5; // of an earlier search
    field1.type("Blueb");
    platform.advance(1);
    EXPECT_EQ(swatch1.getSelected(), 0);
    knobs.choose({.landing = true});
    EXPECT_EQ(swatch1.getSelected(), 2) << "searched anew";
}

TEST_F(SearchKnobsTest, ChoicesAreAskedForLateAndToldOnce) {
    int asked = 0;
    std::vector<SearchOptions> told;
    knobs.habits = [&] { return ++asked, SearchOptions{.hex = true}; };
    knobs.optionsChanged = [&](const SearchOptions& options) { told.push_back(options); };
    EXPECT_EQ(asked, 0);
    const MenuItems items = field1.menuItems.at(0)();
    EXPECT_EQ(asked, 1);
    ASSERT_THAT(items, SizeIs(5));
    EXPECT_EQ(items[2].action, "findByHex:");
    EXPECT_EQ(items[2].checked, true);
    EXPECT_EQ(items[0].checked, false);
    items[0].run();
    ASSERT_THAT(told, SizeIs(1));
    EXPECT_TRUE(told[0].ignoreCase && told[0].hex);
    EXPECT_EQ(field2.menuItems.at(0)()[0].checked, true) << "for both lists";
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace chromalog
