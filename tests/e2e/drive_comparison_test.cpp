// List 1 beside list 2, near doubles and nearest swatches, in the real dialog.
#include "e2e/driven_pick.h"

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Names = std::vector<std::string>;

class DriveComparison : public DrivenPick {
  protected:
    DriveComparison() {
        writeThree();
        writeGreys("greys.aco", {10, 100, 101, 200, 11});
    }
    void writeGreys(const std::string& name, const std::vector<int>& greys) const {
        FileBuilder builder;
        builder.header(2, static_cast<int>(greys.size()));
        for (const int grey : greys)
            builder.colour(0, grey * 257, grey * 257, grey * 257).name(std::to_string(grey));
        write(name, builder.bytes);
    }
    Names names(int list, const std::string& from) const {
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
    static std::string title(const json& now, const std::string& outlet) {
        return now["outlets"][outlet]["title"];
    }
};

TEST_F(DriveComparison, WhatOneListLacksIsAddedAndNearDoublesGoEachByOneStep) {
    playWell("dropfile swatch1 30 30 $/greys.aco\ndropfile swatch2 30 30 $/three.aco\n"
             "press compareLists:\nwait 200\nstate $/compared.json\n"
             "click compareRows 60 35\npress compareAdd2:\nwait 200\nstate $/added.json\n"
             "press compareDoublesOne\nwait 200\nstate $/doubles.json\npress removeDoubles:\n"
             "wait 200\nstate $/removed.json\npress doUndo:\npress doUndo:\nstate $/undone.json\n");
    EXPECT_EQ(title(state("compared.json"), "compareOnlyOne"), "Only in list 1: 5");
    EXPECT_EQ(title(state("compared.json"), "compareAdd2"), "Add 5 to List 2");
    EXPECT_THAT(names(2, "added.json"), ElementsAre("Red", "Green", "Blue", "100"));
    EXPECT_EQ(title(state("added.json"), "compareOnlyOne"), "Only in list 1: 3") << "101 is near 100";
    EXPECT_EQ(title(state("doubles.json"), "compareRemove"), "Remove 2");
    EXPECT_THAT(names(1, "removed.json"), ElementsAre("10", "100", "200"));
    EXPECT_EQ(state("removed.json")["undoNames"],
              (json{"!Swatch File loaded!", "!Swatch File loaded!", "!Compared Swatches added!",
                    "!Near Doubles removed!"}));
    EXPECT_EQ(names(1, "undone.json").size(), 5u);
    EXPECT_EQ(names(2, "undone.json").size(), 3u);
}

TEST_F(DriveComparison, ThePanelsAndWhatStandsUnderTheWellsLeaveThePicture) {
    const std::string setUp = "dropfile swatch1 30 30 $/greys.aco\ndropfile swatch2 30 30 $/three.aco\n";
    const std::string rest = "click chromaView 100 90\npicture swatch1 $/OUT.png\nstate $/OUT.json\nok\n";
    const auto play = [&](const std::string& out, const std::string& extras) {
        std::string script = setUp + extras + rest;
        for (auto at = script.find("OUT"); at != std::string::npos; at = script.find("OUT"))
            script.replace(at, 3, out);
        playWell(script);
        std::filesystem::remove_all(file("data"));
    };
    play("plain", "");
    play("extra", "press showNearest:\npress compareLists:\nwait 200\n");
    EXPECT_EQ(read("extra.png"), read("plain.png")) << "signs are no part of it";
    const json plain = state("plain.json"), extra = state("extra.json");
    for (const char* key : {"firstColor", "secondColor", "lists", "undoNames", "wheel", "pasteboard"})
        EXPECT_EQ(extra[key], plain[key]) << key;
    for (const auto& [name, outlet] : plain["outlets"].items()) {
        if (name == "toolsMenu") continue; // which has been open
        EXPECT_EQ(extra["outlets"][name].value("frame", json()), outlet.value("frame", json())) << name;
    }
}

} // namespace
} // namespace chromalog::test
