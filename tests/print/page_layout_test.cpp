#include "print/page_layout.h"
#include "print/print_support.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::swatch;

constexpr Size kLetter{540, 720};

class SwatchPages : public testing::Test {
  protected:
    SwatchPages() {
        setting.services = test::closedForm;
        setting.date = "21 11 2026 18:05:09";
        setting.userName = "tester";
    }
    std::vector<PrintPage> pagesOf(int count, Size page = kLetter) {
        return swatchPages(ConstListRecords(records).first(count), page, setting);
    }
    PrintCell cellOf(const FCOStruct& record) {
        return swatchPages(ConstListRecords(&record, 1), kLetter, setting)[0].cells[0];
    }

    std::vector<FCOStruct> records = test::numberedSwatches();
    SwatchPrintSetting setting;
};

TEST_F(SwatchPages, TheGridFollowsSizeAndPaper) {
    struct {
        Size area;
        std::int16_t size;
        int cols, rows;
    } const cases[] = {
        {{540, 720}, 0, 4, 19},   {{540, 720}, 1, 3, 15}, {{540, 720}, 2, 3, 10},
        {{523, 770}, 0, 3, 21},   {{720, 540}, 0, 5, 14}, {{270, 360}, 0, 2, 9},
        {{1080, 1440}, 0, 8, 40}, {{135, 70}, 0, 1, 1},   {{134, 70}, 0, 0, 1},
        {{135, 69}, 0, 1, 0},     {{-5, -5}, 0, 0, 0},    {{1e9, 1e9}, 0, 32767, 32767},
        {{540, 720}, 7, 4, 19},
    };
    for (const auto& c : cases) {
        const SwatchGrid grid = swatchGrid(c.area, c.size);
        EXPECT_EQ(grid.cols, c.cols) << c.area.w << " " << c.size;
        EXPECT_EQ(grid.rows, c.rows) << c.area.h << " " << c.size;
    }
}

TEST_F(SwatchPages, PageCountsOf75To153SmallSwatches) {
    struct {
        int count;
        std::size_t pages;
    } const cases[] = {{0, 1},   {1, 1},   {75, 1},  {76, 2},  {77, 2},
                       {100, 2}, {151, 2}, {152, 3}, {153, 3}, {5000, 66}};
    for (const auto& c : cases)
        EXPECT_EQ(pagesOf(c.count).size(), c.pages) << c.count;
}

TEST_F(SwatchPages, HundredSmallSwatchesRunDownTheColumnsFirst) {
    const auto pages = pagesOf(100);
    ASSERT_EQ(pages[0].cells.size(), 76u);
    ASSERT_EQ(pages[1].cells.size(), 24u);
    for (int i = 0; i < 76; ++i) {
        EXPECT_EQ(pages[0].cells[i].patch, (Rect{i / 19 * 135.0, i % 19 * 35.0, 40, 25})) << i;
        EXPECT_EQ(pages[0].cells[i].colour.red(), i / 255.0) << i;
    }
    EXPECT_EQ(pages[1].cells[0].patch, (Rect{0, 0, 40, 25}));
    EXPECT_EQ(pages[1].cells[0].colour.red(), 76 / 255.0);
}

TEST_F(SwatchPages, AnExactlyFullPageIsFollowedByAnEmptyOne) {
    const auto pages = pagesOf(76);
    EXPECT_EQ(pages[0].cells.size(), 76u);
    EXPECT_EQ(pages[0].footer[2].text, "page 1/2 ");
    EXPECT_TRUE(pages[1].cells.empty());
    EXPECT_TRUE(pages[1].footer.empty());
}

TEST_F(SwatchPages, TheFooterStandsAtTheBottomAndItsBlocksOverlap) {
    const auto pages = pagesOf(100);
    for (int p = 0; p < 2; ++p) {
        const std::vector<PrintLabel> expected = {{{0, 690, 200, 24}, "21 11 2026 18:05:09"},
                                                  {{300, 690, 200, 24}, "tester"},
                                                  {{370, 690, 200, 24}, p == 0 ? "page 1/2 " : "page 2/2 "}};
        EXPECT_EQ(pages[p].footer, expected);
    }
}

TEST_F(SwatchPages, LargePatchesAndMiddleText) {
    setting.options = {1, 1, 0, 0};
    const auto middle = pagesOf(20)[0].cells;
    EXPECT_EQ(middle[0].patch, (Rect{0, 0, 60, 35}));
    EXPECT_EQ(middle[0].labels[0].box, (Rect{65, 7, 80, 24}));
    EXPECT_EQ(middle[16].labels[0].box, (Rect{155 + 65, 45 + 7, 80, 24}));
    setting.options.printSize = 2;
    const auto large = pagesOf(20)[0].cells;
    EXPECT_EQ(large[11].patch, (Rect{175, 65, 80, 55}));
    EXPECT_EQ(large[11].labels[0].box, (Rect{175 + 85, 65 + 7, 80, 24}));
}

TEST_F(SwatchPages, TheLinesThatAreAskedForFollowWithoutGaps) {
    const FCOStruct record = swatch("Orange", 65535, 128 * 257, 0);
    const std::string name = "Orange", rgb = "RGB: 255/ 128/ 0 ", cmyk = "CMYK: 0% 49% 100% 0 ";
    struct {
        PrintOptions options;
        std::vector<std::string> lines;
    } const cases[] = {
        {{0, 0, 0, 0}, {}},           {{0, 1, 0, 0}, {name}},
        {{0, 0, 1, 0}, {rgb}},        {{0, 0, 0, 1}, {cmyk}},
        {{0, 1, 1, 0}, {name, rgb}},  {{0, 0, 1, 1}, {rgb, cmyk}},
        {{0, 1, 0, 1}, {name, cmyk}}, {{0, 1, 1, 1}, {name, rgb, cmyk}},
    };
    for (const auto& c : cases) {
        setting.options = c.options;
        const PrintCell cell = cellOf(record);
        ASSERT_EQ(cell.labels.size(), c.lines.size());
        for (std::size_t i = 0; i < c.lines.size(); ++i) {
            EXPECT_EQ(cell.labels[i].text, c.lines[i]);
            EXPECT_EQ(cell.labels[i].box, (Rect{45, 7.0 + 7 * i, 80, 24}));
        }
    }
}

TEST_F(SwatchPages, TextShowsTheRawChannelCutTo8BitsWhileFillsAreClamped) {
    setting.options = {0, 0, 1, 0};
    struct {
        std::int64_t red, green, blue;
        const char* text;
        double fill[3];
    } const cases[] = {
        {65280, 256, 0, "RGB: 254/ 0/ 0 ", {65280 / 65535.0, 256 / 65535.0, 0}},
        {-256, 131070, 65536, "RGB: 0/ 254/ 255 ", {0, 1, 1}}, // 510 is 254; −0.996 truncates to 0
        {-257, -514, 65792, "RGB: 255/ 254/ 0 ", {0, 0, 1}},   // −1 is 255; 256 is 0
    };
    for (const auto& c : cases) {
        const PrintCell cell = cellOf(swatch("", c.red, c.green, c.blue));
        EXPECT_EQ(cell.labels[0].text, c.text);
        EXPECT_EQ(cell.colour.red(), c.fill[0]);
        EXPECT_EQ(cell.colour.green(), c.fill[1]);
        EXPECT_EQ(cell.colour.blue(), c.fill[2]);
    }
    cellOf(swatch("", INT64_MAX, INT64_MIN, 1)); // no overflow on the way: the sanitizers watch
}

TEST_F(SwatchPages, AllEightBitValuesComeBackFromTheirWord) {
    setting.options = {0, 0, 1, 0};
    for (int v = 0; v < 256; ++v) {
        const std::string n = std::to_string(v);
        EXPECT_EQ(cellOf(swatch("", v * 257, v * 257, v * 257)).labels[0].text,
                  "RGB: " + n + "/ " + n + "/ " + n + " ");
    }
}

TEST_F(SwatchPages, WithoutColourServicesTheValuesAreUsedAsTheyStand) {
    setting.options = {0, 0, 0, 1};
    setting.services = nullptr;
    EXPECT_EQ(cellOf(swatch("", 65535, 128 * 257, 0)).labels[0].text, "CMYK: 0% 49% 100% 100 ");
}

TEST_F(SwatchPages, NamesEndAtTheFirstZeroAndAreMacRoman) {
    setting.options = {0, 1, 0, 0};
    EXPECT_EQ(cellOf(swatch("Gr\x9Fn", 0, 0, 0)).labels[0].text, "Grün");
    FCOStruct cut = swatch("abcdef", 0, 0, 0);
    cut.Namen[3] = 0;
    EXPECT_EQ(cellOf(cut).labels[0].text, "ab");
    const FCOStruct full = swatch(std::string(255, 'x'), -1, 0, 0); // the byte after the name is not zero
    EXPECT_EQ(cellOf(full).labels[0].text, std::string(255, 'x'));
    EXPECT_EQ(cellOf(swatch("100%d%s", 0, 0, 0)).labels[0].text, "100%d%s");
}

TEST_F(SwatchPages, TooSmallAPaperHasNoPages) {
    EXPECT_TRUE(pagesOf(10, {134, 720}).empty());
    EXPECT_TRUE(pagesOf(10, {540, 69}).empty());
    EXPECT_TRUE(pagesOf(10, {0, 0}).empty());
    EXPECT_EQ(pagesOf(3, {135, 70}).size(), 4u);
}

TEST_F(SwatchPages, TheScaleGivesTheJobALargerOrSmallerPage) {
    PrintInfo info;
    EXPECT_EQ(info.printable(), (Size{540, 720}));
    EXPECT_EQ(info.page(), (Size{540, 720}));
    info.scale = 0.5;
    EXPECT_EQ(info.page(), (Size{1080, 1440}));
    info.scale = 2;
    EXPECT_EQ(info.page(), (Size{270, 360}));
    info.scale = 0.3; // in single precision
    EXPECT_EQ(info.page().h, static_cast<float>(720 / 0.3F));
    info.scale = 0; // no scale at all
    EXPECT_EQ(info.page(), (Size{540, 720}));
}

TEST_F(SwatchPages, TheDateIsDayMonthYearAndTime) {
    std::tm time{};
    time.tm_mday = 3;
    time.tm_mon = 1;
    time.tm_year = 126;
    time.tm_hour = 4;
    time.tm_min = 5;
    time.tm_sec = 59;
    EXPECT_EQ(printDate(time), "03 02 2026 04:05:59");
}

TEST_F(SwatchPages, TheHostIsAskedForInksWhateverIsPrinted) {
    static int asked;
    asked = 0;
    setting.services = [](ColorServicesInfo*) -> std::int16_t { return ++asked, 0; };
    setting.options = {0, 1, 0, 0}; // names alone
    pagesOf(3);
    EXPECT_EQ(asked, 3);
}

} // namespace
} // namespace chromalog
