// Print jobs that a script sends to PDF files.
#include "e2e/driven_pick.h"
#include "support/swatch_files.h"

namespace chromalog::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class DrivePrint : public DrivenPick {
  protected:
    DrivePrint() {
        FileBuilder builder;
        builder.header(2, 100);
        for (int i = 0; i < 100; ++i)
            builder.colour(0, i * 500, 0, 65535 - i * 500).name("Swatch " + std::to_string(i));
        write("hundred.aco", builder.bytes);
    }

    std::string contents(const std::string& name) const {
        std::ifstream in(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string textOf(const std::string& pdf) const {
        const auto result = runProgram({"pdftotext", "-raw", file(pdf), "-"});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return result.out;
    }
};

TEST_F(DrivePrint, AListGoesToTheNamedFileWithTheOptionsOfTheDialog) {
    playWell(
        "choose $/hundred.aco\npress loadSwatch1:\npaper Letter\nprint $/list.pdf\npress printFirstSwatch:\n"
        "state $/before.json\nset NameCheck 1\nstate $/ticked.json\nok\nstate $/after.json\n");
    const auto before = state("before.json"), ticked = state("ticked.json"), after = state("after.json");
    EXPECT_EQ(before["outlets"]["buttonMatrix"]["value"], 0);
    EXPECT_EQ(before["outlets"]["buttonMatrix"]["title"], "Small");
    EXPECT_EQ(before["outlets"]["NameCheck"]["value"], 0);
    EXPECT_EQ(ticked["printName"], 1) << "every change is written through at once";
    EXPECT_EQ(after["printName"], 1);
    EXPECT_FALSE(after["outlets"].contains("buttonMatrix")) << "the options dialog is gone";
    EXPECT_EQ(after["printInfo"],
              (json{{"paper", {612.0, 792.0}}, {"margins", {36.0, 36.0, 36.0, 36.0}}, {"scale", 1.0}}));
    EXPECT_THAT(contents("list.pdf"), StartsWith("%PDF-"));
    EXPECT_THAT(textOf("list.pdf"), HasSubstr("Swatch 75"));
    EXPECT_THAT(textOf("list.pdf"), HasSubstr("page 1/2"));
}

TEST_F(DrivePrint, APictureShowsTheOptionsAboveTheDialog) {
    playWell("paper 100x100\nshot $/before.png\npress printFirstSwatch:\nshot $/options.png\nok\nanswer\n");
    EXPECT_THAT(contents("options.png"), StartsWith("\x89PNG"));
    EXPECT_NE(contents("options.png"), contents("before.png"));
}

TEST_F(DrivePrint, EachJobTakesTheNextFile) {
    playWell("print $/one.pdf\nprint $/two.pdf\npress printToneOrDegrade:\nset toneOrDegrade 1\n"
             "press printToneOrDegrade:\nstate $/state.json\n");
    EXPECT_THAT(contents("one.pdf"), StartsWith("%PDF-"));
    EXPECT_THAT(contents("two.pdf"), StartsWith("%PDF-"));
    EXPECT_EQ(state()["tone"]["isPrinting"], 0);
    EXPECT_EQ(state()["gradient"]["isPrinting"], 0);
}

TEST_F(DrivePrint, AFileCanBeNamedWhenThePrintDialogIsOpen) {
    write("late.pdf", std::string("old"));
    playWell("press printToneOrDegrade:\nprint $/late.pdf\nstate $/state.json\n");
    EXPECT_THAT(contents("late.pdf"), StartsWith("%PDF-"));
}

TEST_F(DrivePrint, APrintDialogThatIsLeftOpenIsCancelled) {
    const auto result = play("press printToneOrDegrade:\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
}

TEST_F(DrivePrint, TheDialogIsOutOfReachBehindTheOptions) {
    const auto result = play("press printFirstSwatch:\nclick chromaView 50 50\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("behind"));
}

TEST_F(DrivePrint, PaperSetsTheSharedSettings) {
    playWell("paper 300.5x200 margins 1 2 3 4 scale 0.5\nstate $/state.json\n");
    EXPECT_EQ(state()["printInfo"],
              (json{{"paper", {300.5, 200.0}}, {"margins", {1.0, 2.0, 3.0, 4.0}}, {"scale", 0.5}}));
}

TEST_F(DrivePrint, PaperThatIsTooSmallIsAnAlertAndNoFile) {
    playWell("choose $/hundred.aco\npress loadSwatch1:\npaper 150x100\nprint $/small.pdf\npress "
             "printFirstSwatch:\nok\n"
             "state $/state.json\nanswer\n");
    ASSERT_EQ(state()["alerts"].size(), 1u);
    EXPECT_EQ(state()["alerts"][0]["message"], "The paper is too small for these swatches. ");
    EXPECT_FALSE(std::filesystem::exists(file("small.pdf")));
}

} // namespace
} // namespace chromalog::test
