// Marks, rims and the focus as they are seen, and what picks read under them.
#include "qt/desktop_fixture.h"

#include "qt/contrast.h"
#include "qt/convert.h"
#include "support/headless_colours.h"
#include "views/chromatic_circle_view.h"
#include "views/luminosity_view.h"

#include <QPushButton>

#include <cmath>

using namespace chromalog;
using namespace chromalog::test;

namespace {

const Colour kSecondColours[] = {Colour::rgb(1, 1, 1),   Colour::rgb(0, 0, 0), Colour::rgb(.47, .47, .47),
                                 Colour::rgb(1, 0, 0),   Colour::rgb(0, 1, 0), Colour::rgb(0, 0, 1),
                                 Colour::rgb(1, 1, 0),   Colour::rgb(0, 1, 1), Colour::rgb(.9, .9, .86),
                                 Colour::rgb(.3, .5, .2)};

/// Wheel and strip of one pair of colours.
class DisplayLayerTest : public DesktopTest {
  protected:
    static constexpr int kSide = 200;

    void SetUp() override {
        wheelWidget.resize(kSide, kSide);
        wheelWidget.setView(&wheel, &desktop);
        stripWidget.resize(24, 110); // its cells leave no white inside their frames
        stripWidget.setView(&strip, &desktop);
        take(Colour::rgb(1, 0, 0));
    }
    void take(const Colour& second) {
        colours.setSecondColor(second);
        colours.setLuminosity(static_cast<float>(second.brightness()));
        wheel.drawOnce();
        wheel.setCursorWithColor(second);
    }
    void surround(QColor window) {
        QPalette palette;
        palette.setColor(QPalette::Window, window);
        wheelWidget.setPalette(palette);
    }
    QImage shown() { return wheelWidget.grab().toImage(); }

    static double bestContrast(const QImage& image, QRect near, const QColor& against) {
        double best = 1;
        near &= image.rect();
        for (int y = near.top(); y <= near.bottom(); ++y)
            for (int x = near.left(); x <= near.right(); ++x)
                best = std::max(best, contrast(image.pixelColor(x, y), against));
        return best;
    }

    QtDesktop desktop{settings()};
    HeadlessColours colours;
    chromaticCircleView wheel{colours};
    luminosityView strip{colours};
    ViewWidget wheelWidget, stripWidget;
};

TEST_F(DisplayLayerTest, TheDiscIsShownAsPicksReadItAndItsCornersAreTheSurround) {
    take(Colour::rgb(.2, .7, .6));
    const Point cursor = wheel.selectedPoint();
    const Bitmap captured = desktop.capture(wheel);
    for (const QColor window : {QColor(0xe2e2e2), QColor(0x808080), QColor(0x323232)}) {
        surround(window);
        const QImage image = shown();
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x) {
                const double fromCentre = std::hypot(x - kSide / 2.0, y - kSide / 2.0);
                const double fromCursor = std::hypot(x + .5 - cursor.x, kSide - y - .5 - cursor.y);
                if (fromCursor < 8) continue;
                if (fromCentre < kSide / 2.0) {
                    const std::uint32_t picked = wheel.picture().pixels[y * kSide + x];
                    ASSERT_EQ(image.pixel(x, y) | 0xFF000000U, picked | 0xFF000000U) << x << ", " << y;
                } else if (fromCentre > kSide / 2.0 + 1) {
                    ASSERT_EQ(image.pixelColor(x, y), window) << x << ", " << y;
                }
            }
        EXPECT_EQ(desktop.capture(wheel).pixels, captured.pixels);
        EXPECT_EQ(captured.pixels.front(), 0xFFEDEDEDU);
    }
}

TEST_F(DisplayLayerTest, MarksOnTheWheelAreSeenOnAnyColour) {
    for (const Colour& second : kSecondColours) {
        take(second);
        const Point at = wheel.selectedPoint();
        const QColor under = toQt(wheel.getColorAtPoint(at));
        const QRect near(int(at.x) - 5, int(kSide - at.y) - 5, 10, 10);
        EXPECT_GE(bestContrast(shown(), near, under), 3) << qPrintable(under.name());
    }
}

TEST_F(DisplayLayerTest, HalosAreNoPartOfWhatPicksRead) {
    take(Colour::rgb(1, 1, 1));
    const Bitmap captured = desktop.capture(wheel);
    const auto readable = [](const Bitmap& bitmap) {
        return QImage(reinterpret_cast<const uchar*>(bitmap.pixels.data()), kSide, kSide,
                      QImage::Format_ARGB32);
    };
    const QRect near(kSide / 2 - 6, kSide / 2 - 6, 12, 12);
    EXPECT_GE(bestContrast(shown(), near, Qt::white), 3);
    EXPECT_LT(bestContrast(readable(captured), near, Qt::white), 1.2);
    EXPECT_LT(bestContrast(readable(wheel.picture()), near, Qt::white), 1.2);
}

TEST_F(DisplayLayerTest, TheStripsMarkIsSeenOnAnyColour) {
    for (const Colour& bright : kSecondColours) {
        const Colour second =
            Colour::hsb(bright.hue(), bright.saturation(), 0.5 * bright.brightness() + 0.002);
        take(second);
        const QImage image = stripWidget.grab().toImage();
        const QColor around = toQt(Colour::hsb(second.hue(), second.saturation(), second.brightness()));
        EXPECT_GE(bestContrast(image, image.rect(), around), 3) << qPrintable(around.name());
        const int row = static_cast<int>(110 - second.brightness() * 110);
        EXPECT_GE(bestContrast(image, QRect(4, row - 3, 4, 6), around), 3) << qPrintable(around.name());
    }
}

class FocusTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    SpyView view;
    std::unique_ptr<Form> form;
    QDialog* window = nullptr;
    ViewWidget* widget = nullptr;
    QPushButton* button = nullptr;

    void SetUp() override {
        writeDialog("form", "<widget class=\"QPushButton\" name=\"button\"/><widget class=\"ViewWidget\" "
                            "name=\"picture\"><property name=\"geometry\"><rect><x>50</x><y>60</y><width>100"
                            "</width><height>80</height></rect></property></widget>");
        form = desktop.loadForm("form", {});
        window = qobject_cast<QDialog*>(desktop.widget("window"));
        widget = qobject_cast<ViewWidget*>(desktop.widget("picture"));
        button = qobject_cast<QPushButton*>(desktop.widget("button"));
        view.draw = [this](Canvas& c) {
            c.setFill(Colour::rgb(1, 0, 0));
            c.fillRect(view.bounds());
        };
        widget->setView(&view, &desktop);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        button->setFocus();
    }
    void TearDown() override { widget->setView(nullptr); }

    QColor shown(int x, int y) const { return window->grab().toImage().pixelColor(x, y); }
    QColor ground() const { return window->palette().color(QPalette::Window); }
};

TEST_F(FocusTest, ForTheKeyboardARingStandsAroundTheView) {
    QTest::keyClick(button, Qt::Key_Tab);
    ASSERT_TRUE(widget->hasFocus());
    EXPECT_EQ(shown(47, 57), QColor(Qt::black));
    EXPECT_EQ(shown(48, 58), QColor(Qt::white));
    EXPECT_EQ(shown(152, 142), QColor(Qt::black));
    EXPECT_EQ(shown(49, 59), ground());
    const QImage picture = widget->grab().toImage();
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 100; ++x)
            ASSERT_EQ(picture.pixelColor(x, y), QColor(Qt::red))
                << "the picture is covered at " << x << ", " << y;
    widget->move(70, 90);
    EXPECT_EQ(shown(67, 87), QColor(Qt::black)) << "the ring went along";
    EXPECT_EQ(shown(48, 58), ground());
    QTest::keyClick(widget, Qt::Key_Backtab);
    EXPECT_EQ(shown(67, 87), ground());
}

TEST_F(FocusTest, AfterAPressOfTheMouseNoFocusIsShownUntilTheNextKey) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, {10, 10});
    widget->setFocus(Qt::MouseFocusReason);
    ASSERT_TRUE(widget->hasFocus());
    EXPECT_EQ(shown(47, 57), ground());
    QTest::keyClick(widget, Qt::Key_Right);
    EXPECT_EQ(shown(47, 57), QColor(Qt::black));
    QTest::mousePress(widget, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(shown(47, 57), ground());
    QTest::mouseRelease(widget, Qt::LeftButton, {}, {10, 10});
    QTest::keyClick(widget, Qt::Key_Shift);
    EXPECT_EQ(shown(47, 57), ground()) << "a key that goes with the mouse as well";
}

TEST_F(FocusTest, AHiddenViewHasNoRing) {
    QTest::keyClick(button, Qt::Key_Tab);
    widget->hide();
    EXPECT_EQ(shown(47, 57), ground());
}

} // namespace
