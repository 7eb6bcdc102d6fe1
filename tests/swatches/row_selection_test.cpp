#include "swatches/row_selection.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RowSelection, TogglingTakesTheSelectedRowAlongFirst) {
    RowSelection rows;
    rows.toggle(5, 2);
    EXPECT_THAT(rows.rows(), ElementsAre(2, 5));
    rows.toggle(3, 5);
    EXPECT_THAT(rows.rows(), ElementsAre(2, 3, 5));
    rows.toggle(2, 3);
    EXPECT_THAT(rows.rows(), ElementsAre(3, 5));
    EXPECT_TRUE(rows.has(5));
    EXPECT_FALSE(rows.has(2));
}

TEST(RowSelection, ARowOutsideOfTheListDoesNotJoin) {
    RowSelection rows;
    rows.toggle(5, -1);
    EXPECT_THAT(rows.rows(), ElementsAre(5));
}

TEST(RowSelection, ShiftReachesFromTheRowPressedWithoutIt) {
    RowSelection rows;
    rows.extendTo(4, 2);
    EXPECT_THAT(rows.rows(), ElementsAre(2, 3, 4));
    rows.extendTo(0, 4);
    EXPECT_THAT(rows.rows(), ElementsAre(0, 1, 2)) << "from the same row as before";
    rows.toggle(6, 0);
    rows.extendTo(7, 6);
    EXPECT_THAT(rows.rows(), ElementsAre(6, 7)) << "from the row that Ctrl pressed";
}

TEST(RowSelection, AllAndNone) {
    RowSelection rows;
    rows.setAll(3);
    EXPECT_THAT(rows.rows(), ElementsAre(0, 1, 2));
    rows.clear();
    EXPECT_TRUE(rows.empty());
    rows.extendTo(1, 1);
    EXPECT_THAT(rows.rows(), ElementsAre(1)) << "nothing of before plays a part";
    rows.setAll(0);
    EXPECT_THAT(rows.rows(), IsEmpty());
}

} // namespace
} // namespace chromalog
