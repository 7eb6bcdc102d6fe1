#include "swatches/swatch_list_view.h"

#include "support/list_delegate.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace chromalog {
namespace {

using test::Primitive;
using test::RecordingCanvas;
using Kind = Primitive::Kind;
using testing::ElementsAre;

const Colour kBlack, kBlue = Colour::rgb(0, 0, 1);

/// Takes the first colours that the list offers.
class Dialog : public test::ListDelegate {
  public:
    std::vector<int> firstColours;

    void setFirstColor(CSwatchList&, std::int16_t index) override { firstColours.push_back(index); }
};

class SwatchListView : public testing::Test {
  protected:
    SwatchListView() : records(new FCOStruct[kListCapacity]()) {
        host.clip = Rect{0, 0, 200, 300};
        list.setHost(&host);
        list.setSwatchList(records.get());
        list.initWithFrame({0, 0, 200, 100});
    }
    ~SwatchListView() override { list.setHost(nullptr); }

    void fill(int count) {
        for (int i = 0; i < count; ++i) {
            setName(i, "swatch " + std::to_string(i));
            records[i].SRed = i * 256, records[i].SGreen = 65535 - i, records[i].SBlue = 77;
        }
        list.setNumberOfColors(static_cast<std::int16_t>(count));
        list.setScrollSize();
    }
    void setName(int i, std::string_view name) {
        records[i].Namen[0] = static_cast<std::uint8_t>(name.size());
        std::copy(name.begin(), name.end(), records[i].Namen + 1);
    }
    std::vector<Primitive> draw(Rect clip = {-1e9, -1e9, 2e9, 2e9}) {
        RecordingCanvas canvas(true, clip);
        list.drawRect(canvas);
        return canvas.primitives;
    }

    test::HeadlessViewHost host;
    Dialog dialog;
    CSwatchList list{dialog};
    std::unique_ptr<FCOStruct[]> records;
};

TEST_F(SwatchListView, AnEmptyListDrawsNothingNotEvenItsFrame) {
    EXPECT_TRUE(draw().empty());
    list.setNumberOfColors(-3);
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(dialog.screen.logLines.empty());
}

TEST_F(SwatchListView, OneSwatchIsAFrameAPatchANameAndASelection) {
    setName(0, "Leaf");
    records[0].SRed = 0x8000, records[0].SGreen = 65535, records[0].SBlue = 0;
    list.setNumberOfColors(1);
    const std::vector<Primitive> drawn = draw();
    ASSERT_EQ(drawn.size(), 5u);
    EXPECT_EQ(drawn[0].kind, Kind::strokeRect);
    EXPECT_EQ(drawn[0].rect, list.bounds());
    EXPECT_TRUE(drawn[0].colour.sameRgb(kBlack));
    EXPECT_EQ(drawn[0].width, 1);
    EXPECT_EQ(drawn[1].kind, Kind::fillRect);
    EXPECT_EQ(drawn[1].rect, (Rect{5, 5, 32, 16}));
    EXPECT_TRUE(drawn[1].colour.sameRgb(Colour::rgb(0x8000 / 65535.0F, 1, 0)));
    EXPECT_EQ(drawn[2].kind, Kind::strokeRect);
    EXPECT_EQ(drawn[2].rect, (Rect{5, 5, 32, 16}));
    EXPECT_TRUE(drawn[2].colour.sameRgb(kBlack));
    EXPECT_EQ(drawn[3].kind, Kind::text);
    EXPECT_EQ(drawn[3].at, (Point{42, 18}));
    EXPECT_EQ(drawn[3].text, "Leaf");
    EXPECT_EQ(drawn[3].font.face, Font::Face::label);
    EXPECT_EQ(drawn[3].font.size, 12);
    EXPECT_EQ(drawn[3].maxWidth, 168);
    EXPECT_TRUE(drawn[3].colour.sameRgb(kBlack));
    EXPECT_EQ(drawn[4].kind, Kind::strokeRect);
    EXPECT_EQ(drawn[4].rect, (Rect{4, 4, 195, 18}));
    EXPECT_TRUE(drawn[4].colour.sameRgb(kBlue));
}

TEST_F(SwatchListView, OnlyTheSelectedRowHasTheBlueFrame) {
    fill(3);
    list.setSelectedColor(1);
    int frames = 0;
    for (const Primitive& p : draw())
        if (p.kind == Kind::strokeRect && p.colour.sameRgb(kBlue)) {
            EXPECT_EQ(p.rect.y, 26);
            ++frames;
        }
    EXPECT_EQ(frames, 1);
    list.setSelectedColor(3); // past the list
    for (const Primitive& p : draw())
        EXPECT_FALSE(p.kind == Kind::strokeRect && p.colour.sameRgb(kBlue));
}

TEST_F(SwatchListView, ValuesOutsideAWordShowTheirLowBits) {
    fill(1);
    records[0].SRed = -1, records[0].SGreen = 65536, records[0].SBlue = -256;
    EXPECT_TRUE(draw()[1].colour.sameRgb(Colour::rgb(1, 0, 0xFF00 / 65535.0F)));
}

TEST_F(SwatchListView, NamesAreMacOsRoman) {
    fill(1);
    setName(0, "\x8F \xE9");
    EXPECT_EQ(draw()[3].text, "è È");
}

TEST_F(SwatchListView, DrawingEndsANameOf255CharactersInsideTheRed) {
    fill(2);
    setName(0, std::string(255, 'n'));
    records[0].SRed = 0xABCD;
    EXPECT_TRUE(
        draw()[1].colour.sameRgb(Colour::rgb(0xABCD / 65535.0F, 65535, 77 / 65535.0F))); // still whole
    EXPECT_EQ(records[0].SRed, 0xAB00);
    EXPECT_TRUE(draw()[1].colour.sameRgb(Colour::rgb(0xAB00 / 65535.0F, 65535, 77 / 65535.0F)));
}

TEST_F(SwatchListView, AllRowsAreEndedWhateverTheClipShows) {
    fill(1000);
    for (int i = 0; i < 1000; ++i)
        records[i].Namen[records[i].Namen[0] + 1] = 'x';
    setName(999, std::string(255, 'n'));
    records[999].SRed = 0x1234;
    draw({0, 4400, 200, 100});
    for (int i = 0; i < 999; ++i)
        ASSERT_EQ(records[i].Namen[records[i].Namen[0] + 1], 0) << i;
    EXPECT_EQ(records[999].SRed, 0x1200);
    EXPECT_EQ(records[1000].Namen[1], 0);
}

TEST_F(SwatchListView, AfterEachWayToChangeItARowIsEndedAgain) {
    fill(1000);
    const std::function<void()> ways[] = {
        [this] { list.recordsToChange(); }, [this] { list.shownRecordsToChange(); },
        [this] { list.setNumberOfColors(1000); }, [this] { list.setSwatchList(records.get()); }};
    for (const int row : {0, 500, 999})
        for (const auto& change : ways) {
            draw({0, 4400, 200, 100});
            change();
            setName(row, std::string(255, 'n'));
            records[row].SRed = 0x1234;
            draw({0, 4400, 200, 100});
            EXPECT_EQ(records[row].SRed, 0x1200) << row;
        }
}

TEST_F(SwatchListView, RowsScrolledToAreEndedThen) {
    fill(1000);
    setName(3, std::string(255, 'n'));
    records[3].SRed = 0x1234;
    Rect frame = list.frame();
    frame.y = -4400; // rows whose patch begins above are not drawn at all
    list.setFrame(frame);
    draw();
    EXPECT_EQ(records[3].SRed, 0x1234);
    frame.y = 0;
    list.setFrame(frame);
    draw({0, 4400, 200, 100}); // and not painted
    EXPECT_EQ(records[3].SRed, 0x1200);
}

TEST_F(SwatchListView, OnlyRowsThatTouchTheClipArePainted) {
    fill(1000);
    const Rect clip{0, 4400, 200, 100}; // rows 200 to 204
    std::vector<std::string> names;
    for (const Primitive& p : draw(clip))
        if (p.kind == Kind::text) names.push_back(p.text);
    EXPECT_LE(names.size(), 7u);
    for (int row = 200; row <= 204; ++row)
        EXPECT_THAT(names, testing::Contains("swatch " + std::to_string(row)));
}

/// What of a drawing falls inside a rectangle, text taken as a line from 30 points above to 20 below its
/// baseline.
std::vector<Primitive> inside(const std::vector<Primitive>& drawn, const Rect& clip) {
    std::vector<Primitive> kept;
    for (const Primitive& p : drawn) {
        const double top = p.kind == Kind::text ? p.at.y - 15 : p.rect.y - 1;
        const double bottom = p.kind == Kind::text ? p.at.y + 8 : p.rect.y + p.rect.h + 1;
        if (bottom > clip.y && top < clip.y + clip.h) kept.push_back(p);
    }
    return kept;
}

TEST_F(SwatchListView, WhatTheClipShowsIsWhatPaintingAllShows) {
    fill(200);
    list.setSelectedColor(57);
    const std::vector<Primitive> all = draw();
    for (double y = 0; y < 4422; y += 37) {
        const Rect clip{0, y, 200, 60};
        const std::vector<Primitive> part = inside(draw(clip), clip), whole = inside(all, clip);
        ASSERT_EQ(part.size(), whole.size()) << y;
        for (std::size_t i = 0; i < part.size(); ++i) {
            EXPECT_EQ(part[i].kind, whole[i].kind);
            EXPECT_EQ(part[i].rect, whole[i].rect);
            EXPECT_EQ(part[i].text, whole[i].text);
            EXPECT_TRUE(part[i].colour.sameRgb(whole[i].colour));
        }
    }
}

TEST_F(SwatchListView, ARowWhosePatchTopIsNotBelowZeroIsSkipped) {
    fill(4);
    list.setFrame({0, -5, 200, 110}); // the patch of row 0 has its top at exactly 0
    for (int i = 0; i < 4; ++i)
        records[i].Namen[records[i].Namen[0] + 1] = 'x';
    std::vector<std::string> names;
    for (const Primitive& p : draw())
        if (p.kind == Kind::text) names.push_back(p.text);
    EXPECT_THAT(names, ElementsAre("swatch 1", "swatch 2", "swatch 3"));
    EXPECT_EQ(records[0].Namen[records[0].Namen[0] + 1], 'x');
}

TEST_F(SwatchListView, ACountPastTheArrayIsClampedToIt) {
    fill(5000);
    list.setNumberOfColors(30000);
    draw({0, 0, 200, 400});
    draw({0, 5000 * 22, 200, 400});
    EXPECT_EQ(list.getNumberOfColors(), 30000);
    EXPECT_EQ(list.accessibleRowCount(), 5000);
    list.setSwatchList(nullptr);
    EXPECT_EQ(draw().size(), 1u); // the frame alone
}

TEST_F(SwatchListView, AViewTooNarrowForANameDrawsNone) {
    fill(1);
    list.setFrame({0, 0, 32, 100});
    for (const Primitive& p : draw())
        EXPECT_NE(p.kind, Kind::text);
}

TEST_F(SwatchListView, OffTheScreenNothingIsDrawn) {
    fill(3);
    RecordingCanvas paper(false);
    list.drawRect(paper);
    EXPECT_TRUE(paper.primitives.empty());
    EXPECT_TRUE(dialog.screen.logLines.empty());
}

TEST_F(SwatchListView, DrawingOnTheScreenIsLogged) {
    fill(20);
    draw();
    EXPECT_THAT(dialog.screen.logLines, ElementsAre("DrawSwatches Oy= ,0.000000 HY ,462.000000"));
}

TEST_F(SwatchListView, TheHeightFitsAllRowsAndTheClip) {
    list.setScrollSize();
    EXPECT_EQ(list.frame(), (Rect{0, 0, 200, 300}));
    fill(20);
    EXPECT_EQ(list.frame(), (Rect{0, 0, 200, 462}));
    host.clip.reset();
    list.setNumberOfColors(0);
    list.setScrollSize();
    EXPECT_EQ(list.frame().h, 22);
}

TEST_F(SwatchListView, AClipThatGrowsIsFilled) {
    fill(3);
    host.clip = Rect{0, 0, 180, 500};
    list.layOut({0, 0, 180, 88});
    EXPECT_EQ(list.frame(), (Rect{0, 0, 180, 500}));
}

TEST_F(SwatchListView, AScrollPositionSetsTheFirstRowAndIsLogged) {
    list.setNumberOfColors(100);
    host.clip = Rect{0, 0, 200, 220};
    list.setScrollPos(0.5F);
    EXPECT_EQ(list.getStartColor(), 45);
    EXPECT_THAT(dialog.screen.logLines, ElementsAre("ScrollValue : ,0.500000"));
    list.setScrollPos(1e30F);
    EXPECT_EQ(list.getStartColor(), 32767);
    host.clip.reset();
    list.setScrollPos(0.25F);
    EXPECT_EQ(list.getStartColor(), 25);
}

TEST_F(SwatchListView, StartingTakesTheSelectedSwatchAsFirstColour) {
    list.setNumberOfColors(20);
    list.initFromControler();
    EXPECT_THAT(dialog.firstColours, ElementsAre(0));
    EXPECT_EQ(list.frame().h, 462);
}

TEST_F(SwatchListView, AccessorsStoreWhatTheyAreTold) {
    list.setSelectedColor(-7);
    list.setStartColor(9);
    list.setNumberOfColors(-32768);
    list.setName("wheat.aco");
    EXPECT_EQ(list.getSelected(), -7);
    EXPECT_EQ(list.getStartColor(), 9);
    EXPECT_EQ(list.getNumberOfColors(), -32768);
    EXPECT_EQ(list.getSwatchName(), "wheat.aco");
    EXPECT_TRUE(list.isFlipped());
    EXPECT_FALSE(list.fromSwatch());
    EXPECT_TRUE(list.acceptsColourDrags());
    EXPECT_TRUE(list.acceptsFocus());
    EXPECT_EQ(host.redisplays, 0);
}

TEST_F(SwatchListView, ColoursForDrawingAreSinglePrecision) {
    float rgba[4];
    CSwatchList::objRGBToCGColor({65535, 1, 32768}, rgba);
    EXPECT_EQ(rgba[0], 1.0F);
    EXPECT_EQ(rgba[1], 1 / 65535.0F);
    EXPECT_EQ(rgba[2], 32768 / 65535.0F);
    EXPECT_EQ(rgba[3], 1.0F);
}

TEST_F(SwatchListView, AssistiveTechnologyReadsRows) {
    fill(3);
    list.setName("wheat.aco");
    list.setSelectedColor(2);
    EXPECT_EQ(list.accessible().role, Accessible::Role::list);
    EXPECT_EQ(list.accessible().name, "Swatch list wheat.aco");
    EXPECT_EQ(list.accessible().value, "3 swatches, selected: swatch 2, RGB 2 255 0, #02ff00");
    EXPECT_EQ(list.accessibleRowCount(), 3);
    EXPECT_EQ(list.accessibleRow(1).name, "swatch 1");
    EXPECT_EQ(list.accessibleRow(1).value, "RGB 1 255 0, #01ff00");
    EXPECT_EQ(list.accessibleSelectedRow(), 2);
    EXPECT_EQ(list.accessibleRow(1).rect, (Rect{0, 22, list.bounds().w, 22}));
    EXPECT_EQ(list.accessibleRowAt({3, 21.5}), 0);
    EXPECT_EQ(list.accessibleRowAt({3, 22}), 1);
    EXPECT_EQ(list.accessibleRow(-1).name, "");
    EXPECT_EQ(list.accessibleRow(5000).name, "");
}

TEST_F(SwatchListView, ASelectedRowThatIsNotShownIsNone) {
    fill(3);
    list.setSelectedColor(3);
    EXPECT_EQ(list.accessibleSelectedRow(), std::nullopt);
    list.setSelectedColor(-1);
    EXPECT_EQ(list.accessibleSelectedRow(), std::nullopt);
}

TEST_F(SwatchListView, SelectingAnAccessibleRowIsAsAClick) {
    fill(3);
    list.selectAccessibleRow(2);
    EXPECT_EQ(list.getSelected(), 2);
    EXPECT_THAT(dialog.firstColours, ElementsAre(2));
    EXPECT_EQ(host.redisplays, 1);
}

TEST_F(SwatchListView, SavingWritesWhatTheViewShows) {
    fill(3);
    list.setNumberOfColors(1);
    setName(0, "A");
    records[0].SRed = 65535, records[0].SGreen = 0, records[0].SBlue = 32768;
    std::vector<std::uint8_t> data;
    list.saveSwatches(data);
    EXPECT_THAT(data,
                ElementsAre(0, 2, 0, 1, 0, 0, 0xFF, 0xFF, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 2, 0, 'A', 0, 0));
}

} // namespace
} // namespace chromalog
