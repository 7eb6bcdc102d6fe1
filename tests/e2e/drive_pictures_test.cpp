// Colours of pictures by scripts: through the real reader on its own thread.
#include "e2e/driven_pick.h"
#include "support/png_file.h"

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DrivePictures : public DrivenPick {
  protected:
    /// "photo.png": twelve colours as columns, the first twelve pixels wide, the last one.
    DrivePictures() {
        std::vector<std::uint32_t> row;
        std::size_t width = 12;
        for (const std::uint32_t colour : {0xFF0000u, 0x00FF00u, 0x0000FFu, 0xFFFF00u, 0x00FFFFu, 0xFF00FFu,
                                           0x000000u, 0xFFFFFFu, 0x808080u, 0x800000u, 0x000080u, 0x008000u})
            row.insert(row.end(), width--, colour);
        write("photo.png", pngFile(row, 40));
    }
    std::vector<std::string> names(int list, const std::string& file = "state.json") const {
        std::vector<std::string> names;
        const json seen = state(file);
        for (const auto& record : seen["lists"][list - 1]["records"]) {
            const std::string hex = record["name"];
            std::string name;
            for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
                name += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
            names.push_back(name);
        }
        return names;
    }
};

TEST_F(DrivePictures, TwelveColoursAreThreeActions) {
    playWell("press choosePicture:\n"
             "choose $/photo.png\n"
             "press pictureToList1:\n"
             "state $/state.json\n"
             "press undoButton\n"
             "state $/undone.json\n");
    EXPECT_THAT(names(1), ElementsAre("red", "lime", "blue", "yellow", "aqua", "fuchsia", "black", "white",
                                      "gray", "maroon", "navy", "green"));
    EXPECT_EQ(state()["lists"][0]["records"][8]["SRed"], 128 * 257) << "to the bit";
    EXPECT_EQ(state()["undoNames"], json({"!Swatch Colors added!"}));
    EXPECT_EQ(state()["status"], "");
    EXPECT_EQ(state()["panels"][0]["parent"], "pictureWindow");
    EXPECT_EQ(state("undone.json")["lists"][0]["viewCount"], 0);
}

TEST_F(DrivePictures, ResultsAreTheSameEveryTime) {
    const std::string script = "choose $/photo.png\n"
                               "press choosePicture:\n"
                               "type pictureCount 5\n"
                               "press boxByHue\n"
                               "press pictureToList2:\n"
                               "press boxSquare5\n"
                               "key Left picture\n"
                               "key Return picture\n";
    playWell(script + "state $/one.json\n");
    playWell(script + "state $/two.json\n", {"--option"});
    EXPECT_EQ(state("one.json")["lists"][1]["records"].size(), 5u);
    EXPECT_EQ(state("one.json")["lists"], state("two.json")["lists"]);
    EXPECT_EQ(state("one.json")["secondColor"], json({1, 1, 0, 1})) << "left of the middle";
    EXPECT_EQ(state("one.json")["secondColor"], state("two.json")["secondColor"]);
}

TEST_F(DrivePictures, APictureIsDroppedAndWhatIsNoneIsRefusedOnTheStatusLine) {
    write("note.png", "no picture at all");
    playWell("choose cancel\n"
             "press choosePicture:\n"
             "dropfile picture 20 20 $/note.png\n"
             "state $/refused.json\n"
             "dropfile picture 20 20 $/photo.png\n"
             "press pictureToList1:\n"
             "state $/state.json\n");
    EXPECT_EQ(state("refused.json")["status"], "note.png: no PNG, JPEG, TIFF or WebP picture");
    EXPECT_EQ(state("refused.json")["outlets"]["pictureToList1"]["enabled"], false);
    EXPECT_EQ(state()["status"], "");
    EXPECT_EQ(names(1).size(), 12u);
}

TEST_F(DrivePictures, AFullListRefusesThem) {
    FileBuilder builder;
    builder.header(2, 4990);
    for (int i = 0; i < 4990; ++i)
        builder.colour(0, i, 0, 0).name("s");
    write("many.aco", builder.bytes);
    playWell("choose $/many.aco\n"
             "press loadSwatch1:\n"
             "choose $/photo.png\n"
             "press choosePicture:\n"
             "state $/before.json\n"
             "answer\n"
             "press pictureToList1:\n"
             "state $/state.json\n");
    EXPECT_EQ(state()["lists"][0]["viewCount"], 4990);
    ASSERT_EQ(state()["alerts"].size(), 1u);
    EXPECT_THAT(state()["alerts"][0].dump(), HasSubstr("5002"));
    EXPECT_EQ(state()["undoNames"], state("before.json")["undoNames"]);
}

} // namespace
} // namespace chromalog::test
