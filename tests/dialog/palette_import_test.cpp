// What a palette becomes before it is in a list: inks, files that say nothing, lists without room.
#include "dialog/pick_fixture.h"
#include "exchange/host_ink.h"
#include "exchange/import_source.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A host that turns every ink into one colour, or fails.
struct InkHost {
    static inline std::vector<int> asked;
    static inline bool fails = false;
    static std::int16_t convert(ColorServicesInfo* info) {
        asked.assign(info->colorComponents, info->colorComponents + 4);
        const std::int16_t answer[] = {51, 102, 204, 0};
        std::copy(answer, answer + 4, info->colorComponents);
        return fails ? -1 : 0;
    }
};

TEST(HostInk, NoInkIs255ToTheHostAndAFormulaStandsInForOneThatFails) {
    InkHost::fails = false;
    const CmykToRgb ink = hostInk(InkHost::convert);
    const Rgb converted = ink({0, 1, 0.2, 0.5});
    EXPECT_THAT(InkHost::asked, ElementsAre(255, 0, 204, 128));
    EXPECT_NEAR(converted.red, 0.2, 1e-9);
    EXPECT_NEAR(converted.green, 0.4, 1e-9);
    EXPECT_NEAR(converted.blue, 0.8, 1e-9);
    InkHost::fails = true;
    const Rgb plain = ink({0, 1, 0.2, 0.5});
    EXPECT_NEAR(plain.red, 0.5, 1e-9);
    EXPECT_NEAR(plain.green, 0, 1e-9);
    EXPECT_NEAR(plain.blue, 0.4, 1e-9);
}

class PaletteImportTest : public PickTest {
  protected:
    void SetUp() override {
        PickTest::SetUp();
        std::filesystem::create_directories(applications);
    }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(applications / name, std::ios::binary) << text;
        return applications / name;
    }
};

TEST_F(PaletteImportTest, SeveralFilesHaveTheTitleOfTheFirstThatHasOne) {
    const std::string none = write("none.hex", "#000000\n");
    const std::string first = write("a.gpl", "GIMP Palette\nName: First\n255 0 0\tRed\n");
    const std::string second = write("b.gpl", "GIMP Palette\nName: Second\n0 0 255\tBlue\n");
    const ImportSource source = readImportSource({none, first, second});
    EXPECT_EQ(source.palette.title, "First");
    EXPECT_EQ(source.name, "none.hex");
    EXPECT_EQ(source.description, "3 files, 3 colors");
}

TEST_F(PaletteImportTest, AFileWithoutEndIsNoPalette) {
    const std::string path = write("long.gpl", "GIMP Palette\n1 2 3\tA\n");
    std::filesystem::resize_file(path, (std::uintmax_t{64} << 20) + 1);
    try {
        readImportSource({path});
        FAIL();
    } catch (const PaletteError& error) {
        EXPECT_THAT(error.what(), HasSubstr("long.gpl could not be read: it is too long for a palette"));
    }
}

TEST_F(PaletteImportTest, EachWayTellsHowManyItBringsAndWhatCouldNotBeRead) {
    std::string many = "GIMP Palette\n";
    for (int i = 0; i < 4999; ++i)
        many += std::to_string(i % 256) + " " + std::to_string(i / 256) + " 0\tn\n";
    const std::string full = write("many.gpl", many);
    const std::string torn = write("torn.gpl", "GIMP Palette\n255 255 255\tWhite\nnonsense\n0 0 255\tBlue\n");
    pick([&](ChromalogControler& c, HeadlessDesktop& d) {
        auto& host = dynamic_cast<HeadlessViewHost&>(*c.panels().one.view.host());
        const auto bringIn = [&d](const std::string& path, const std::function<void(HeadlessForm&)>& step) {
            d.forms.at("chromalogWindow")->send("importPalette1:");
            const auto rest = std::exchange(d.modalSteps, {});
            d.modalSteps.push_back([&] {
                step(*d.forms.at("ImportPanel"));
                d.stopModal(0);
            });
            d.answerPanel(path);
            d.modalSteps = rest;
        };
        bringIn(full, [](HeadlessForm& panel) { panel.send("importReplace:"); });
        int before = 0;
        bringIn(torn, [&](HeadlessForm& panel) {
            EXPECT_EQ(panel.outlet<HeadlessButton>("importReplace").title(), "Replace by 2");
            EXPECT_EQ(panel.outlet<HeadlessButton>("importAppend").title(), "Append 1");
            EXPECT_THAT(panel.outlet<HeadlessTextView>("importLoss").text(),
                        HasSubstr("1 could not be read\n"));
            before = host.redisplays;
            panel.send("importAppend:");
        });
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 5000);
        EXPECT_GT(host.redisplays, before);
    });
}

} // namespace
} // namespace chromalog::test
