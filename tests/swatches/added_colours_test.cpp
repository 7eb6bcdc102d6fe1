#include "swatches/added_colours.h"
#include "swatches/list_fixture.h"

namespace chromalog {
namespace {

using testing::ElementsAre;

class AddedRecords : public test::ListTest {
  public:
    void describeStep(std::string_view step) override { words.emplace_back(step); }

  protected:
    std::vector<std::string> words;
};

TEST_F(AddedRecords, RecordsAreAppendedAsTheyAreOrNotAtAll) {
    fillNumbered(swatch1, 4998);
    FCOStruct record = test::swatch("Odd", 0x123450000, -1, 7);
    record.Ordre = 5;
    const std::vector<FCOStruct> two{record, record};
    EXPECT_TRUE(addRecords(*this, swatch1, two, "!Test!"));
    EXPECT_EQ(swatch1.getNumberOfColors(), 5000);
    EXPECT_EQ(std::memcmp(&swatch1.records()[4999], &record, sizeof record), 0);
    EXPECT_THAT(labels, ElementsAre("!Test!"));
    EXPECT_THAT(words, ElementsAre("Add 2 colors"));
    EXPECT_FALSE(addRecords(*this, swatch1, two, "!Test!"));
    EXPECT_EQ(platform.alerts.size(), 1u);
    EXPECT_FALSE(addRecords(*this, swatch2, {}, "!Test!"));
    EXPECT_EQ(labels.size(), 1u);
}

} // namespace
} // namespace chromalog
