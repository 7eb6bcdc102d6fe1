#include "history/undo_labels.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace chromalog {
namespace {

TEST(UndoLabels, AllStandBetweenMarksAndDiffer) {
    for (const std::string_view label : undo_label::all) {
        EXPECT_TRUE(label.size() > 2 && label.front() == '!' && label.back() == '!') << label;
        EXPECT_EQ(std::count(undo_label::all.begin(), undo_label::all.end(), label), 1) << label;
    }
}

struct ListingCase {
    std::string_view description, expected;
};

TEST(UndoLabels, AreCutOutOfADescription) {
    const ListingCase cases[] = {
        {"", " "},
        {"no marks at all", " "},
        {"(\"!Load Swatch!\")", " Load Swatch\r"},
        {"(\"!Load Swatch!\", \"!LoadSwatch!\")", " Load Swatch\rLoadSwatch\r"},
        {"!no closing mark", " "},
        {"x!!y!long enough!", " \rlong enough\r"},
        {"!one!, !four!", " one\r"},         // five characters after the second opening mark
        {"!one!, !fours!", " one\rfours\r"}, // six
        {"!A!", " A\r"},                     // the first mark is not clamped to that length
    };
    for (const ListingCase& c : cases)
        EXPECT_EQ(undoListing(c.description), c.expected) << c.description;
}

} // namespace
} // namespace chromalog
