// The swatch lists at work: panels, drags, alerts, menus, search, undo.
#include "e2e/driven_pick.h"
#include "support/swatch_files.h"

namespace chromalog::test {
namespace {

using testing::HasSubstr;

struct Swatch {
    const char* name;
    int red, green, blue;
};

class DriveLists : public DrivenPick {
  protected:
    DriveLists() {
        writeSwatches("five.aco", {{"Red", 65535, 0, 0},
                                   {"Green", 0, 65535, 0},
                                   {"Blue", 0, 0, 65535},
                                   {"White", 65535, 65535, 65535},
                                   {"Grey", 32768, 32768, 32768}});
        writeSwatches("two.aco", {{"Light Blue", 20000, 30000, 60000}, {"Blueberry", 10000, 5000, 40000}});
    }

    void writeSwatches(const std::string& name, const std::vector<Swatch>& swatches) const {
        FileBuilder builder;
        builder.header(2, static_cast<int>(swatches.size()));
        for (const Swatch& s : swatches)
            builder.colour(0, s.red, s.green, s.blue).name(s.name);
        write(name, builder.bytes);
    }

    /// The dialog with its Append button in the menu of another one.
    void writeFormWithMenu() const {
        std::ifstream in(CHROMALOG_RESOURCES "/chromalogWindow.ui");
        std::string form{std::istreambuf_iterator<char>(in), {}};
        const auto replace = [&](const std::string& what, const std::string& by) {
            const auto at = form.find(what);
            ASSERT_NE(at, std::string::npos) << what;
            form.replace(at, what.size(), by);
        };
        replace("<widget class=\"FitButton\" name=\"appendSwatch1\">",
                "<widget class=\"FitButton\" name=\"boxMore\"><property name=\"menuName\" stdset=\"0\">"
                "<string>boxMenu</string></property><property name=\"texts\" stdset=\"0\"><string>More"
                "</string></property>");
        replace("<string>appendSwatch1:</string>", "<string>loadSwatch1:</string>");
        replace("<tabstop>appendSwatch1</tabstop>", "<tabstop>boxMore</tabstop>");
        replace("<widget class=\"QMenu\" name=\"swatchContextMenu\">",
                "<widget class=\"QMenu\" name=\"boxMenu\"><action name=\"boxItem\"><property name=\"action\" "
                "stdset=\"0\"><string>appendSwatch1:</string></property></action><addaction "
                "name=\"boxItem\"/></widget><widget class=\"QMenu\" name=\"swatchContextMenu\">");
        write("chromalogWindow.ui", form);
    }

    static std::string nameOf(const json& record) {
        std::string name;
        const std::string hex = record["name"];
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            name += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
        return name;
    }

    std::vector<std::string> names(int list, const std::string& from = "state.json") const {
        std::vector<std::string> all;
        const json now = state(from);
        for (const json& record : now["lists"][list - 1]["records"])
            all.push_back(nameOf(record));
        return all;
    }

    static constexpr const char* kLoad = "choose $/five.aco\npress loadSwatch1:\n";
    static constexpr const char* kLoadBoth = "choose $/five.aco\nchoose $/two.aco\n"
                                             "press loadSwatch1:\npress loadSwatch2:\n";
};

using Names = std::vector<std::string>;

TEST_F(DriveLists, APressFindsAnOperationInTheMenuOfAButton) {
    writeFormWithMenu();
    environment_["CHROMALOG_FORMS"] = folder_.path();
    playWell("choose $/five.aco\npress loadSwatch1:\nchoose $/two.aco\npress appendSwatch1:\n"
             "state $/state.json\n");
    EXPECT_EQ(state()["lists"][0]["viewCount"], 7);
    EXPECT_EQ(state()["outlets"]["findColor1"]["class"], "QLineEdit") << "whichever class shows it";
}

TEST_F(DriveLists, TheStoredCountIsTheRecordsOwn) {
    playWell("choose $/five.aco\npress loadSwatch1:\npress killSwatch1:\nstate $/state.json\n");
    const json list = state()["lists"][0];
    EXPECT_EQ(list["viewCount"], 0);
    EXPECT_EQ(list["storedCount"], 5) << "until the next change is stored";
}

TEST_F(DriveLists, ThePanelIsAnsweredBeforeOrAfterItOpens) {
    for (const char* script : {"choose $/five.aco\npress loadSwatch1:\nstate $/state.json\n",
                               "press loadSwatch1:\nchoose $/five.aco\nstate $/state.json\n"}) {
        playWell(script, {"--option"});
        EXPECT_EQ(names(1), (Names{"Red", "Green", "Blue", "White", "Grey"})) << script;
        const json list = state()["lists"][0];
        EXPECT_EQ(list["viewCount"], 5);
        EXPECT_EQ(list["storedCount"], 5);
        EXPECT_EQ(list["viewName"], "five.aco");
        EXPECT_EQ(list["storedName"], "666976652e61636f");
        EXPECT_EQ(list["records"][0]["length"], 3);
        EXPECT_EQ(list["records"][0]["SRed"], 65535);
        EXPECT_EQ(state()["outlets"]["swatch1Name"]["text"], "five.aco");
        EXPECT_EQ(state()["undoNames"], (json{"!Load Swatch!", "!LoadSwatch!"}));
    }
}

TEST_F(DriveLists, TheWordsOfAFileAreTheBytesThatTheyWereMadeOf) {
    writeSwatches("pale.aco", {{"Pale", 0xF8F8, 0xF9F9, 0xFAFA}});
    const auto result = play("choose $/pale.aco\npress loadSwatch1:\nclick swatch1 10 10\n"
                             "key Ctrl+C origFirstColor\nstate $/state.json\nok\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "#f8f9fa\n");
    EXPECT_EQ(state()["pasteboard"]["string"], "#f8f9fa");
}

TEST_F(DriveLists, AnOptionFlagThatIsTakenBackKeepsTheLists) {
    playWell(std::string(kLoad) + "ok\n");
    playWell("state $/state.json\n", {"--option=false"});
    EXPECT_EQ(names(1), (Names{"Red", "Green", "Blue", "White", "Grey"}));
    playWell("state $/state.json\n", {"--option"});
    EXPECT_EQ(names(1), Names{});
}

TEST_F(DriveLists, APictureIsWholeOrAnError) {
    const auto load = [this](int count) {
        writeSwatches("many.aco", std::vector<Swatch>(static_cast<std::size_t>(count), {"x", 65535, 0, 0}));
        return play("choose $/many.aco\npress loadSwatch1:\npicture swatch1 $/list.png\n");
    };
    EXPECT_EQ(load(1488).err, "");
    EXPECT_EQ(sizeOf("list.png").second, 32758) << "22 points a row and one row more";
    write("list.png", std::string("older"));
    const auto tooTall = load(1489);
    EXPECT_EQ(tooTall.exitCode, 2);
    EXPECT_THAT(tooTall.err, testing::HasSubstr("script:3: swatch1 is too large for a picture: "));
    EXPECT_THAT(tooTall.err, testing::HasSubstr("x 32780, at most 32767 a side\n"));
    EXPECT_EQ(read("list.png"), "older");
}

TEST_F(DriveLists, AnOpenPanelShowsInTheState) {
    playWell("press loadSwatch2:\nstate $/state.json\nshot $/shot.png\nwait 20\nchoose cancel\nstate "
             "$/after.json\n");
    const json panel = state()["panels"].back();
    EXPECT_EQ(panel, (json{{"kind", "open"},
                           {"types", {"aco", "ACO"}},
                           {"parent", "chromalogWindow"},
                           {"multiple", false}}));
    EXPECT_EQ(state("after.json")["lists"][1]["viewCount"], 0);
    EXPECT_EQ(state("after.json")["undoCount"], 2) << "both steps stay although nothing was loaded";
}

TEST_F(DriveLists, AnswersThatNoPanelWouldGiveHurtNothing) {
    std::filesystem::create_directory(file("folder.aco"));
    playWell("choose $/missing.aco\npress loadSwatch1:\nchoose $/folder.aco\npress loadSwatch1:\nstate "
             "$/state.json\n");
    EXPECT_EQ(state()["lists"][0]["viewCount"], 0);
}

TEST_F(DriveLists, SavingReplacesAFileThatWasNamed) {
    write("out.aco", std::string("old"));
    playWell(std::string(kLoad) + "choose $/out.txt\npress saveSwatch1:\nstate $/state.json\n"
                                  "choose $/out.aco\npress loadSwatch2:\nstate $/again.json\n");
    EXPECT_EQ(state()["panels"].back()["kind"], "save");
    EXPECT_EQ(names(2, "again.json"), names(1));
    EXPECT_FALSE(std::filesystem::exists(file("out.txt")));
}

TEST_F(DriveLists, ASwatchDraggedOntoTheNameFieldLeavesItsText) {
    playWell(std::string(kLoad) +
             "click swatch1 50 10\ndrag swatch1 50 50 colorName 5 5\nstate $/state.json\n"
             "click swatch1 50 27\nstate $/after.json\n");
    EXPECT_EQ(state()["outlets"]["colorName"]["text"], "Blue") << "the press selects, the drop does nothing";
    EXPECT_EQ(state()["lastDrag"]["result"], "none");
    EXPECT_EQ(state("after.json")["outlets"]["colorName"]["text"], "Green")
        << "and the field goes on following";
}

TEST_F(DriveLists, AClickSelectsInListOneAloneTheFirstColour) {
    playWell(std::string(kLoadBoth) +
             "click swatch1 50 27\nstate $/1.json\nclick swatch2 50 30\nstate $/2.json\n"
             "click swatch1 50 26.9\nstate $/3.json\n");
    EXPECT_EQ(state("1.json")["lists"][0]["selected"], 1);
    EXPECT_EQ(state("1.json")["firstColor"], (json{0.0, 1.0, 0.0, 1.0}));
    EXPECT_EQ(state("1.json")["outlets"]["colorName"]["text"], "Green");
    EXPECT_EQ(state("2.json")["lists"][1]["selected"], 1);
    EXPECT_EQ(state("2.json")["firstColor"], state("1.json")["firstColor"]);
    EXPECT_EQ(state("3.json")["lists"][0]["selected"], 0) << "26.9 is still row 0: positions are exact";
}

TEST_F(DriveLists, DragsMoveWithinAListAndCopyBetweenLists) {
    playWell(std::string(kLoadBoth) + "drag swatch1 50 50 swatch1 50 10\nstate $/moved.json\n"
                                      "drag swatch2 50 10 swatch1 50 26.9\nstate $/state.json\n");
    EXPECT_EQ(names(1, "moved.json"), (Names{"Blue", "Red", "Green", "White", "Grey"}));
    EXPECT_EQ(names(1), (Names{"Light Blue", "Blue", "Red", "Green", "White", "Grey"}));
    EXPECT_EQ(names(2), (Names{"Light Blue", "Blueberry"}));
    EXPECT_EQ(state()["lastDrag"],
              (json{{"types", {"color", "string"}}, {"imageSize", {32.0, 16.0}}, {"result", "copy"}}));
    EXPECT_EQ(state()["pasteboard"]["string"], "Light Blue") << "a drag leaves its swatch on the clipboard";
    EXPECT_EQ(state()["undoCount"], 6);
}

TEST_F(DriveLists, ARowFarBelowIsScrolledIntoViewFirst) {
    std::vector<Swatch> many(300, Swatch{"Many", 1000, 2000, 3000});
    many[250] = {"Needle", 40000, 0, 0};
    writeSwatches("many.aco", many);
    playWell("choose $/many.aco\npress loadSwatch2:\ndrag swatch2 20 5510 origFirstColor 5 5\nstate "
             "$/state.json\n");
    EXPECT_EQ(state()["lists"][1]["selected"], 250);
    EXPECT_GT(state()["lists"][1]["scrollY"], 4000.0);
    EXPECT_EQ(state()["outlets"]["colorName"]["text"], "Needle");
    EXPECT_EQ(state()["lists"][1]["contentHeight"], 22.0 * 301);
}

TEST_F(DriveLists, DropsFromOtherProgramsBringTheirName) {
    playWell("drop swatch2 10 10 '#102030' 'Caf\xc3\xa9'\ndrop swatch2 10 100 red\nstate $/state.json\n");
    const json list = state()["lists"][1];
    EXPECT_EQ(list["viewCount"], 2);
    EXPECT_EQ(list["records"][0]["SRed"], 0x1010);
    EXPECT_EQ(nameOf(list["records"][0]), "Cafe");
    EXPECT_EQ(nameOf(list["records"][1]), "New Color");
}

TEST_F(DriveLists, ARefusedDropShowsAnAlert) {
    const std::string script = std::string(kLoad) + "drop swatch1 10 10 red\n";
    playWell(script +
             "state $/state.json\nshot $/shot.png\nanswer\nclick swatch1 50 30\nstate $/after.json\n");
    EXPECT_EQ(
        state()["alerts"],
        (json::array({{{"message", "Thist color exists !"}, {"informative", "Red"}, {"buttons", {"ok"}}}})));
    EXPECT_EQ(state("after.json")["lists"][0]["viewCount"], 5);
    playWell("answer\n" + script + "state $/before.json\n");
    EXPECT_EQ(state("before.json")["alerts"].size(), 1u);
}

TEST_F(DriveLists, AnswersWaitForTheNextPickToo) {
    playWell(
        "choose $/five.aco\nanswer\nok\npress loadSwatch1:\ndrop swatch1 10 10 red\nstate $/state.json\n",
        {"--picks", "2"});
    EXPECT_EQ(state()["lists"][0]["viewCount"], 5);
    EXPECT_EQ(state()["alerts"].size(), 1u);
}

TEST_F(DriveLists, AnAlertThatNothingAnswersEndsTheScript) {
    const std::string drop = std::string(kLoad) + "drop swatch1 10 10 red\n";
    for (const std::string& script : {drop, drop + "ok\n", drop + "wait 10\npress loadSwatch1:\n"}) {
        const auto result = play(script, {"--option"});
        EXPECT_EQ(result.exitCode, 2) << script;
        EXPECT_THAT(result.err, HasSubstr("Thist color exists !")) << script;
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
    }
}

TEST_F(DriveLists, AnAlertInAPanelsAnswerIsDismissedBeforeOrAfter) {
    writeSwatches("full.aco", std::vector<Swatch>(4990, Swatch{"Many", 1, 2, 3}));
    writeSwatches("twenty.aco", std::vector<Swatch>(20, Swatch{"More", 4, 5, 6}));
    const std::string load = "choose $/full.aco\npress loadSwatch1:\n", append = "press appendSwatch1:\n";
    for (const std::string& script : {load + append + "choose $/twenty.aco\nstate $/open.json\nanswer\n",
                                      load + "answer\nchoose $/twenty.aco\n" + append}) {
        playWell(script + "click swatch1 5 30\nstate $/state.json\n", {"--option"});
        EXPECT_EQ(state()["lists"][0]["viewCount"], 5000) << script;
        ASSERT_EQ(state()["alerts"].size(), 1u) << script;
        EXPECT_EQ(state()["alerts"][0]["message"], "A Swatch list has a maximum of 5000 colors. ");
    }
}

TEST_F(DriveLists, AWellsMenuOpensToo) {
    playWell("rclick origFirstColor 20 20\nshot $/shot.png\nkey Escape\nclick swatch1 5 5\n");
}

TEST_F(DriveLists, ContextMenusOpenByClickByNameAndByOperation) {
    playWell(std::string(kLoad) +
             "rclick swatch1 50 50\nshot $/menu.png\nmenu swatch1 deleteSwatch1:\nstate $/1.json\n"
             "menu swatch1 deleteSwatch1:\nstate $/2.json\n"
             "click swatch1 50 10\nrclick swatch1 50 30\npress editSwatch:\nstate $/3.json\n");
    EXPECT_EQ(names(1, "1.json"), (Names{"Red", "Green", "White", "Grey"}));
    EXPECT_EQ(names(1, "2.json"), (Names{"Red", "Green", "Grey"})) << "opened on the row that was selected";
    EXPECT_EQ(state("3.json")["outlets"]["colorName"]["text"], "Green");
}

TEST_F(DriveLists, AnotherCommandClosesAnOpenMenu) {
    playWell(std::string(kLoad) + "rclick swatch1 50 50\nclick swatch1 50 10\nstate $/state.json\n");
    EXPECT_EQ(state()["lists"][0]["selected"], 0);
    EXPECT_EQ(state()["lists"][0]["viewCount"], 5);
}

TEST_F(DriveLists, TypingSearchesAndTheStepperWalks) {
    playWell("choose $/two.aco\npress loadSwatch1:\ntype findColor1 Blue\nwait 500\nstate $/1.json\n"
             "set seachStep1 1\nstate $/2.json\nkey Return findColor1\nstate $/3.json\n");
    const auto found = state("1.json");
    EXPECT_EQ(found["outlets"]["found1"]["text"], " 2 found");
    EXPECT_EQ(found["outlets"]["seachStep1"]["max"], 1);
    EXPECT_EQ(found["lists"][0]["hits"].size(), 2u);
    EXPECT_EQ(found["lists"][0]["hits"][1], (json{{"position", 1}, {"scrollValue", 0.5}}));
    EXPECT_EQ(found["sounds"], (json{"Frog"}));
    EXPECT_EQ(found["lists"][0]["selected"], 0);
    EXPECT_EQ(state("2.json")["lists"][0]["selected"], 1);
    EXPECT_EQ(state("3.json")["lists"][0]["selected"], 0) << "the next hit after the last is the first";
}

TEST_F(DriveLists, UndoAndRedoFromTheDialogAndTheFloatingPanel) {
    playWell(std::string(kLoad) +
             "press killSwatch1:\npress doUndo:\nstate $/1.json\npress showProtocolWindow\n"
             "press redoAction:\nstate $/2.json\npress undoAction:\npress doUndo:\npress doUndo:\n"
             "state $/3.json\npress showProtocolWindow\nstate $/4.json\n");
    EXPECT_EQ(names(1, "1.json").size(), 5u);
    EXPECT_EQ(state("1.json")["redoNames"], (json{"!Delete Swatch!"}));
    EXPECT_EQ(names(1, "2.json").size(), 0u);
    const json panel = state("2.json")["outlets"]["protocolWindow"];
    EXPECT_TRUE(panel["visible"]);
    EXPECT_TRUE(panel["floating"]);
    EXPECT_EQ(state("3.json")["undoCount"], 0);
    EXPECT_FALSE(state("3.json")["outlets"]["undoButton"]["enabled"]);
    EXPECT_FALSE(state("4.json")["outlets"]["protocolWindow"]["visible"]);
}

TEST_F(DriveLists, ListsOutliveThePickAndTheHost) {
    playWell(std::string(kLoad) + "ok\nstate $/second.json\ncancel\n", {"--picks", "2"});
    EXPECT_EQ(names(1, "second.json").size(), 5u);
    EXPECT_EQ(state("second.json")["outlets"]["colorName"]["text"], "Red")
        << "row 0 is the first colour from the start";
    playWell("state $/again.json\n");
    EXPECT_EQ(names(1, "again.json").size(), 5u);
    playWell("state $/skipped.json\n", {"--option"});
    EXPECT_EQ(names(1, "skipped.json").size(), 0u);
}

} // namespace
} // namespace chromalog::test
