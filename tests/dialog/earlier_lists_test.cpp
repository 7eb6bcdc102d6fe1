// Lists that were kept come back in the dialog.
#include "dialog/pick_fixture.h"
#include "prefs/preferences_layout.h"

#include <gmock/gmock.h>

#include <cstring>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

class EarlierListsTest : public PickTest {
  protected:
    static Bytes lists(int first, const std::string& firstName, int second, const std::string& secondName) {
        Bytes file(kPreferencesSize);
        const int counts[] = {first, second};
        const std::string names[] = {firstName, secondName};
        for (const int list : {0, 1}) {
            file[kFileCounts[list]] = static_cast<std::uint8_t>(counts[list]);
            file[kFileNames[list]] = static_cast<std::uint8_t>(names[list].size());
            std::memcpy(&file[kFileNames[list] + 1], names[list].data(), names[list].size());
            file[kFileLists[list]] = 1;
            file[kFileLists[list] + 1] =
                static_cast<std::uint8_t>(names[list].empty() ? 'x' : names[list][0]);
        }
        return file;
    }
    void keep(const std::string& copy, const Bytes& bytes) {
        std::filesystem::create_directories(preferences().parent_path());
        std::ofstream(preferences().string() + "." + copy, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    /// Opens the panel; the steps run inside it, the last one closes it.
    static void openPanel(HeadlessDesktop& d, const std::function<void(HeadlessForm&)>& step) {
        const auto rest = std::exchange(d.modalSteps, {});
        d.modalSteps.push_back([&] {
            HeadlessForm& panel = *d.forms.at("EarlierLists");
            step(panel);
            panel.send("closeEarlierLists:");
        });
        d.forms.at("chromalogWindow")->send("bringBackLists:");
        d.modalSteps = rest;
    }
};

TEST_F(EarlierListsTest, ACopySaysWhatItHolds) {
    keep("before", lists(2, "Flat.aco", 0, ""));
    keep("kept-20240501T120000Z", lists(2, "Flat.aco", 0, "")); // the same
    keep("skipped", Bytes(50));
    pick([](ChromalogControler&, HeadlessDesktop& d) {
        openPanel(d, [](HeadlessForm& panel) {
            const auto& rows = panel.outlet<HeadlessRowList>("earlierLists");
            ASSERT_EQ(rows.rows.size(), 1u) << "a damaged one cannot come back";
            EXPECT_THAT(rows.rows[0], HasSubstr(", list 1: 2 colors (Flat.aco), list 2: empty"));
            EXPECT_EQ(rows.selected, 0);
        });
    });
}

TEST_F(EarlierListsTest, WithoutCopiesThereIsNothingToPress) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        openPanel(d, [](HeadlessForm& panel) {
            EXPECT_THAT(panel.outlet<HeadlessRowList>("earlierLists").rows, IsEmpty());
            EXPECT_FALSE(panel.outlet<HeadlessButton>("bringBackList1").enabled());
            panel.send("bringBackList2:");
        });
        EXPECT_EQ(c.history().undoSteps(), 0);
    });
}

TEST_F(EarlierListsTest, EachListComesBackAsOneStepOfUndo) {
    keep("before", lists(2, "Flat.aco", 3, "Other.aco"));
    writePreferences(lists(1, "Now", 1, "Then"));
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        openPanel(d, [](HeadlessForm& panel) { panel.send("bringBackList1:"); });
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 2);
        EXPECT_EQ(c.record().numColors1, 2);
        EXPECT_EQ(c.record().swatchList1[0].Namen[1], 'F');
        EXPECT_EQ(c.panels().one.view.getSwatchName(), "Flat.aco");
        EXPECT_EQ(control<HeadlessTextField>(d, "swatch1Name").text(), "Flat.aco");
        EXPECT_EQ(c.record().swatchName1[0], 8);
        EXPECT_EQ(c.panels().two.view.getNumberOfColors(), 1) << "the other list stays";
        EXPECT_THAT(c.history().manager()->undoNames(), ElementsAre("!Earlier Lists!"));
        EXPECT_EQ(c.history().undoSteps(), 1);
        c.history().undoOutAction();
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 1);
        EXPECT_EQ(control<HeadlessTextField>(d, "swatch1Name").text(), "Now");
        EXPECT_EQ(c.record().swatchList1[0].Namen[1], 'N');
        c.history().redoOutAction();
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 2);
    });
}

TEST_F(EarlierListsTest, BothListsComeBackThoughTheFirstStepReplacesTheCopy) {
    keep("before", lists(2, "Flat.aco", 3, "Other.aco"));
    writePreferences(lists(1, "Now", 1, "Then"));
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        openPanel(d, [](HeadlessForm& panel) {
            panel.send("bringBackList1:");
            panel.send("bringBackList2:");
        });
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 2);
        EXPECT_EQ(c.panels().two.view.getNumberOfColors(), 3);
        EXPECT_EQ(c.panels().two.view.getSwatchName(), "Other.aco");
        EXPECT_EQ(c.record().swatchList2[0].Namen[1], 'O');
        EXPECT_EQ(c.history().undoSteps(), 2);
    });
}

TEST_F(EarlierListsTest, AForeignCopyIsHeldToWhatAListCanHave) {
    keep("before", Bytes(kPreferencesSize, 0xFF));
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        openPanel(d, [](HeadlessForm& panel) {
            panel.send("bringBackList1:");
            panel.outlet<HeadlessRowList>("earlierLists").selected = 7;
            panel.send("bringBackList2:");
        });
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0) << "a negative count";
        EXPECT_EQ(c.panels().two.view.getNumberOfColors(), 0) << "no such row";
        EXPECT_EQ(c.history().undoSteps(), 1);
    });
}

TEST_F(EarlierListsTest, AMissingFormIsLogged) {
    prepare = [](HeadlessDesktop& d) { d.missingForms.insert("EarlierLists"); };
    pick([](ChromalogControler&, HeadlessDesktop& d) {
        d.forms.at("chromalogWindow")->send("bringBackLists:");
        EXPECT_THAT(d.logLines, testing::Contains("failed to load the form EarlierLists"));
    });
}

} // namespace
} // namespace chromalog::test
