// The other controls of the dialog.
#include "qt/desktop_fixture.h"

#include "qt/controls/drawn_controls.h"
#include "qt/controls/simple_controls.h"
#include "qt/controls/square_box.h"
#include "qt/controls/tinted_button.h"
#include "qt/convert.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

class ControlsTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
};

TEST_F(ControlsTest, AStepperWalksAndWraps) {
    StepperWidget stepper;
    std::vector<double> values;
    QObject::connect(&stepper, &StepperWidget::stepped, [&] { values.push_back(stepper.value()); });
    stepper.configure(0, 2, 1, 0, true);
    EXPECT_TRUE(values.empty()); // configured by the program
    auto* next = stepper.findChild<QToolButton*>("qt_stepForwards");
    for (int i = 0; i < 3; ++i)
        next->click();
    stepper.findChild<QToolButton*>("qt_stepBackwards")->click();
    EXPECT_THAT(values, ElementsAre(1, 2, 0, 2));
    stepper.configure(0, 2, 1, 2, false);
    next->click();
    EXPECT_EQ(stepper.value(), 2);
    stepper.configure(0, 1, 1, 7, true);
    EXPECT_EQ(stepper.value(), 1); // clamped to its range
}

TEST_F(ControlsTest, ADisabledStepperStands) {
    StepperWidget stepper;
    stepper.configure(0, 2, 1, 1, true);
    stepper.setEnabled(false);
    stepper.stepForwards();
    EXPECT_EQ(stepper.value(), 1);
    EXPECT_FALSE(stepper.isEnabled());
}

TEST_F(ControlsTest, TheStepperTakesArrowKeys) {
    StepperWidget stepper;
    stepper.configure(0, 9, 1, 5, true);
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(stepper.value(), 6);
    QTest::keyClick(&stepper, Qt::Key_Up);
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(stepper.value(), 4);
}

TEST_F(ControlsTest, TheLevelIsKeptAndItsDrawingClamped) {
    LevelIndicatorWidget level;
    const struct {
        double value;
        int segments;
    } cases[] = {{10, 10}, {0, 0}, {-3.5, 0}, {12, 10}, {4.4, 4}, {9.6, 10}, {std::nan(""), 0}};
    for (const auto& c : cases) {
        level.setValue(c.value);
        EXPECT_EQ(level.filledSegments(), c.segments) << c.value;
        if (!std::isnan(c.value)) {
            EXPECT_EQ(level.value(), c.value);
        }
    }
}

TEST_F(ControlsTest, TwoStateButtonsAreSetWithoutSendingTheirAction) {
    QCheckBox box;
    int clicks = 0;
    QObject::connect(&box, &QAbstractButton::clicked, [&] { ++clicks; });
    ButtonControl control(&box);
    control.setState(1);
    EXPECT_EQ(control.state(), 1);
    control.setState(0);
    EXPECT_EQ(control.state(), 0);
    EXPECT_EQ(clicks, 0);
    control.setTitle("Größe");
    EXPECT_EQ(box.text(), "Größe");
}

TEST_F(ControlsTest, ASliderIsReadWhereItStands) {
    auto* slider = new QSlider;
    slider->setRange(0, 100);
    const SliderControl control(slider);
    slider->setValue(40);
    EXPECT_EQ(control.value(), 40);
    delete slider;
    EXPECT_EQ(control.value(), 0);
}

TEST_F(ControlsTest, DrawnControlsWhoseWidgetsAreGoneDoNothing) {
    auto* gone = new QWidget;
    ColorWellControl well(new ColorWellWidget(gone));
    StepperControl stepper(new StepperWidget(gone));
    LevelIndicatorControl level(new LevelIndicatorWidget(gone));
    ScrollViewControl scroll(new ListScrollArea(gone));
    well.setColor(Colour::rgb(0, 1, 0));
    stepper.configure(0, 9, 1, 5, true);
    EXPECT_EQ(well.color().green(), 1);
    EXPECT_EQ(stepper.value(), 5);
    delete gone;
    well.setColor(Colour::rgb(0, 0, 1));
    well.whenDropped([](const DragInfo&) {});
    stepper.configure(0, 9, 1, 5, true);
    level.setValue(3);
    scroll.setVerticalScroller(1);
    scroll.scrollToPoint({});
    scroll.setNeedsDisplay();
    EXPECT_TRUE(well.color().sameRgb(Colour()));
    EXPECT_EQ(stepper.value(), 0);
    EXPECT_EQ(scroll.verticalScroller(), 0);
}

TEST_F(ControlsTest, RadioRowsAreInTheirOrder) {
    QWidget box;
    auto* column = new QVBoxLayout(&box);
    for (const char* title : {"Small", "Middle", "Large"})
        column->addWidget(new QRadioButton(title));
    RadioMatrixControl matrix(&box);
    EXPECT_EQ(matrix.selectedRow(), -1);
    EXPECT_EQ(matrix.selectedTitle(), "");
    matrix.selectRow(2);
    EXPECT_EQ(matrix.selectedRow(), 2);
    EXPECT_EQ(matrix.selectedTitle(), "Large");
    matrix.selectRow(9);
    EXPECT_EQ(matrix.selectedRow(), 2);
}

/// Counts how often it is painted.
struct CountingButton : TintedButton {
    int paints = 0;
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        TintedButton::paintEvent(event);
    }
};

TEST_F(ControlsTest, ATintIsPaintedAtOnce) {
    CountingButton button;
    button.show();
    for (int painted = -1; painted != button.paints;) { // until nothing more is asked for
        painted = button.paints;
        QTest::qWait(20);
    }
    const int before = button.paints;
    button.setTint(Colour::rgb(0, 1, 0));
    QTest::qWait(20);
    EXPECT_GT(button.paints, before);
}

TEST_F(ControlsTest, ATitleIsReadableOnAnyColour) {
    EXPECT_EQ(readableOn(Colour::rgb(1, 1, 1)), QColor(Qt::black));
    EXPECT_EQ(readableOn(Colour::rgb(1, 1, 0)), QColor(Qt::black));
    EXPECT_EQ(readableOn(Colour::rgb(0, 0, 0)), QColor(Qt::white));
    EXPECT_EQ(readableOn(Colour::rgb(0, 0, 1)), QColor(Qt::white));
    TintedButton button("Use 1st color");
    ButtonControl control(&button);
    control.setBackground(Colour::rgb(0, 0, 1));
    button.resize(160, 40);
    EXPECT_EQ(button.grab().toImage().pixelColor(12, 20), QColor(Qt::blue));
}

TEST_F(ControlsTest, AWellShowsItsColourOpaque) {
    ColorWellWidget well;
    well.resize(44, 28);
    well.setColor(Colour::rgb(0, 1, 0, 0.5));
    EXPECT_EQ(well.color().alpha(), 0.5); // as it was given
    EXPECT_EQ(well.grab().toImage().pixelColor(22, 14), QColor(Qt::green));
}

TEST_F(ControlsTest, AWellTellsItsValueAndCopiesIt) {
    ColorWellWidget well;
    well.setColor(Colour::rgb(12 / 255.0, 34 / 255.0, 56 / 255.0));
    EXPECT_EQ(well.valueText(), "RGB 12 34 56, #0c2238");
    well.copyAsHex();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "#0c2238");
    const auto* accessible = QAccessible::queryAccessibleInterface(&well);
    EXPECT_EQ(accessible->role(), QAccessible::ColorChooser);
    EXPECT_EQ(accessible->text(QAccessible::Value), "RGB 12 34 56, #0c2238");
}

TEST_F(ControlsTest, AWellIsReadByOurOwnWordsAsLongAsADesktopLives) {
    const auto roleOfAWell = [] {
        const ColorWellWidget well;
        return QAccessible::queryAccessibleInterface(const_cast<ColorWellWidget*>(&well))->role();
    };
    QAccessible::Role ours{};
    {
        const QtDesktop another{settings()};
        ours = roleOfAWell();
    }
    EXPECT_NE(roleOfAWell(), ours) << "what makes it may be unloaded";
}

TEST_F(ControlsTest, SquaresAreCentredAndOfWholeSteps) {
    SquareBox box;
    QWidget child(&box);
    box.setStep(16);
    box.show();
    box.resize(330, 300);
    EXPECT_EQ(child.geometry(), QRect(21, 6, 288, 288));
    child.setParent(nullptr);
}

} // namespace
