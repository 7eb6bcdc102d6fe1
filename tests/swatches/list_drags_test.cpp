#include "swatches/list_fixture.h"

#include <cmath>

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ListDrags : public test::ListTest {};

TEST_F(ListDrags, ADragCarriesTheSelectedSwatchWhereverThePointerIs) {
    fillNumbered(swatch1, 3);
    data->swatchList1[1] = test::swatch("caf\x8E", 65535, 0x12345, 1);
    swatch1.setSelectedColor(1);
    swatch1.mouseDragged({{100, 60}});
    ASSERT_THAT(platform.drags, SizeIs(1));
    const DragRequest& drag = platform.drags[0];
    EXPECT_EQ(drag.source, static_cast<const DragSource*>(&swatch1));
    EXPECT_EQ(drag.image.size, (Size{32, 16}));
    EXPECT_EQ(drag.image.origin, (Point{84, 68}));
    EXPECT_TRUE(drag.image.blackFrame);
    EXPECT_EQ(drag.pasteboard.text, "caf\u00e9");
    ASSERT_TRUE(drag.pasteboard.colour);
    EXPECT_EQ(drag.pasteboard.colour->red(), 1.0);
    EXPECT_EQ(drag.pasteboard.colour->green(), static_cast<double>(0x2345 / 65535.0F)) << "the low 16 bits";
    EXPECT_EQ(drag.pasteboard.colour->blue(), static_cast<double>(1 / 65535.0F));
    EXPECT_EQ(drag.pasteboard.colour->alpha(), 1.0);
}

TEST_F(ListDrags, ADragLeavesTheSwatchOnTheClipboard) {
    fill(swatch2, {test::swatch("Rose", 65535, 100, 200)});
    swatch2.mouseDragged({{0, 0}});
    EXPECT_TRUE(platform.generalPasteboard().colourType);
    EXPECT_EQ(platform.generalPasteboard().text, "Rose");
}

TEST_F(ListDrags, ADragFromPastTheCountCarriesTheUnusedRecordAndPastTheArrayNothing) {
    fillNumbered(swatch1, 2);
    data->swatchList1[7] = test::swatch("unused");
    swatch1.setSelectedColor(7);
    swatch1.mouseDragged({{0, 0}});
    ASSERT_THAT(platform.drags, SizeIs(1));
    EXPECT_EQ(platform.drags[0].pasteboard.text, "unused");
    for (const std::int16_t row : {std::int16_t{5000}, std::int16_t{-1}}) {
        swatch1.setSelectedColor(row);
        swatch1.mouseDragged({{0, 0}});
    }
    EXPECT_THAT(platform.drags, SizeIs(1));
}

TEST_F(ListDrags, ANameGoesToItsFirstZero) {
    fill(swatch1, {test::swatch(std::string_view("Sky\0blue", 8))});
    swatch1.mouseDragged({{0, 0}});
    ASSERT_THAT(platform.drags, SizeIs(1));
    EXPECT_EQ(platform.drags[0].pasteboard.text, "Sky");
    EXPECT_EQ(platform.generalPasteboard().text, "Sky");
    swatch1.performDragOperation(dropOf(Colour(), 0));
    ASSERT_THAT(platform.alerts, SizeIs(1));
    EXPECT_EQ(platform.alerts[0].informative, "Sky") << "of the swatch that the dropped colour equals";
}

TEST_F(ListDrags, OnlyOfferedColoursAreTaken) {
    DragInfo info = dropOf(Colour(), 0);
    EXPECT_EQ(swatch1.draggingEntered(info), DragOperation::copy);
    info.sourceAllows = false;
    EXPECT_EQ(swatch1.draggingEntered(info), DragOperation::none);
    info = {};
    info.pasteboard.textType = true;
    EXPECT_EQ(swatch1.draggingEntered(info), DragOperation::none);
}

TEST_F(ListDrags, ADropOnAnEmptyListAppendsWhateverItsPosition) {
    EXPECT_TRUE(swatch1.performDragOperation(namedDropOf(colour(10, 20, 30), 9, "Ink")));
    EXPECT_THAT(names(swatch1), ElementsAre("Ink"));
    EXPECT_EQ(data->swatchList1[0].SRed, 10);
    EXPECT_EQ(data->swatchList1[0].SGreen, 20);
    EXPECT_EQ(data->swatchList1[0].SBlue, 30);
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
}

TEST_F(ListDrags, ADropInsertsAtItsRowAndGrowsTheFrame) {
    fillNumbered(swatch1, 12);
    swatch1.performDragOperation(namedDropOf(colour(60'000, 60'000, 60'000), 2, "New"));
    EXPECT_EQ(swatch1.getNumberOfColors(), 13);
    EXPECT_EQ(nameBytes(data->swatchList1[2]), "New");
    EXPECT_EQ(nameBytes(data->swatchList1[3]), "2");
    EXPECT_EQ(nameBytes(data->swatchList1[12]), "11");
    EXPECT_EQ(swatch1.frame().h, 22 * 14);
}

TEST_F(ListDrags, TheStepIsRecordedBeforeAnythingIsReadRefusedDropsIncluded) {
    fillNumbered(swatch1, 1);
    onUndoStep = [this] { EXPECT_THAT(platform.alerts, IsEmpty()); };
    swatch1.performDragOperation(dropOf(colour(0, 0, 0), 0));
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
    onUndoStep = nullptr;
    DragInfo text;
    text.pasteboard.textType = true;
    EXPECT_TRUE(swatch1.performDragOperation(text));
    EXPECT_THAT(labels, SizeIs(2));
    DragInfo unreadable = dropOf(Colour(), 0);
    unreadable.pasteboard.colour.reset();
    EXPECT_TRUE(swatch1.performDragOperation(unreadable));
    EXPECT_THAT(labels, SizeIs(3));
    EXPECT_EQ(swatch1.getNumberOfColors(), 1);
}

TEST_F(ListDrags, AColourAtADistanceOfTenIsRefusedAndAtTenAndAHundredthInserted) {
    fill(swatch1, {test::swatch("Black")});
    swatch1.performDragOperation(dropOf(colour(10, 0, 0), 0));
    ASSERT_THAT(platform.alerts, SizeIs(1));
    EXPECT_EQ(platform.alerts[0].message, "Thist color exists !");
    EXPECT_EQ(platform.alerts[0].informative, "Black");
    EXPECT_EQ(platform.alerts[0].button, "ok");
    EXPECT_EQ(swatch1.getNumberOfColors(), 1);
    swatch1.performDragOperation(dropOf(colour(10.01, 0, 0), 0));
    EXPECT_EQ(swatch1.getNumberOfColors(), 2);
    EXPECT_THAT(platform.alerts, SizeIs(1));
}

struct FormatCase {
    std::string name, shown;
};

TEST_F(ListDrags, TheRefusedNameIsShownAndNeverUsedAsAFormat) {
    const FormatCase cases[] = {{"50%% grey", "50% grey"},
                                {"%s%n%d", "%s%n%d"},
                                {"%%%%", "%%"},
                                {"%%%", "%%"},
                                {"100%", "100%"},
                                {"", ""},
                                {"caf\x8E", "caf\u00e9"}};
    for (const FormatCase& c : cases) {
        fill(swatch1, {test::swatch(c.name)});
        swatch1.performDragOperation(dropOf(Colour(), 0));
        EXPECT_EQ(platform.alerts.back().informative, c.shown) << c.name;
    }
}

TEST_F(ListDrags, ANamelessColourIsCalledNewColor) {
    swatch1.performDragOperation(dropOf(colour(1, 2, 3), 0));
    EXPECT_THAT(names(swatch1), ElementsAre("New Color"));
}

TEST_F(ListDrags, TheFirstColoursNameIsCutToNineCharacters) {
    firstName = "Twelve chars";
    swatch1.performDragOperation(dropOf(firstColor, 0));
    EXPECT_THAT(names(swatch1), ElementsAre("Twelve ch"));
    EXPECT_EQ(zeroTerminatedName(data->swatchList1[0]), "Twelve chars") << "the bytes stand behind";
}

TEST_F(ListDrags, AShorterFirstNameIsFollowedByWhateverBytesWereThere) {
    data->swatchList1[0] = test::swatch("old old old");
    firstName = "Red";
    swatch1.performDragOperation(dropOf(firstColor, 0));
    EXPECT_THAT(names(swatch1), ElementsAre("Red old o"));
}

TEST_F(ListDrags, ADroppedNameIsLossyAsciiWithItsOwnLength) {
    swatch1.performDragOperation(namedDropOf(colour(1, 2, 3), 0, "Gr\u00fcn \u5927"));
    EXPECT_THAT(names(swatch1), ElementsAre("Grun ?"));
    swatch2.performDragOperation(namedDropOf(colour(1, 2, 3), 0, std::string(300, 'n')));
    EXPECT_EQ(data->swatchList2[0].Namen[0], 300 - 256);
    DragInfo unreadable = dropOf(colour(60'000, 2, 3), 0);
    unreadable.pasteboard.textType = true;
    swatch1.performDragOperation(unreadable);
    EXPECT_EQ(data->swatchList1[0].Namen[0], 0);
}

struct MoveCase {
    int from, to;
    std::vector<std::string> expected;
};

TEST_F(ListDrags, ADropOnTheSameListMovesTheSwatch) {
    const MoveCase cases[] = {{2, 0, {"2", "0", "1", "3", "4"}},
                              {2, 4, {"0", "1", "3", "4", "2"}},
                              {2, 2, {"0", "1", "2", "3", "4"}},
                              {1, 7, {"0", "2", "3", "4", ""}}}; // gone past the count
    for (const MoveCase& c : cases) {
        data->swatchList1[5] = FCOStruct{};
        fillNumbered(swatch1, 5);
        swatch1.setSelectedColor(static_cast<std::int16_t>(c.from));
        swatch1.performDragOperation(dropOf(colour(100.0 * c.from, 0, 0), c.to, &swatch1));
        EXPECT_EQ(names(swatch1), c.expected) << c.from << " to " << c.to;
        EXPECT_EQ(swatch1.getSelected(), c.from) << "the selection stays on its row";
    }
    EXPECT_EQ(nameBytes(data->swatchList1[7]), "1");
    EXPECT_THAT(platform.alerts, IsEmpty()) << "the distance plays no part";
}

TEST_F(ListDrags, AMoveToPastTheArrayStopsAtItsEnd) {
    fillNumbered(swatch1, kListCapacity);
    data->swatchList2[0] = test::swatch("guard");
    swatch1.setSelectedColor(0);
    swatch1.performDragOperation(dropOf(Colour(), 5000, &swatch1));
    EXPECT_EQ(nameBytes(data->swatchList1[0]), "1");
    EXPECT_EQ(nameBytes(data->swatchList1[4998]), "4999");
    EXPECT_EQ(nameBytes(data->swatchList1[4999]), "0");
    EXPECT_EQ(nameBytes(data->swatchList2[0]), "guard");
}

TEST_F(ListDrags, AMoveFromPastTheArrayMovesNothing) {
    fillNumbered(swatch1, 5);
    swatch1.setSelectedColor(5000);
    swatch1.performDragOperation(dropOf(Colour(), 0, &swatch1));
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(ListDrags, AColourOfTheOtherListIsInsertedOneUnitLowerForHalfOfTheWords) {
    fill(swatch2, {test::swatch("from two", 65535, 40'000, 12'345)});
    swatch2.mouseDragged({{0, 0}});
    DragInfo info;
    info.location = row(0);
    info.source = &swatch2;
    info.pasteboard = platform.drags.at(0).pasteboard;
    swatch1.performDragOperation(info);
    EXPECT_THAT(names(swatch1), ElementsAre("from two"));
    const FCOStruct& record = data->swatchList1[0];
    for (const auto& [stored, word] :
         {std::pair{record.SRed, 65535}, {record.SGreen, 40'000}, {record.SBlue, 12'345}})
        EXPECT_EQ(stored, static_cast<int>(static_cast<double>(word / 65535.0F) * 65535.0));
}

TEST_F(ListDrags, AFullListRefusesOneMoreWithTheLimitAlertAfterTheStep) {
    fillNumbered(swatch1, kListCapacity);
    data->swatchList2[0] = test::swatch("guard");
    const auto before = std::make_unique<GlobalRecord>(*data);
    swatch1.performDragOperation(namedDropOf(colour(1, 60'000, 1), 3, "one more"));
    ASSERT_THAT(platform.alerts, SizeIs(1));
    EXPECT_EQ(platform.alerts[0].message, "A Swatch list has a maximum of 5000 colors. ");
    EXPECT_EQ(platform.alerts[0].informative, "5001 colors in list ");
    EXPECT_EQ(platform.alerts[0].button, "ok");
    EXPECT_EQ(swatch1.getNumberOfColors(), 5000);
    EXPECT_THAT(labels, SizeIs(1));
    EXPECT_EQ(std::memcmp(before.get(), data.get(), sizeof *data), 0);
}

TEST_F(ListDrags, TheLastPlaceOfTheArrayCanBeFilled) {
    fillNumbered(swatch1, kListCapacity - 1);
    swatch1.performDragOperation(namedDropOf(colour(1, 60'000, 1), 0, "last one"));
    EXPECT_EQ(swatch1.getNumberOfColors(), 5000);
    EXPECT_EQ(nameBytes(data->swatchList1[0]), "last one");
    EXPECT_EQ(nameBytes(data->swatchList1[4999]), "4998");
}

TEST_F(ListDrags, ANegativeCountTakesADropWithoutWritingAnywhere) {
    const auto before = std::make_unique<GlobalRecord>(*data);
    swatch1.setNumberOfColors(-3);
    swatch1.performDragOperation(dropOf(colour(1, 2, 3), 0));
    EXPECT_EQ(swatch1.getNumberOfColors(), -2);
    EXPECT_EQ(std::memcmp(before.get(), data.get(), sizeof *data), 0);
}

} // namespace
} // namespace chromalog
