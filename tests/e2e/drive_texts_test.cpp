// Colours as texts: typed, copied and pasted, by scripts.
#include "e2e/driven_pick.h"

namespace chromalog::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::EndsWith;

using DrivenTexts = DrivenPick;

TEST_F(DrivenTexts, AHexCodeIsTypedInOneAction) {
    playWell("type firstHex ' #336699; '\nstate $/typed.json\n"
             "type secondHex TEAL\nkey Return\nstate $/state.json\n",
             {"--color", "#3366cc"});
    const json typed = state("typed.json"), now = state();
    EXPECT_EQ(typed["firstColor"], json({0.2, 0.4, 0.6, 1.0}));
    EXPECT_EQ(typed["outlets"]["firstHex"]["text"], " #336699; ") << "as typed while it is typed in";
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], "#336699");
    EXPECT_EQ(now["outlets"]["secondHex"]["text"], "#008080");
    EXPECT_EQ(now["outlets"]["secondG"]["text"], "128");
    EXPECT_EQ(now["undoNames"], json::array()) << "a colour is no step";
}

TEST_F(DrivenTexts, AClickIntoAHexFieldSelectsItAll) {
    playWell("click firstHex 10 10\nkey f\nkey 0\nkey 0\nstate $/state.json\n");
    EXPECT_EQ(state()["outlets"]["firstHex"]["text"], "f00");
    EXPECT_EQ(state()["firstColor"], json({1.0, 0.0, 0.0, 1.0}));
}

TEST_F(DrivenTexts, ATextThatIsNoColourIsMarkedAndChangesNothing) {
    playWell("state $/before.json\ntype firstHex '#12'\ntype secondInks '60 20 0'\nstate $/state.json\n"
             "key Return\nstate $/after.json\n");
    const json before = state("before.json"), now = state(), after = state("after.json");
    EXPECT_EQ(now["secondColor"], before["secondColor"]);
    EXPECT_EQ(now["firstColor"], before["firstColor"]);
    EXPECT_FALSE(now["outlets"]["firstHex"].contains("fault")) << "left: it shows the colour again";
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], "#e54c19");
    EXPECT_TRUE(now["outlets"]["secondInks"].contains("fault"));
    EXPECT_FALSE(after["outlets"]["secondInks"].contains("fault"));
    EXPECT_EQ(after["outlets"]["secondInks"]["text"], before["outlets"]["secondInks"]["text"]);
}

TEST_F(DrivenTexts, FourInksAreOneEntryOfTheRightColour) {
    playWell("type firstInks '60 20 0 10'\ntype secondInks '60 20 0 10'\nstate $/state.json\n");
    const json now = state();
    EXPECT_EQ(now["outlets"]["secondInks"]["text"], "60 20 0 10");
    EXPECT_EQ(now["outlets"]["firstInks"]["text"], "60 20 0 10");
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], now["outlets"]["secondHex"]["text"]) << "one rule";
    for (const char* ink : {"C", "M", "Y", "K"})
        EXPECT_EQ(now["outlets"][std::string("first") + ink]["text"],
                  now["outlets"][std::string("second") + ink]["text"]);
}

TEST_F(DrivenTexts, TypedInksGiveWhatTheHostMakesOfThem) {
    // (100 - 60) x 2.55 = 102, and so on: bytes that the host takes for an offered colour as well.
    playWell("type firstInks '60 20 0 10'\nstate $/typed.json\n");
    playWell("state $/offered.json\n", {"--color", "cmyk:26214,52428,65535,58853"});
    for (int i = 0; i < 3; ++i)
        EXPECT_THAT(state("typed.json")["firstColor"][i].get<double>(),
                    DoubleNear(state("offered.json")["secondColor"][i], 1e-6));
}

TEST_F(DrivenTexts, AReadingIsChosenAndTyped) {
    playWell("press secondReading\npress readHsl:\ntype secondEntry '210 50% 40%'\nstate $/state.json\n");
    EXPECT_EQ(state()["outlets"]["secondHex"]["text"], "#336699");
    EXPECT_EQ(state()["outlets"]["secondReading"]["title"], "HSL");
    EXPECT_TRUE(state()["outlets"]["secondInks"]["hidden"]);
    const auto result = play("type secondEntry '210 50% 40%'\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, EndsWith("script:1: secondEntry is not on the screen\n"));
}

} // namespace
} // namespace chromalog::test
