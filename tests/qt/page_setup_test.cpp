// Page set-up in the units and on the paper of where a person lives.
#include "qt/desktop_fixture.h"

#include "qt/panels/page_setup_sheet.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPushButton>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class PageUnitsTest : public DesktopTest {
  protected:
    QWidget window;
    PrintInfo info;
    QDialog* sheet = nullptr;

    void open(LengthUnit unit) {
        delete sheet;
        openPageSetup(info, unit, &window);
        sheet = window.findChild<QDialog*>("qt_pageSetup");
    }
    QDoubleSpinBox& length(const char* name) { return *sheet->findChild<QDoubleSpinBox*>(name); }
    void accept() { sheet->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); }
};

TEST_F(PageUnitsTest, LengthsShowInTheirUnitAndComeBackInPoints) {
    open(LengthUnit::millimetres);
    EXPECT_EQ(length("left").suffix(), " mm");
    EXPECT_EQ(length("left").value(), 12.7);
    length("left").setValue(25.4);
    accept();
    EXPECT_NEAR(info.left, 72, 1e-9);
    open(LengthUnit::inches);
    EXPECT_EQ(length("top").suffix(), " in");
    EXPECT_EQ(length("top").value(), 0.5);
    length("top").setValue(0.25);
    accept();
    EXPECT_EQ(info.top, 18);
    open(LengthUnit::points);
    EXPECT_EQ(length("bottom").suffix(), " pt");
    EXPECT_EQ(length("bottom").value(), 36);
}

TEST_F(PageUnitsTest, ALengthThatNobodyChangedIsKeptToThePoint) {
    for (const LengthUnit unit : {LengthUnit::points, LengthUnit::millimetres, LengthUnit::inches}) {
        info.left = 10.123;
        info.right = 36;
        open(unit);
        accept();
        EXPECT_EQ(info.left, 10.123);
        EXPECT_EQ(info.right, 36);
    }
}

TEST_F(PageUnitsTest, APaperWithoutANameIsToldInTheUnit) {
    info.paper = {144, 720};
    open(LengthUnit::inches);
    const auto* papers = sheet->findChild<QComboBox*>();
    EXPECT_EQ(papers->currentText(),
              QString("%1 × %2 in")
                  .arg(sheet->locale().toString(2.0, 'f', 2), sheet->locale().toString(10.0, 'f', 2)));
}

TEST_F(PageUnitsTest, HabitsFollowTheLocale) {
    const Size a4{595, 842}, letter{612, 792};
    struct Case {
        const char* locale;
        LengthUnit unit;
        std::optional<Size> paper;
    };
    for (const Case& each : {Case{"en_US", LengthUnit::inches, letter},
                             {"en_CA", LengthUnit::millimetres, letter},
                             {"de_DE", LengthUnit::millimetres, a4},
                             {"en_GB", LengthUnit::millimetres, a4},
                             {"C", LengthUnit::points, std::nullopt}}) {
        const PageHabits habits = pageHabits(QLocale(each.locale));
        EXPECT_EQ(habits.unit, each.unit) << each.locale;
        EXPECT_EQ(habits.paper, each.paper) << each.locale;
    }
}

TEST_F(PageUnitsTest, TheDesktopTakesThemAndAScriptsIsAsEver) {
    QtDesktop desktop{settings()};
    EXPECT_EQ(desktop.sharedPrintInfo().paper, (Size{612, 792}));
    desktop.takePageHabits({LengthUnit::millimetres, Size{595, 842}});
    EXPECT_EQ(desktop.sharedPrintInfo().paper, (Size{595, 842}));
    desktop.takePageHabits({LengthUnit::inches, std::nullopt});
    EXPECT_EQ(desktop.sharedPrintInfo().paper, (Size{595, 842}));
}

} // namespace
