// The swatch lists as one works in them: several rows at once, names in place, files by hand, searches that
// land, orders.
#include "e2e/driven_pick.h"
#include "support/swatch_files.h"

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::vector<std::string>;

class DriveRows : public DrivenPick {
  protected:
    DriveRows() {
        FileBuilder twelve;
        twelve.header(2, 12);
        for (int i = 0; i < 12; ++i)
            twelve.colour(0, 5000 * i, 60000 - 4000 * i, i % 3 * 20000).name("Row " + std::to_string(i));
        write("twelve.aco", twelve.bytes);
        FileBuilder named;
        named.header(2, 4);
        named.colour(0, 0xffff, 0, 0).name("Fire").colour(0, 0, 0x8080, 0x8484).name("Sea Blue");
        named.colour(0, 0x3333, 0x6666, 0xcccc).name("sky").colour(0, 0x2222, 0x2222, 0x2222).name("BLUEISH");
        write("named.aco", named.bytes);
    }

    Names names(int list, const std::string& from = "state.json") const {
        Names all;
        const json now = state(from);
        for (const json& record : now["lists"][list - 1]["records"]) {
            std::string name;
            const std::string hex = record["name"];
            for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
                name += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
            all.push_back(name);
        }
        return all;
    }
    json labels(const std::string& from = "state.json") const { return state(from)["undoNames"]; }

    static constexpr const char* kTwelve = "dropfile swatch1 30 30 $/twelve.aco\n";
    static constexpr const char* kNamed = "dropfile swatch1 30 30 $/named.aco\n";
    static constexpr const char* kState = "state $/state.json\n";
};

TEST_F(DriveRows, TenColoursGoAcrossInThreeActions) {
    playWell(std::string(kTwelve) +
             "click swatch1 50 37\nclickwith shift swatch1 50 235\n"
             "drag swatch1 50 100 swatch2 50 30\n" +
             kState + "press doUndo:\nstate $/undone.json\n");
    EXPECT_EQ(names(2), (Names{"Row 1", "Row 2", "Row 3", "Row 4", "Row 5", "Row 6", "Row 7", "Row 8",
                               "Row 9", "Row 10"}));
    EXPECT_EQ(names(1).size(), 12u);
    EXPECT_EQ(labels(), (json{"!Swatch File loaded!", "!Swatches copied across!"})) << "a step a gesture";
    EXPECT_THAT(names(2, "undone.json"), IsEmpty());
    EXPECT_EQ(names(1, "undone.json").size(), 12u);
}

TEST_F(DriveRows, RowsThatAreSelectedTogetherMoveCopyAndGoAsOneStep) {
    playWell(std::string(kTwelve) +
             "click swatch1 50 15\nclickwith ctrl swatch1 50 60\nclickwith ctrl swatch1 50 100\nstate "
             "$/three.json\n"
             "menu swatch1 moveAcross:\nstate $/moved.json\n"
             "key Ctrl+A swatch2\nmenu swatch2 copyAcross:\nkey Ctrl+A swatch2\nkey Delete swatch2\n"
             "click swatch1 50 15\nkey Ctrl+Shift+Down swatch1\nkey Alt+Down swatch1\n" +
             kState);
    EXPECT_EQ(state("three.json")["lists"][0]["selectedRows"], (json{0, 2, 4}));
    EXPECT_EQ(state("three.json")["lists"][0]["selected"], 4) << "the one that was pressed last";
    EXPECT_EQ(names(2, "moved.json"), (Names{"Row 0", "Row 2", "Row 4"}));
    EXPECT_EQ(names(1, "moved.json"),
              (Names{"Row 1", "Row 3", "Row 5", "Row 6", "Row 7", "Row 8", "Row 9", "Row 10", "Row 11"}));
    EXPECT_THAT(names(2), IsEmpty());
    EXPECT_EQ(names(1), (Names{"Row 2", "Row 1", "Row 0", "Row 4", "Row 3", "Row 5", "Row 6", "Row 7",
                               "Row 8", "Row 9", "Row 10", "Row 11"}));
    EXPECT_EQ(labels(), (json{"!Swatch File loaded!", "!Swatches moved across!", "!Swatches copied across!",
                              "!Swatches deleted!", "!Swatches moved!"}));
}

TEST_F(DriveRows, ANameIsTypedInItsPlace) {
    playWell(std::string(kTwelve) +
             "dclick swatch1 50 37\ntype nameEditor Ember\nstate $/open.json\n"
             "key Return nameEditor\nkey F2 swatch1\ntype nameEditor Coal\n"
             "key Escape nameEditor\n" +
             kState);
    EXPECT_EQ(state("open.json")["outlets"]["nameEditor"]["text"], "Ember");
    EXPECT_EQ(names(1)[1], "Ember");
    EXPECT_EQ(labels(), (json{"!Swatch File loaded!", "!Swatch renamed!"})) << "Escape records nothing";
    EXPECT_FALSE(state()["outlets"].contains("nameEditor"));
    EXPECT_EQ(state()["lists"][0]["selected"], 1);
}

TEST_F(DriveRows, LettersThatCannotBeKeptBecomeOthers) {
    playWell("dropfile swatch2 30 30 $/twelve.aco\nkey F2 swatch2\ntype nameEditor 'Café ✓'\n"
             "key Return nameEditor\n" +
             std::string(kState));
    EXPECT_EQ(names(2)[0], "Cafe ?");
}

TEST_F(DriveRows, AFileThatIsDroppedOnAListLoadsInOneStep) {
    write("photo.jpg", std::string("no swatches"));
    playWell("dropfile swatch2 30 30 $/twelve.aco\nmenu appendSwatch2 recentFile1:\n" + std::string(kState));
    EXPECT_EQ(state()["lists"][1]["viewCount"], 24);
    EXPECT_EQ(state()["outlets"]["swatch2Name"]["text"], "twelve.aco");
    EXPECT_EQ(labels(), (json{"!Swatch File loaded!", "!Swatch File appended!"}));
    EXPECT_THAT(state()["panels"], IsEmpty());
    const auto refused = play("dropfile swatch1 30 30 $/photo.jpg\n");
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.err, HasSubstr("script:1: swatch1 takes no file '"));
    const auto elsewhere = play("dropfile chromaView 30 30 $/twelve.aco\n");
    EXPECT_EQ(elsewhere.exitCode, 2);
    EXPECT_THAT(elsewhere.err, HasSubstr("script:1: chromaView takes no file '"));
}

TEST_F(DriveRows, FilesThatAreDroppedWithoutAKeyOpenTheirImport) {
    write("sky.gpl", std::string("GIMP Palette\n1 2 3\tNight\n"));
    playWell("dropfiles swatch2 30 30 $/twelve.aco $/sky.gpl\nstate $/panel.json\npress importReplace:\n" +
             std::string(kState));
    EXPECT_EQ(state("panel.json")["outlets"]["importNote"]["text"],
              "twelve.aco: 2 files, 13 colors, into list 2");
    EXPECT_EQ(state("panel.json")["lists"][1]["viewCount"], 0);
    EXPECT_EQ(state()["lists"][1]["viewCount"], 13);
    EXPECT_EQ(labels(), (json{"!Import!"}));
}

TEST_F(DriveRows, AFileThatCannotBeReadChangesNothing) {
    playWell("dropfile swatch1 30 30 $/missing.aco\n" + std::string(kState), {"--option"});
    EXPECT_THAT(labels(), IsEmpty());
    EXPECT_THAT(state()["status"].get<std::string>(), HasSubstr("missing.aco could not be read"));
}

TEST_F(DriveRows, ASearchFindsMoreWhereOneChoosesSo) {
    struct Case {
        const char *text, *choice;
        std::vector<int> hits;
    };
    const Case cases[] = {{"blue", "findAnyCase:", {1, 3}},
                          {"#36c", "findByHex:", {2}},
                          {"teal", "findByCssName:", {1}},
                          {"Féa", "findWithoutAccents:", {}},
                          {"Séa", "findWithoutAccents:", {1}}};
    std::string script = std::string(kNamed) + "type findColor1 blue\nwait 300\nstate $/plain.json\n";
    for (int i = 0; const Case& c : cases) { // a choice searches at once
        const std::string choose = std::string("menu findColor1 ") + c.choice + '\n';
        script += std::string("type findColor1 '") + c.text + "'\n" + choose + "state $/" +
                  std::to_string(i++) + ".json\n" + choose;
    }
    playWell(script);
    const auto hits = [this](const std::string& from) {
        std::vector<int> rows;
        const json now = state(from);
        for (const json& hit : now["lists"][0]["hits"])
            rows.push_back(hit["position"]);
        return rows;
    };
    EXPECT_THAT(hits("plain.json"), IsEmpty()) << "the search as it is";
    for (int i = 0; const Case& c : cases)
        EXPECT_EQ(hits(std::to_string(i++) + ".json"), c.hits) << c.text;
    playWell("menu findColor1 findAnyCase:\nok\n");
    playWell("type findColor1 blue\nwait 300\n" + std::string(kState));
    EXPECT_THAT(hits("state.json"), IsEmpty()) << "no script finds what another one chose";
}

TEST_F(DriveRows, AHitIsShownWholeAndTakenByReturn) {
    FileBuilder many;
    many.header(2, 300);
    for (int i = 0; i < 300; ++i)
        many.colour(0, i * 200, 30000, 65535 - i * 200).name("Swatch " + std::to_string(i));
    write("many.aco", many.bytes);
    const std::string search = "dropfile swatch1 30 30 $/many.aco\n";
    playWell(search +
             "type findColor1 'Swatch 29'\nwait 300\nstate $/before.json\n"
             "menu findColor1 findLands:\nkey Down findColor1\n" +
             kState + "key Up findColor1\nkey Return findColor1\nstate $/taken.json\n");
    const auto rowTop = [this](const char* from) {
        const json list = state(from)["lists"][0];
        return 22 * list["selected"].get<int>() - list["scrollY"].get<double>();
    };
    EXPECT_EQ(state("before.json")["lists"][0]["selected"], 29);
    EXPECT_LT(rowTop("before.json"), 0) << "by itself a search scrolls a little too far";
    EXPECT_EQ(state()["lists"][0]["selected"], 290);
    EXPECT_GE(rowTop("state.json"), 0);
    EXPECT_EQ(state("taken.json")["lists"][0]["selected"], 29);
    EXPECT_EQ(state("taken.json")["outlets"]["firstR"]["text"], "22") << "29 x 200 of 65535";
    EXPECT_NE(state()["outlets"]["firstR"]["text"], "22");
}

TEST_F(DriveRows, OrdersBesideTheButtons) {
    struct Case {
        const char *order, *label;
        Names after;
    };
    const Case cases[] = {
        {"sortByBrightness:", "!Sort Swatch Brightness!", {"BLUEISH", "Sea Blue", "sky", "Fire"}},
        {"sortBySaturation:", "!Sort Swatch Saturation!", {"BLUEISH", "sky", "Fire", "Sea Blue"}},
        {"sortByDifference:", "!Sort Swatch Difference!", {"sky", "Sea Blue", "BLUEISH", "Fire"}},
        {"sortReversed:", "!Sort Swatch Reversed!", {"BLUEISH", "sky", "Sea Blue", "Fire"}}};
    std::string script = std::string(kNamed) + "type secondR 51\ntype secondG 102\ntype secondB 204\n";
    for (const Case& c : cases)
        script += std::string("menu swatch1 ") + c.order + "\nstate $/" + std::string(c.order, 8) +
                  ".json\npress doUndo:\n";
    playWell(script + "click swatch1 50 37\nclickwith shift swatch1 50 81\nmenu swatch1 sortRowsByName:\n" +
             kState);
    for (const Case& c : cases) {
        const std::string from = std::string(c.order, 8) + ".json";
        EXPECT_EQ(names(1, from), c.after) << c.order;
        EXPECT_EQ(labels(from).back(), c.label);
    }
    EXPECT_EQ(names(1), (Names{"Fire", "BLUEISH", "Sea Blue", "sky"})) << "the first row took no part";
    EXPECT_EQ(labels().back(), "!Sort selected Swatches!");
}

TEST_F(DriveRows, TheNewCommandsAreRefusedInAWrongPlace) {
    struct Case {
        const char *script, *error;
    };
    const Case cases[] = {
        {"clickwith alt swatch1 3 3\n", "script:1: 'alt' stands where only shift or ctrl may"},
        {"clickwith ctrl nowhere 3 3\n", "script:1: unknown outlet 'nowhere'"},
        {"dclick swatch1 3\n", "script:1: dclick takes the words OUTLET X Y"},
        {"dclick nowhere 3 3\n", "script:1: unknown outlet 'nowhere'"},
        {"dropfile swatch1 3 3\n", "script:1: dropfile takes the words OUTLET X Y PATH"},
        {"press loadSwatch1:\ndclick swatch1 3 3\n",
         "script:2: dclick is not allowed while a file panel is open"},
        {"press loadSwatch1:\ndropfile swatch1 3 3 x.aco\n",
         "script:2: dropfile is not allowed while a file panel is open"},
        {"menu swatch1 deleteRows:\n", "script:1: no item of the open menu sends 'deleteRows:'"},
        {"menu swatch1 copyAcross:\n", "script:1: the menu item for 'copyAcross:' is disabled"},
        {"dropfiles swatch1 3 3\n", "script:1: dropfiles takes the words OUTLET X Y PATH..."},
    };
    for (const Case& c : cases) {
        const auto result = play(c.script);
        EXPECT_EQ(result.exitCode, 2) << c.script;
        EXPECT_THAT(result.err, HasSubstr(c.error));
    }
}

} // namespace
} // namespace chromalog::test
