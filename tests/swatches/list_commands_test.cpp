#include "swatches/list_commands.h"

#include "support/swatch_files.h"
#include "support/temporary_folder.h"
#include "swatches/list_fixture.h"

#include <cstring>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

using test::FileBuilder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ListCommandsTest : public test::ListTest {
  protected:
    ListCommandsTest() {
        dialog.connect(&window);
        one.nameField.connect(&name1);
        two.nameField.connect(&name2);
    }
    std::string file(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        const std::string path = folder / name;
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    /// A version 2 file of RGB colours, each named by its number.
    static std::vector<std::uint8_t> acoOf(int count) {
        FileBuilder b;
        b.header(2, count);
        for (int i = 0; i < count; ++i)
            b.colour(0, i + 1, 2, 3).name(std::to_string(i));
        return b.bytes;
    }
    std::vector<std::uint8_t> contents(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string nameOf(const std::uint8_t (&stored)[256]) {
        return {reinterpret_cast<const char*>(stored) + 1, stored[0]};
    }

    test::TemporaryFolder folder;
    test::HeadlessWindow window;
    test::HeadlessTextField name1, name2;
    Outlet<Window> dialog;
    int folderCalls = 0;
    ListCommands commands{{one, two, platform, dialog, nullptr,
                           [this](std::string_view label) { setUndoablePosition(label); },
                           [this] {
                               ++folderCalls;
                               return folder.path();
                           }}};
};

TEST_F(ListCommandsTest, LoadingRecordsTwoStepsOpensASheetAndRedisplaysBeforeTheAnswer) {
    host1.redisplays = 0;
    commands.loadSwatch(one);
    EXPECT_THAT(labels, ElementsAre("!Load Swatch!", "!LoadSwatch!"));
    EXPECT_THAT(platform.logLines, Contains("LoadSwatch"));
    ASSERT_THAT(platform.openPanels, SizeIs(1));
    EXPECT_THAT(platform.openPanels[0].types, ElementsAre("aco", "ACO"));
    EXPECT_EQ(host1.redisplays, 2);
    EXPECT_EQ(scroller1.redisplays, 1);
}

TEST_F(ListCommandsTest, CancellingTheOpenPanelLeavesTheListAndTwoSteps) {
    fillNumbered(swatch1, 3);
    data->numColors1 = 3;
    commands.loadSwatch(one);
    platform.answerPanel(std::nullopt);
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "2"));
    EXPECT_EQ(data->numColors1, 3);
    EXPECT_THAT(labels, SizeIs(2));
}

TEST_F(ListCommandsTest, AChosenFileReplacesTheListItsNameAndItsStoredCount) {
    fillNumbered(swatch2, 9);
    swatch2.setSelectedColor(6);
    swatch2.setStartColor(4);
    scroller2.setVerticalScroller(0.7);
    commands.loadSwatch(two);
    platform.answerPanel(file("Autumn.aco", acoOf(2)));
    EXPECT_THAT(names(swatch2), ElementsAre("0", "1"));
    EXPECT_EQ(nameBytes(data->swatchList2[2]), "2") << "old records past the new count stay";
    EXPECT_EQ(data->numColors2, 2);
    EXPECT_EQ(data->numColors1, 0);
    EXPECT_EQ(swatch2.getSwatchName(), "Autumn.aco");
    EXPECT_EQ(name2.text(), "Autumn.aco");
    EXPECT_EQ(nameOf(data->swatchName2), "Autumn.aco");
    EXPECT_EQ(swatch2.getSelected(), 0);
    EXPECT_EQ(swatch2.getStartColor(), 0);
    EXPECT_EQ(scroller2.verticalScroller(), 0);
    EXPECT_EQ(swatch2.frame().h, 220);
    EXPECT_EQ(folderCalls, 1) << "asked for whatever the file holds";
    EXPECT_THAT(firstColors, IsEmpty()) << "the first colour is unchanged";
}

TEST_F(ListCommandsTest, AShorterFileLeavesTheOldRecordsPastItsEndInTheArray) {
    fillNumbered(swatch1, 5);
    const FCOStruct last = data->swatchList1[4];
    commands.loadSwatch(one);
    platform.answerPanel(file("Two.aco", acoOf(2)));
    EXPECT_EQ(swatch1.getNumberOfColors(), 2);
    EXPECT_EQ(nameBytes(data->swatchList1[2]), "2");
    EXPECT_EQ(std::memcmp(&data->swatchList1[4], &last, sizeof last), 0);
}

TEST_F(ListCommandsTest, AppendingStartsAtTheViewsCount) {
    fillNumbered(swatch1, 3);
    data->numColors1 = 1; // the stored count plays no part
    commands.appendSwatch(one);
    EXPECT_THAT(labels, ElementsAre("!Append Swatch!", "!LoadSwatch!"));
    platform.answerPanel(file("more.aco", acoOf(2)));
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "2", "0", "1"));
    EXPECT_EQ(data->numColors1, 5);
}

TEST_F(ListCommandsTest, AppendingTwentyTo4990ShowsTheAlertWith5010AndReadsTen) {
    fillNumbered(swatch1, 4990);
    commands.appendSwatch(one);
    platform.answerPanel(file("twenty.aco", acoOf(20)));
    ASSERT_THAT(platform.alerts, SizeIs(1));
    EXPECT_EQ(platform.alerts[0].message, "A Swatch list has a maximum of 5000 colors. ");
    EXPECT_EQ(platform.alerts[0].informative, "5010 colors in list ");
    EXPECT_EQ(swatch1.getNumberOfColors(), 5000);
    EXPECT_EQ(nameBytes(data->swatchList1[4999]), "9");
    EXPECT_EQ(data->numColors1, 5000);
}

TEST_F(ListCommandsTest, AppendingFromACountOutOfRangeStaysInTheArray) {
    data->swatchList2[0] = test::swatch("guard");
    for (const std::int16_t count : {std::int16_t{-3}, std::int16_t{30'000}, std::int16_t{-32'768}}) {
        swatch1.setNumberOfColors(count);
        commands.appendSwatch(one);
        platform.answerPanel(file("few.aco", acoOf(5)));
    }
    EXPECT_EQ(nameBytes(data->swatchList2[0]), "guard");
}

TEST_F(ListCommandsTest, AnAnswerThatIsNoReadableFileChangesNothingAndNeverHangs) {
    const std::string fifo = folder / "pipe.aco", locked = folder / "locked.aco";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    file("locked.aco", acoOf(1));
    ::chmod(locked.c_str(), 0);
    std::vector<std::string> answers{folder.path(), fifo, folder / "missing.aco", "", "/dev/zero"};
    if (::geteuid() != 0) answers.push_back(locked); // root may read anything
    fillNumbered(swatch1, 2);
    for (const std::string& answer : answers) {
        commands.loadSwatch(one);
        platform.answerPanel(answer);
        commands.loadASE();
        platform.answerPanel(answer);
    }
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1"));
    EXPECT_EQ(name1.text(), "");
    EXPECT_EQ(data->swatchName1[0], 0);
}

TEST_F(ListCommandsTest, AnEmptyFileSetsTheCountToTheStartIndex) {
    fillNumbered(swatch1, 3);
    commands.appendSwatch(one);
    platform.answerPanel(file("empty.aco", {}));
    EXPECT_EQ(swatch1.getNumberOfColors(), 3);
    commands.loadSwatch(one);
    platform.answerPanel(file("empty.aco", {}));
    EXPECT_EQ(swatch1.getNumberOfColors(), 0);
    EXPECT_EQ(data->numColors1, 0);
}

TEST_F(ListCommandsTest, BookReferencesAreLookedUpInTheHostsFolder) {
    FileBuilder book;
    book.bookHeader(1, 0).bookColour("Warm", "KEY001", {7, 8, 9});
    file("TRUMATCH.acb", book.bytes);
    FileBuilder aco;
    aco.header(1, 1).reference(5, "KEY001").header(2, 1).reference(5, "KEY001").name("Warm");
    commands.loadSwatch(one);
    platform.answerPanel(file("refs.aco", aco.bytes));
    EXPECT_EQ(data->swatchList1[0].SRed, 7 * 256 * 256) << "scaled twice: kept";
    EXPECT_EQ(data->swatchList1[0].SBlue, 9 * 256 * 256);
}

TEST_F(ListCommandsTest, ClearingChangesTheViewsCountAloneAndRedisplaysTheScrollViewOfList1) {
    fillNumbered(swatch2, 4);
    data->numColors2 = 4;
    const double height = swatch2.frame().h;
    host2.redisplays = 0;
    commands.killSwatch(two);
    EXPECT_THAT(labels, ElementsAre("!Delete Swatch!"));
    EXPECT_EQ(swatch2.getNumberOfColors(), 0);
    EXPECT_EQ(data->numColors2, 4);
    EXPECT_EQ(swatch2.frame().h, height);
    EXPECT_EQ(host2.redisplays, 1);
    EXPECT_EQ(scroller1.redisplays, 1) << "for list 2 as well";
    EXPECT_EQ(scroller2.redisplays, 0);
}

TEST_F(ListCommandsTest, SortsRecordTheirStepFirst) {
    fill(swatch2, {test::swatch("b", 0, 0, 9), test::swatch("a", 9, 0, 0)});
    onUndoStep = [this] { EXPECT_EQ(nameBytes(data->swatchList2[0]), labels.size() == 1 ? "b" : "a"); };
    commands.sortAlpha(two);
    EXPECT_THAT(names(swatch2), ElementsAre("a", "b"));
    commands.sortHue(two);
    EXPECT_THAT(labels, ElementsAre("!Sort Swatch Alpha!", "!Sort Swatch Hue!"));
    EXPECT_EQ(scroller1.redisplays + scroller2.redisplays, 0);
}

struct PathCase {
    std::string chosen, written;
};

TEST_F(ListCommandsTest, ASavedPathEndsInAcoOnce) {
    const PathCase cases[] = {{"/a/colours.txt", "/a/colours.aco"},   {"/a/colours", "/a/colours.aco"},
                              {"/a/colours.aco", "/a/colours.aco"},   {"/a.b/colours", "/a.b/colours.aco"},
                              {"/a/two.dots.txt", "/a/two.dots.aco"}, {"/a/.hidden", "/a/.hidden.aco"},
                              {"colours.ACO", "colours.aco"},         {"/a/dot.", "/a/dot.aco"}};
    for (const PathCase& c : cases)
        EXPECT_EQ(acoPath(c.chosen), c.written);
}

TEST_F(ListCommandsTest, SavingWritesWhatTheViewShowsAndRecordsNoStep) {
    fill(swatch2, {test::swatch("A", 65535, 0, 32768)});
    host2.redisplays = 0;
    commands.saveSwatch(two);
    ASSERT_THAT(platform.savePanels, SizeIs(1));
    EXPECT_EQ(platform.savePanels[0].extension, "aco")
        << "so that the panel asks about the file that is written";
    platform.answerPanel(folder / "colours.txt");
    EXPECT_THAT(contents(folder / "colours.aco"),
                ElementsAre(0, 2, 0, 1, 0, 0, 0xFF, 0xFF, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 2, 0, 'A', 0, 0));
    EXPECT_EQ(folder.entries(), 1) << "no temporary file is left";
    EXPECT_THAT(labels, IsEmpty());
    EXPECT_EQ(host2.redisplays, 0);
}

TEST_F(ListCommandsTest, ASaveProposesTheNameThatTheListWasLoadedUnder) {
    commands.saveSwatch(one);
    for (const char* loaded : {"wheat.aco", "blue 1.5.aco", "RED.ACO"}) {
        commands.loadSwatch(one);
        platform.answerPanel(file(loaded, acoOf(1)));
        commands.saveSwatch(one);
    }
    const char* proposed[] = {"", "wheat.aco", "blue 1.5.aco", "RED.aco"};
    ASSERT_THAT(platform.savePanels, SizeIs(4));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(platform.savePanels[i].suggestedName, proposed[i]);
        EXPECT_TRUE(i == 0 || acoPath(proposed[i]) == proposed[i]) << "the file that is then written";
    }
}

TEST_F(ListCommandsTest, ASaveThatFailsOrIsCancelledIsNotReported) {
    fillNumbered(swatch1, 2);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path()); // where a path without a folder would lie
    for (const auto& answer : {std::optional<std::string>(), std::optional(folder / "no/such/folder/x"),
                               std::optional<std::string>("")}) {
        commands.saveSwatch(one);
        platform.answerPanel(answer);
    }
    std::filesystem::current_path(before);
    EXPECT_THAT(platform.alerts, IsEmpty());
    EXPECT_EQ(folder.entries(), 0);
}

TEST_F(ListCommandsTest, SavedAndLoadedAgainAListIsTheSame) {
    fillNumbered(swatch1, 300);
    commands.saveSwatch(one);
    platform.answerPanel(folder / "round");
    commands.loadSwatch(two);
    platform.answerPanel(folder / "round.aco");
    EXPECT_EQ(names(swatch2), names(swatch1));
    EXPECT_EQ(data->swatchList2[299].SRed, 29'900);
}

TEST_F(ListCommandsTest, ABookFillsList1WithoutAStepAndLeavesTheViewsCount) {
    FileBuilder book;
    book.bookHeader(3, 0);
    for (const char* key : {"AAAAAA", "BBBBBB", "CCCCCC"})
        book.bookColour("name", key, {1, 2, 3});
    swatch1.setSelectedColor(2);
    scroller1.setVerticalScroller(0.5);
    commands.loadASE();
    EXPECT_THAT(platform.openPanels.at(0).types, ElementsAre("acb", "ACB"));
    platform.answerPanel(file("Book.acb", book.bytes));
    EXPECT_EQ(data->numColors1, 3);
    EXPECT_EQ(swatch1.getNumberOfColors(), 0);
    EXPECT_EQ(nameBytes(data->swatchList1[2]), "CCCCCC");
    EXPECT_EQ(data->swatchList1[2].SGreen, 512);
    EXPECT_EQ(name1.text(), "Book.acb");
    EXPECT_EQ(nameOf(data->swatchName1), "Book.acb");
    EXPECT_EQ(swatch1.getSwatchName(), "");
    EXPECT_EQ(swatch1.getSelected(), 0);
    EXPECT_EQ(scroller1.verticalScroller(), 0);
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(ListCommandsTest, CancellingTheBookPanelChangesNothing) {
    data->numColors1 = 7;
    commands.loadASE();
    platform.answerPanel(std::nullopt);
    EXPECT_EQ(data->numColors1, 7);
    EXPECT_EQ(name1.text(), "");
}

TEST_F(ListCommandsTest, TheFirstColourIsWrittenIntoTheSelectedSwatchOfList1) {
    fillNumbered(swatch1, 3);
    fillNumbered(swatch2, 3);
    swatch1.setSelectedColor(2);
    onUndoStep = [this] { EXPECT_EQ(nameBytes(data->swatchList1[2]), "2"); };
    commands.writeToSwatch(Colour::rgb(1, 0, 0.25), "Rust");
    EXPECT_THAT(labels, ElementsAre("!Swatch Color Changed!"));
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "Rust"));
    EXPECT_EQ(data->swatchList1[2].SRed, -1);
    EXPECT_EQ(data->swatchList1[2].SBlue, 16'383);
    EXPECT_THAT(names(swatch2), ElementsAre("0", "1", "2"));
}

struct StoredNameCase {
    std::string name, characters;
    int length;
};

TEST_F(ListCommandsTest, StoredNamesAreAsciiClampedTo255WithTheTextsOwnLength) {
    const StoredNameCase cases[] = {{"a.aco", "a.aco", 5},
                                    {"\u00c9t\u00e9.aco", "Ete.aco", 7},
                                    {"\u5927.aco", "?.aco", 5},
                                    {std::string(255, 'x'), std::string(255, 'x'), 255},
                                    {std::string(256, 'x'), std::string(255, 'x'), 0},
                                    {std::string(300, 'x'), std::string(255, 'x'), 44}};
    for (const StoredNameCase& c : cases) {
        one.storeName(StoredName(c.name));
        EXPECT_EQ(data->swatchName1[0], c.length) << c.name;
        EXPECT_EQ(std::memcmp(data->swatchName1 + 1, c.characters.data(), c.characters.size()), 0) << c.name;
        EXPECT_EQ(data->swatchName2[0], 0);
    }
}

TEST_F(ListCommandsTest, EveryCommandHasAnActionForEachList) {
    std::vector<std::string> actionNames;
    for (const ActionEntry& action : commands.actions()) {
        actionNames.emplace_back(action.name);
        action.run();
    }
    EXPECT_THAT(actionNames, testing::UnorderedElementsAre(
                                 "loadSwatch1:", "loadSwatch2:", "appendSwatch1:", "appendSwatch2:",
                                 "killSwatch1:", "killSwatch2:", "sortAlpha1:", "sortAlpha2:", "sortHue1:",
                                 "sortHue2:", "saveSwatch1:", "saveSwatch2:", "loadASE:"));
    EXPECT_THAT(labels, SizeIs(14)) << "loads and appends record two steps, saves and the book none";
}

} // namespace
} // namespace chromalog
