// The panel of pictures in the real dialog: its keys, the clipboard, and the thread that it works on.
#include "qt/dialog_fixture.h"

#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>

namespace chromalog::test {
namespace {

class PicturePanelTest : public WholeDialogTest {
  protected:
    void SetUp() override {
        makeDialog();
        button("choosePicture").click();
        desktop.panels().current()->reject(); // there is no picture yet: it asks for one
    }
    ~PicturePanelTest() override { QGuiApplication::clipboard()->clear(); }
    QPushButton& button(const char* name) { return dynamic_cast<QPushButton&>(*desktop.widget(name)); }
    QString note() { return dynamic_cast<QLabel&>(*desktop.widget("pictureNote")).text(); }
    QWidget& window() { return *desktop.widget("pictureWindow"); }
    void copyImage() {
        QImage image(40, 10, QImage::Format_RGB32);
        image.fill(Qt::red);
        QGuiApplication::clipboard()->setImage(image);
    }
    int count() { return controler->panels().one.view.getNumberOfColors(); }
};

TEST_F(PicturePanelTest, CtrlVTakesThePictureOfTheClipboard) {
    copyImage();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    desktop.widget("picture")->setFocus();
    QTest::keyClick(desktop.widget("picture"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return note() == "the pasted picture, 40 x 10 pixels"; }));
    button("pictureToList1").click();
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(controler->history().undoSteps(), 1);
    QTest::mouseClick(desktop.widget("picture"), Qt::LeftButton, {},
                      desktop.widget("picture")->rect().center());
    EXPECT_TRUE(controler->colours().getSecondColor().sameRgb(Colour::rgb(1, 0, 0)));
}

TEST_F(PicturePanelTest, WhatIsWantedBeforeItIsThereComesWithTheEventLoop) {
    copyImage();
    button("pastePicture").click();
    button("pictureToList1").click();
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return count() == 1; }));
}

TEST_F(PicturePanelTest, EscapeClosesThePanelAlone) {
    EXPECT_TRUE(window().isVisible());
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
}

} // namespace
} // namespace chromalog::test
