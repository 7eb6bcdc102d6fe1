#include "print/chart_printing.h"

#include "print/chart_pages.h"
#include "support/headless_colours.h"
#include "support/headless_desktop.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::Primitive;

constexpr Size kLetter{540, 720};

std::array<std::string, 3> textsOf(const PrintCell& cell) {
    return {cell.labels[0].text, cell.labels[1].text, cell.labels[2].text};
}

TEST(GradientPage, RowZeroIsTheBlendOfTheLowerCornersAndStandsAtTheTop) {
    const PrintPage page = degradePage({}, kLetter);
    ASSERT_EQ(page.cells.size(), 256u);
    struct {
        int cell;
        Colour corner;
        std::array<std::string, 3> labels;
    } const cases[] = {
        {0, Colour::rgb(0.9, 0.1, 1.0), {"R: 229", "G: 25", "B: 255"}},
        {15, Colour::rgb(0.1, 0.1, 0.9), {"R: 25", "G: 25", "B: 229"}},
        {240, Colour::rgb(0.1, 0.9, 0.1), {"R: 25", "G: 229", "B: 25"}},
        {255, Colour::rgb(0.9, 0.1, 0.1), {"R: 229", "G: 25", "B: 25"}},
    };
    for (const auto& c : cases) {
        EXPECT_FLOAT_EQ(page.cells[c.cell].colour.red(), c.corner.red());
        EXPECT_FLOAT_EQ(page.cells[c.cell].colour.green(), c.corner.green());
        EXPECT_FLOAT_EQ(page.cells[c.cell].colour.blue(), c.corner.blue());
        EXPECT_EQ(textsOf(page.cells[c.cell]), c.labels);
    }
}

TEST(GradientPage, CellsAreSixteenthsWithALabelSpaceBelowThePatch) {
    const PrintPage page = degradePage({}, kLetter);
    const PrintCell& cell = page.cells[16 * 3 + 5];
    EXPECT_EQ(cell.patch, (Rect{5 * 33.75, 3 * 45.0, 28.75, 21}));
    EXPECT_EQ(cell.labels[0].box, (Rect{5 * 33.75, 135 + 45 - 24 + 8, 28.75, 10}));
    EXPECT_EQ(cell.labels[1].box.y, cell.labels[0].box.y + 7);
    EXPECT_EQ(cell.labels[2].box.y, cell.labels[0].box.y + 14);
}

TEST(ChartLabels, ComponentsAreTruncatedToEightBits) {
    EXPECT_EQ(printedByte(1.0), 255);
    EXPECT_EQ(printedByte(0.5), 127);
    EXPECT_EQ(printedByte(0.9), 229);
    EXPECT_EQ(printedByte(0.1), 25);
    EXPECT_EQ(printedByte(0.0), 0);
    EXPECT_EQ(printedByte(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(TonePage, RowsAreSectorsFromTheLastAndColumnsRingsFromTheOutermost) {
    const Colour second = Colour::rgb(0.1, 0.7, 0.3);
    const ToneCircle circle = toneCircle(0.5F, second, true);
    const PrintPage page = tonePage(circle, second, kLetter);
    ASSERT_EQ(page.cells.size(), 32u * 8);
    std::size_t at = 0;
    for (int j = 31; j >= 0; --j)
        for (int k = 7; k >= 0; --k) {
            const PrintCell& cell = page.cells[at++];
            EXPECT_DOUBLE_EQ(cell.patch.x, k * (540.0 / 7));
            EXPECT_DOUBLE_EQ(cell.patch.y, j * 45.0);
            EXPECT_DOUBLE_EQ(cell.patch.w, 540.0 / 7 - 5);
            EXPECT_DOUBLE_EQ(cell.patch.h, 21);
            EXPECT_TRUE(cell.colour.sameRgb(k == 0 ? second : toneCell(circle, second, k, j)));
        }
    EXPECT_EQ(textsOf(page.cells.back()), (std::array<std::string, 3>{"R: 25", "G: 178", "B: 76"}));
}

/// Paper that tells of every patch and text before it is drawn.
class ToldPaper : public test::RecordingCanvas {
  public:
    ToldPaper(const std::function<void()>& tell, Size sheet)
        : RecordingCanvas(false, {0, 0, sheet.w, sheet.h}), tell_(tell) {}
    void fillRect(const Rect& r) override {
        tell_();
        RecordingCanvas::fillRect(r);
    }
    void drawText(Point at, std::string_view text, const Font& font, double maxWidth) override {
        tell_();
        RecordingCanvas::drawText(at, text, font, maxWidth);
    }

  private:
    const std::function<void()>& tell_;
};

/// Where `whilePainting` looks on, prints on paper that tells.
class ChartScreen : public test::HeadlessDesktop {
  public:
    std::function<void()> whilePainting;
    std::function<void()> afterASheet;
    PrintOutcome runPrintOperation(const PrintJob& job) override {
        if (!whilePainting) return HeadlessDesktop::runPrintOperation(job);
        const PrintPages pages = job.layOut(printInfo);
        for (int i = 0; i < pages.sheets; ++i) {
            ToldPaper paper(whilePainting, pages.sheet);
            pages.paint(i, paper);
            afterASheet();
        }
        return PrintOutcome::printed;
    }
};

class ChartPrinting : public testing::Test {
  protected:
    ChartPrinting() {
        colours.setSecondColor(Colour::rgb(0.1, 0.7, 0.3));
        absOrRel.setState(1);
        tone.absOrRel.connect(&absOrRel);
        tone.toneSlider.connect(&slider);
        tone.setFrame({10, 20, 256, 256});
        gradient.setFrame({10, 20, 256, 256});
        tone.setHost(&host);
        gradient.setHost(&host);
        host.frameChanges = host.redisplays = 0;
    }

    const std::vector<Primitive>& print(int toneOrDegrade) {
        printToneOrDegrade(gradient, tone, toneOrDegrade, screen);
        EXPECT_EQ(screen.sheets.size(), 1u);
        return screen.sheets[0];
    }
    void expectViewsAsBefore() {
        for (const chartView* view : {static_cast<chartView*>(&tone), static_cast<chartView*>(&gradient)}) {
            EXPECT_FALSE(view->isFlipped());
            EXPECT_EQ(view->frame(), (Rect{10, 20, 256, 256}));
            EXPECT_EQ(view->bounds(), (Rect{0, 0, 256, 256}));
            EXPECT_EQ(view->host(), &host);
        }
        EXPECT_EQ(host.frameChanges, 0);
        EXPECT_EQ(host.redisplays, 0);
    }

    ChartScreen screen;
    test::HeadlessViewHost host;
    test::HeadlessColours colours;
    test::HeadlessButton absOrRel;
    test::HeadlessSlider slider;
    toneView tone{colours, screen};
    degradeView gradient{screen};
};

TEST_F(ChartPrinting, AnyStateButOnePrintsTheGradient) {
    for (const int state : {0, 2, -1}) {
        const auto& sheet = print(state);
        ASSERT_EQ(sheet.size(), 256u * 4) << "a patch and three labels each, no frame";
        EXPECT_EQ(sheet[0].rect, (Rect{0, 0, 28.75, 21}));
        EXPECT_EQ(sheet[1].text, "R: 229");
        EXPECT_EQ(sheet[1].at, (Point{0, 29}));
        expectViewsAsBefore();
    }
}

TEST_F(ChartPrinting, OfTheToneChartOnlyWhatFallsOnThePageIsPrinted) {
    const auto& sheet = print(1);
    EXPECT_EQ(sheet[0].rect, (Rect{0, 0, 540, 720}));
    EXPECT_TRUE(sheet[0].colour.sameRgb(Colour::rgb(1, 1, 1))) << "the canvas starts with white";
    ASSERT_EQ(sheet.size(), 1 + 16u * 7 * 4) << "the last ring and the sectors 16 to 31 lie beside the page";
    for (const Primitive& p : sheet) {
        EXPECT_LT(p.rect.x + p.at.x, 539);
        EXPECT_LT(p.rect.y + p.at.y, 720);
    }
    EXPECT_EQ(sheet[1].rect.y, 15 * 45) << "from the last sector that fits";
    expectViewsAsBefore();
}

TEST_F(ChartPrinting, BothChartsArePrintingExactlyWhileASheetIsPainted) {
    for (const int state : {0, 1}) {
        int painted = 0, sheets = 0;
        screen.whilePainting = [&] {
            ++painted;
            EXPECT_TRUE(tone.isFlipped() && gradient.isFlipped());
        };
        screen.afterASheet = [&] {
            ++sheets;
            EXPECT_FALSE(tone.isFlipped() || gradient.isFlipped());
        };
        printToneOrDegrade(gradient, tone, state, screen);
        EXPECT_GT(painted, 400) << state;
        EXPECT_EQ(sheets, 1);
        expectViewsAsBefore();
    }
}

TEST_F(ChartPrinting, TheScaleMakesThePageLarger) {
    screen.printInfo.scale = 0.5;
    EXPECT_EQ(print(0)[4].rect.x, 67.5);
    EXPECT_EQ(print(1)[0].rect, (Rect{0, 0, 1080, 1440}));
}

TEST_F(ChartPrinting, OnALowPageLabelsRemainWithoutPatches) {
    screen.printInfo.paper = {612, 72 + 16 * 20};
    const auto& sheet = print(0);
    EXPECT_TRUE(
        std::ranges::none_of(sheet, [](const Primitive& p) { return p.kind == Primitive::Kind::fillRect; }));
    EXPECT_EQ(sheet.size(), 256u * 3);
}

TEST_F(ChartPrinting, AfterACancelledOrFailedJobTheViewsAreAsBefore) {
    for (const PrintOutcome outcome : {PrintOutcome::cancelled, PrintOutcome::failed}) {
        screen.printOutcome = outcome;
        printToneOrDegrade(gradient, tone, 0, screen);
        expectViewsAsBefore();
    }
}

TEST_F(ChartPrinting, BehindThePrintDialogTheChartsAreAsBefore) {
    bool asked = false;
    screen.onPrint = [&] {
        asked = true;
        expectViewsAsBefore();
    };
    print(1);
    EXPECT_TRUE(asked);
}

TEST_F(ChartPrinting, APaperWithoutPrintableAreaPrintsNothing) {
    screen.printInfo.paper = {50, 50};
    printToneOrDegrade(gradient, tone, 1, screen);
    EXPECT_TRUE(screen.sheets.empty());
    expectViewsAsBefore();
}

} // namespace
} // namespace chromalog
