// Printed PDF files, read back with independent programs.
#include "files/file_io.h"
#include "print/chart_pages.h"
#include "print/chart_printing.h"
#include "print/page_layout.h"
#include "print/print_support.h"
#include "qt/application_guard.h"
#include "qt/panels/print_jobs.h"
#include "qt/pdf_document.h"
#include "support/headless_colours.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <memory>

#include <sys/resource.h>

namespace chromalog {
namespace {

using test::PdfDocument;
using test::PdfPicture;

class PrintingScreen : public test::HeadlessDesktop {
  public:
    StatusLine status;
    PrintJobs jobs{status};
    PrintOutcome outcome = PrintOutcome::printed;
    PrintInfo& sharedPrintInfo() override { return jobs.info; }
    PrintOutcome runPrintOperation(const PrintJob& job) override { return outcome = jobs.run(job, nullptr); }
};

std::uint32_t rgbOf(const Colour& c) {
    const auto byte = [](double v) { return static_cast<std::uint32_t>(v * 255 + 0.5); };
    return byte(c.red()) << 16 | byte(c.green()) << 8 | byte(c.blue());
}

class ToolkitTest : public testing::Test {
  protected:
    ToolkitTest() {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        setenv("XDG_CONFIG_HOME", settings.path().c_str(), 1);
        application = std::make_unique<ApplicationGuard>();
    }
    test::TemporaryFolder settings;
    std::unique_ptr<ApplicationGuard> application;
};

class PrintedPdf : public ToolkitTest {
  protected:
    void SetUp() override {
        if (!PdfDocument::readersInstalled()) GTEST_SKIP() << "needs poppler-utils and qpdf";
        // Every colour once a page: red counts within a page of up to 256, green marks hundreds.
        for (int i = 0; i < kListCapacity; ++i)
            records.push_back(
                test::swatch("Swatch" + std::to_string(i), i % 256 * 257, i / 256 * 257, 128 * 257));
        list.setSwatchList(records.data());
        list.setFrame({0, 0, 200, 400});
        paper.clock = {5, 4, 3, 2, 0, 126, 0, 0, 0, 0, nullptr};
        colours.setSecondColor(second);
        absOrRel.setState(1);
        tone.absOrRel.connect(&absOrRel);
        tone.toneSlider.connect(&slider);
    }

    PrintInfo& info() { return paper.jobs.info; }
    PdfDocument print(int count) {
        paper.jobs.nextPdf = pdf;
        list.setNumberOfColors(static_cast<std::int16_t>(count));
        printSwatchList(list, dialog.options, dialog.services, paper);
        return PdfDocument(pdf);
    }
    PdfDocument printChart(int toneOrDegrade) {
        paper.jobs.nextPdf = pdf;
        printToneOrDegrade(gradient, tone, toneOrDegrade, paper);
        return PdfDocument(pdf);
    }
    /// A colour's rectangle on the page in points from the paper's corner, found by its pixels.
    static Rect patchAt(const PdfPicture& picture, std::uint32_t colour, int dotsPerInch) {
        const auto box = picture.boxOf(colour);
        if (!box) return {};
        const double point = 72.0 / dotsPerInch;
        return {box->left * point, box->top * point, (box->right + 1 - box->left) * point,
                (box->bottom + 1 - box->top) * point};
    }
    static void expectNear(const Rect& found, const Rect& expected) {
        EXPECT_NEAR(found.x, expected.x, 0.5);
        EXPECT_NEAR(found.y, expected.y, 0.5);
        EXPECT_NEAR(found.x + found.w, expected.x + expected.w, 0.5);
        EXPECT_NEAR(found.y + found.h, expected.y + expected.h, 0.5);
    }

    test::TemporaryFolder folder;
    std::string pdf = folder / "out.pdf";
    std::vector<FCOStruct> records;
    PrintingScreen paper;
    test::PrintingDialog dialog;
    CSwatchList list{dialog};
    const Colour second = Colour::rgb(0.1, 0.7, 0.3);
    test::HeadlessColours colours;
    test::HeadlessButton absOrRel;
    test::HeadlessSlider slider; ///< stands at 50
    toneView tone{colours, paper};
    degradeView gradient{paper};
};

TEST_F(PrintedPdf, PageCountsFollowPaperSizeAndScale) {
    const PrintInfo letter, a4{{595, 842}}, landscape{{792, 612}}, half{{612, 792}, 36, 36, 36, 36, 0.5},
        twice{{612, 792}, 36, 36, 36, 36, 2};
    struct {
        const char* name;
        PrintInfo info;
        std::int16_t size;
        int count, pages;
    } const cases[] = {
        {"Letter", letter, 0, 75, 1},
        {"Letter", letter, 0, 76, 2},
        {"Letter", letter, 0, 77, 2},
        {"Letter", letter, 0, 100, 2},
        {"Letter", letter, 0, 0, 1},
        {"Middle", letter, 1, 44, 1},
        {"Middle", letter, 1, 45, 2},
        {"Middle", letter, 1, 100, 3},
        {"Large", letter, 2, 29, 1},
        {"Large", letter, 2, 30, 2},
        {"Large", letter, 2, 100, 4},
        {"A4", a4, 0, 62, 1},
        {"A4", a4, 0, 63, 2},
        {"landscape", landscape, 0, 69, 1},
        {"landscape", landscape, 0, 70, 2},
        {"scale 0.5", half, 0, 319, 1},
        {"scale 0.5", half, 0, 320, 2},
        {"scale 2", twice, 0, 17, 1},
        {"scale 2", twice, 0, 18, 2},
        {"long", {{842, 2000}}, 0, 1, 1},
        {"nearly A4", {{596, 844}}, 0, 1, 1},
    };
    for (const auto& c : cases) {
        info() = c.info;
        dialog.options.printSize = c.size;
        const PdfDocument document = print(c.count);
        EXPECT_TRUE(document.valid());
        EXPECT_EQ(document.pages(), c.pages) << c.name << " " << c.count;
        const PdfPicture page = document.picture(1, 72);
        EXPECT_EQ(page.width, c.info.paper.w) << c.name;
        EXPECT_EQ(page.height, c.info.paper.h) << c.name;
    }
}

TEST_F(PrintedPdf, PatchesStandWithinHalfAPointAtEveryScale) {
    constexpr int dots = 288;
    for (const double scale : {1.0, 0.5, 2.0}) {
        info().scale = scale;
        const PdfDocument document = print(17);
        const PdfPicture page = document.picture(1, dots);
        const auto pages = swatchPages(ConstListRecords(records).first(17), info().page(), {});
        for (const PrintCell& cell : pages[0].cells) {
            const Rect& p = cell.patch;
            expectNear(patchAt(page, rgbOf(cell.colour), dots),
                       {36 + p.x * scale, 36 + p.y * scale, p.w * scale, p.h * scale});
        }
    }
}

TEST_F(PrintedPdf, EveryPatchHasItsColourTo8BitsOnEveryPage) {
    const int count = 1000;
    const PdfDocument document = print(count);
    const auto pages = swatchPages(ConstListRecords(records).first(count), info().page(), {});
    ASSERT_EQ(document.pages(), static_cast<int>(pages.size()));
    for (std::size_t p = 0; p < pages.size(); ++p) {
        const PdfPicture picture = document.picture(static_cast<int>(p) + 1, 72);
        for (const PrintCell& cell : pages[p].cells)
            ASSERT_EQ(picture.at(36 + static_cast<int>(cell.patch.x) + 20,
                                 36 + static_cast<int>(cell.patch.y) + 12),
                      rgbOf(cell.colour));
    }
}

TEST_F(PrintedPdf, EightBitValuesOfAllKindsAreExact) {
    for (int v = 0; v < 256; ++v)
        records[v] = test::swatch("", v * 257, (255 - v) * 257, (v * 7 % 256) * 257);
    const PdfDocument document = print(256);
    PdfPicture page;
    for (int v = 0; v < 256; ++v) {
        const int cell = v % 76;
        if (cell == 0) page = document.picture(v / 76 + 1, 72);
        const auto expected = static_cast<std::uint32_t>(v << 16 | (255 - v) << 8 | v * 7 % 256);
        ASSERT_EQ(page.at(36 + cell / 19 * 135 + 20, 36 + cell % 19 * 35 + 12), expected);
    }
}

TEST_F(PrintedPdf, TextIsRealAndStandsOnItsBaseline) {
    dialog.options = {0, 1, 1, 1};
    const PdfDocument document = print(100);
    const auto words = document.words(1);
    const auto wordAt = [&](const std::string& text) {
        const auto found = std::ranges::find(words, text, &test::PdfWord::text);
        EXPECT_NE(found, words.end()) << text;
        return found == words.end() ? test::PdfWord{} : *found;
    };
    for (const int i : {0, 1, 18, 19, 75}) {
        const test::PdfWord word = wordAt("Swatch" + std::to_string(i));
        const double x = 36 + i / 19 * 135 + 45, baseline = 36 + i % 19 * 35 + 7;
        EXPECT_NEAR(word.xMin, x, 0.5) << i;
        EXPECT_LT(word.yMin, baseline - 3) << i;
        EXPECT_GT(word.yMax, baseline) << i;
        EXPECT_LT(word.yMax - word.yMin, 9) << "6 points";
    }
    const auto lines = document.lines(1);
    for (const char* line : {"Swatch19", "RGB: 19/ 0/ 128", "CMYK: 86% 100% 0% 49"})
        EXPECT_NE(std::ranges::find_if(lines, [&](const std::string& l) { return l.starts_with(line); }),
                  lines.end())
            << line;
    const test::PdfWord day = wordAt("02");
    EXPECT_NEAR(day.xMin, 36, 0.5);
    EXPECT_NEAR((day.yMin + day.yMax) / 2, 36 + 690 - 1.5, 2.5);
    EXPECT_NEAR(wordAt("tester").xMin, 336, 0.5);
    EXPECT_NEAR(wordAt("page").xMin, 406, 0.5);
    wordAt("1/2");
}

/// Equal but for the renderer's own rounding of a colour that is not made of 8-bit values.
bool sameColour(std::uint32_t found, std::uint32_t expected) {
    for (int shift = 0; shift <= 16; shift += 8)
        if (std::abs(int(found >> shift & 0xFF) - int(expected >> shift & 0xFF)) > 1) return false;
    return found <= 0xFFFFFF;
}

/// The words of a page in alphabetical order.
std::vector<std::string> sortedWords(const PdfDocument& document) {
    std::vector<std::string> words;
    for (const auto& word : document.words(1))
        words.push_back(word.text);
    std::ranges::sort(words);
    return words;
}

std::vector<std::string> sortedWords(std::span<const PrintCell> cells) {
    std::vector<std::string> words;
    for (const PrintCell& cell : cells)
        for (const PrintLabel& label : cell.labels) {
            words.push_back(label.text.substr(0, 2));
            words.push_back(label.text.substr(3));
        }
    std::ranges::sort(words);
    return words;
}

TEST_F(PrintedPdf, TheGradientIsATableOfLabelledPatches) {
    const PdfDocument document = printChart(0);
    EXPECT_TRUE(document.valid());
    ASSERT_EQ(document.pages(), 1);
    const PdfPicture picture = document.picture(1, 72);
    const PrintPage page = degradePage(gradient.corners(), info().page());
    for (const PrintCell& cell : page.cells) {
        const Rect& p = cell.patch;
        ASSERT_TRUE(
            sameColour(picture.at(int(36 + p.x + p.w / 2), int(36 + p.y + p.h / 2)), rgbOf(cell.colour)));
    }
    EXPECT_EQ(sortedWords(document), sortedWords(page.cells));
}

TEST_F(PrintedPdf, OfTheToneChartOnlyThePageIsPrinted) {
    const PdfDocument document = printChart(1);
    EXPECT_TRUE(document.valid());
    ASSERT_EQ(document.pages(), 1);
    std::vector<PrintCell> seen;
    for (const PrintCell& cell : tonePage(toneCircle(0.5F, second, true), second, {540, 720}).cells)
        if (cell.patch.x < 539 && cell.patch.y < 719) seen.push_back(cell);
    EXPECT_EQ(sortedWords(document), sortedWords(seen));
    const PdfPicture picture = document.picture(1, 72);
    for (const PrintCell& cell : seen)
        ASSERT_TRUE(sameColour(picture.at(int(36 + cell.patch.x + 30), int(36 + cell.patch.y + 10)),
                               rgbOf(cell.colour)));
    EXPECT_EQ(picture.at(36 + 545, 36 + 10), 0xFFFFFFu) << "the last ring";
    EXPECT_EQ(picture.at(36 + 30, 760), 0xFFFFFFu) << "sector 16";
}

TEST_F(PrintedPdf, ACancelledJobLeavesNoFileAndAnOlderOneAlone) {
    for (const bool older : {false, true}) {
        if (older) print(1);
        const auto before = older ? readDataFromFileAtURL(pdf) : std::nullopt;
        paper.jobs.nextPdf = pdf;
        int painted = 0;
        const PrintOutcome outcome = paper.jobs.run(
            {"cancelled",
             [&](const PrintInfo& info) {
                 return PrintPages{50, info.page(), [&](int, Canvas&) {
                                       if (++painted < 3) return;
                                       for (QWidget* widget : QApplication::topLevelWidgets())
                                           if (auto* progress = qobject_cast<QProgressDialog*>(widget))
                                               progress->cancel();
                                   }};
             }},
            nullptr);
        EXPECT_EQ(outcome, PrintOutcome::cancelled);
        EXPECT_EQ(painted, 3);
        EXPECT_EQ(readDataFromFileAtURL(pdf), before);
        EXPECT_EQ(folder.entries(), older ? 1 : 0);
    }
}

TEST_F(PrintedPdf, AJobThatCannotBeWrittenLeavesNothing) {
    pdf = folder / "missing/out.pdf";
    print(10);
    EXPECT_EQ(paper.outcome, PrintOutcome::failed);
    EXPECT_EQ(paper.status.text(), "out.pdf was not written: No such file or directory");
    pdf = folder.path();
    print(10);
    EXPECT_EQ(paper.outcome, PrintOutcome::failed);
    EXPECT_EQ(folder.entries(), 0);
    EXPECT_EQ(list.frame(), (Rect{0, 0, 200, 400}));
}

TEST_F(PrintedPdf, OnAFullDiskAnOlderFileStays) {
    print(1);
    const auto before = readDataFromFileAtURL(pdf);
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    rlimit old;
    ::getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{4096, old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    print(1000);
    ::setrlimit(RLIMIT_FSIZE, &old);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(paper.outcome, PrintOutcome::failed);
    EXPECT_EQ(paper.status.text(), "out.pdf was not written: File too large");
    EXPECT_EQ(readDataFromFileAtURL(pdf), before);
    EXPECT_EQ(folder.entries(), 1);
    print(1);
    EXPECT_EQ(paper.status.text(), "");
}

/// What a person does in the print dialog when it opens.
void inPrintDialog(std::function<void(QPrintDialog&)> person) {
    QTimer::singleShot(0, [person = std::move(person)] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        person(*dialog);
    });
}

void printToFile(QPrintDialog& dialog, const std::string& path) {
    dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(path));
    const auto* box = dialog.findChild<QDialogButtonBox*>();
    for (QAbstractButton* button : box->buttons())
        if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) button->click();
}

TEST_F(PrintedPdf, ThePrintDialogPrintsToAFile) {
    inPrintDialog([&](QPrintDialog& dialog) { printToFile(dialog, pdf); });
    list.setNumberOfColors(77);
    printSwatchList(list, dialog.options, dialog.services, paper);
    EXPECT_EQ(paper.outcome, PrintOutcome::printed);
    EXPECT_EQ(PdfDocument(pdf).pages(), 2);
}

TEST_F(PrintedPdf, OfThreePagesTheSecondAloneCanBePrinted) {
    inPrintDialog([&](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>("printRange")->click();
        for (const char* name : {"from", "to"})
            dialog.findChild<QSpinBox*>(name)->setValue(2);
        printToFile(dialog, pdf);
    });
    list.setNumberOfColors(160);
    printSwatchList(list, dialog.options, dialog.services, paper);
    EXPECT_EQ(paper.outcome, PrintOutcome::printed);
    const PdfDocument document(pdf);
    ASSERT_EQ(document.pages(), 1);
    std::string footer;
    for (const test::PdfWord& word : document.words(1))
        footer += word.text + ' ';
    EXPECT_THAT(footer, testing::HasSubstr("page 2/3"));
}

TEST_F(PrintedPdf, ThePrintDialogCanBeCancelled) {
    inPrintDialog([](QPrintDialog& dialog) { dialog.reject(); });
    list.setNumberOfColors(77);
    printSwatchList(list, dialog.options, dialog.services, paper);
    EXPECT_EQ(paper.outcome, PrintOutcome::cancelled);
    EXPECT_EQ(folder.entries(), 0);
    EXPECT_EQ(list.frame(), (Rect{0, 0, 200, 400}));
    EXPECT_EQ(list.bounds(), (Rect{0, 0, 200, 400}));
}

} // namespace
} // namespace chromalog
