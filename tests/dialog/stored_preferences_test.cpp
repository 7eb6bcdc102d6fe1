#include "dialog/pick_fixture.h"

#include <cstring>

namespace chromalog::test {
namespace {

constexpr std::size_t kFileSize = 3'040'536;

class StoredPreferencesTest : public PickTest {
  protected:
    std::vector<std::uint8_t> file = std::vector<std::uint8_t>(kFileSize);
    void setName(int list, const std::string& name) {
        const std::size_t at = list == 1 ? 3'040'010 : 3'040'266;
        file[at] = static_cast<std::uint8_t>(name.size());
        std::memcpy(&file[at + 1], name.data(), name.size());
    }
    static std::string nameField(HeadlessDesktop& d, const char* outlet) {
        return control<HeadlessTextField>(d, outlet).text();
    }
};

TEST_F(StoredPreferencesTest, TheFirstRunLoadsNothingAndWritesTheFile) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
        EXPECT_EQ(nameField(d, "swatch1Name"), "");
    });
    EXPECT_EQ(std::filesystem::file_size(preferences()), kFileSize);
}

TEST_F(StoredPreferencesTest, ListsNamesAndChoiceComeBack) {
    setName(1, "Flat.aco");
    file[3'040'006] = 2;
    file[3'040'528] = 1;
    writePreferences(file);
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 2);
        EXPECT_EQ(nameField(d, "swatch1Name"), "Flat.aco");
        EXPECT_EQ(control<HeadlessButton>(d, "okButton").title(), "Use 2nd color");
        EXPECT_EQ(c.record().undoLimit, 20) << "the stored limit never takes effect";
    });
}

TEST_F(StoredPreferencesTest, AnEmptyNameLeavesTheFieldEvenIfTheListHoldsColours) {
    file[3'040'006] = 2;
    writePreferences(file);
    prepare = nullptr;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 2);
        EXPECT_EQ(nameField(d, "swatch1Name"), "");
    });
}

TEST_F(StoredPreferencesTest, ANameBeyondAsciiLeavesTheField) {
    setName(1, "Caf\x8E");
    setName(2, "Plain");
    writePreferences(file);
    pick([](ChromalogControler&, HeadlessDesktop& d) {
        EXPECT_EQ(nameField(d, "swatch1Name"), "");
        EXPECT_EQ(nameField(d, "swatch2Name"), "Plain");
    });
}

TEST_F(StoredPreferencesTest, TheTerminatorOfANameOf255LandsInTheNextField) {
    setName(1, std::string(255, 'a'));
    setName(2, "gone");
    writePreferences(file);
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(nameField(d, "swatch1Name"), std::string(255, 'a'));
        EXPECT_EQ(c.record().swatchName2[0], 0) << "the first byte after the first name";
        EXPECT_EQ(nameField(d, "swatch2Name"), "");
    });
}

TEST_F(StoredPreferencesTest, OptionSkipsTheFileAndKeepsItOnce) {
    file[3'040'006] = 7;
    writePreferences(file);
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
    });
    const auto skipped = preferences().string() + ".skipped";
    ASSERT_TRUE(std::filesystem::exists(skipped));
    std::ifstream kept(skipped, std::ios::binary);
    kept.seekg(3'040'006);
    EXPECT_EQ(kept.get(), 7);
    std::ifstream now(preferences(), std::ios::binary);
    now.seekg(3'040'006);
    EXPECT_EQ(now.get(), 0) << "replaced with what the record holds";
}

TEST_F(StoredPreferencesTest, AFileOf0xFFLeavesARunningDialogAndThePointersAlone) {
    writePreferences(std::vector<std::uint8_t>(kFileSize + 100, 0xFF));
    pick([this](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(c.record().pickerRecord, &record);
        EXPECT_EQ(c.record().resultCode, &result);
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), -1) << "reported as it stands";
        EXPECT_EQ(control<HeadlessButton>(d, "okButton").title(), "Use 2nd color");
        c.okPressed();
    });
    EXPECT_EQ(result, 0);
}

TEST_F(StoredPreferencesTest, AFileOf100BytesReachesTheFirstSwatchAlone) {
    writePreferences(std::vector<std::uint8_t>(100, 0x41));
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        EXPECT_EQ(c.record().swatchList1[0].Namen[93], 0x41);
        EXPECT_EQ(c.record().swatchList1[0].Namen[94], 0);
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 0);
    });
}

TEST_F(StoredPreferencesTest, ClearingAndCancellingStoresTheViewsCount) {
    file[3'040'006] = 5;
    writePreferences(file);
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        c.panels().one.view.setNumberOfColors(0);
        EXPECT_EQ(c.record().numColors1, 5) << "until the next save";
        c.cancelPressed();
        EXPECT_EQ(c.record().numColors1, 0);
    });
}

TEST_F(StoredPreferencesTest, NothingIsWrittenWhereThereIsNoApplicationsDirectory) {
    prepare = [](HeadlessDesktop& d) { d.applications.clear(); };
    pick();
    EXPECT_FALSE(std::filesystem::exists(preferences()));
    EXPECT_EQ(result, 0);
}

} // namespace
} // namespace chromalog::test
