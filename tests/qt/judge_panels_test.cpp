// The menu "Tools" and the panels that it opens, with the toolkit.
#include "judge/made_host.h"
#include "qt/dialog_fixture.h"
#include "qt/settings_file.h"

#include <QAction>
#include <QDialog>
#include <QScreen>
#include <QTest>

#include <filesystem>
#include <fstream>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class JudgePanels : public WholeDialogTest {
  protected:
    QAction& item(const char* name) { return *desktop.widget("chromalogWindow")->findChild<QAction*>(name); }
    QRect frame(const char* outlet) {
        const QWidget& widget = *desktop.widget(outlet);
        return {widget.mapTo(widget.window(), QPoint()), widget.size()};
    }
};

TEST_F(JudgePanels, AnItemSaysWhyItIsDisabled) {
    makeDialog();
    EXPECT_FALSE(item("itemGamutWarning").isEnabled());
    EXPECT_EQ(item("itemGamutWarning").text(), "Gamut Warning (the host converts no colors)");
    EXPECT_TRUE(item("itemContrast").isEnabled());
    EXPECT_TRUE(item("itemCustomAngle").isEnabled());
}

TEST_F(JudgePanels, NoViewMovesForWhatIsShown) {
    MadeHost::reset();
    picker.colorServices = MadeHost::convert;
    makeDialog();
    desktop.widget("chromalogWindow")->show();
    controler->colours().enterFirst(Colour::rgb(1, 0, 0));
    controler->colours().enterSecond(Colour::rgb(1, 0, 0));
    const char* const places[] = {"chromaView", "lumiView",  "myDegrade",      "swatch1Scroller",
                                  "firstR",     "firstC",    "origFirstColor", "complementColor",
                                  "okButton",   "colorName", "secondK",        "origSecondColor"};
    std::vector<QRect> before;
    for (const char* place : places)
        before.push_back(frame(place));
    for (const char* name : {"itemContrast", "itemCustomAngle", "itemGamutWarning"})
        item(name).trigger();
    QTest::qWait(50);
    EXPECT_TRUE(item("itemGamutWarning").isChecked());
    EXPECT_TRUE(desktop.widget("gamutFirst")->isVisible());
    EXPECT_TRUE(desktop.widget("gamutSecond")->isVisible());
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(frame(places[i]), before[i]) << places[i];
    item("itemGamutWarning").trigger();
    EXPECT_FALSE(item("itemGamutWarning").isChecked());
    EXPECT_FALSE(desktop.widget("gamutFirst")->isVisible());
}

TEST_F(JudgePanels, PanelsDoNotHideEachOther) {
    makeDialog();
    desktop.widget("chromalogWindow")->show();
    item("itemContrast").trigger();
    item("itemCustomAngle").trigger();
    const QRect contrast = desktop.widget("contrastWindow")->geometry();
    const QRect angle = desktop.widget("customAngleWindow")->geometry();
    EXPECT_FALSE(contrast.intersects(angle));
    QTest::keyClick(desktop.widget("customAngleWindow"), Qt::Key_Escape);
    EXPECT_FALSE(desktop.widget("customAngleWindow")->isVisible());
    desktop.widget("contrastWindow")->move(5, 6);
    item("itemContrast").trigger();
    EXPECT_EQ(desktop.widget("contrastWindow")->pos(), QPoint(5, 6)) << "where a person has put it";
}

TEST_F(JudgePanels, PanelsStandWhollyOnTheScreen) {
    makeDialog();
    QWidget* dialog = desktop.widget("chromalogWindow");
    dialog->show();
    const QRect screen = dialog->screen()->availableGeometry();
    for (const auto& [action, window] : {std::pair("itemNearestSwatches", "nearestWindow"),
                                         std::pair("itemCompareLists", "compareWindow")}) {
        item(action).trigger();
        EXPECT_TRUE(screen.contains(desktop.widget(window)->frameGeometry())) << window;
    }
}

TEST_F(JudgePanels, ANumberIsKeptForAPersonAlone) {
    const std::string path = settingsPath(desktop.applicationsDirectory());
    desktop.keepNumber("customAngle", 77);
    EXPECT_EQ(desktop.keptNumber("customAngle", 30), 30) << "of a script nothing is kept";
    EXPECT_FALSE(std::filesystem::exists(path));
    desktop.rememberFiles(path);
    EXPECT_EQ(desktop.keptNumber("customAngle", 30), 30);
    desktop.keepNumber("customAngle", 77);
    EXPECT_EQ(desktop.keptNumber("customAngle", 30), 77);
    std::ofstream(path) << R"({"customAngle": "many"})";
    EXPECT_EQ(desktop.keptNumber("customAngle", 30), 30);
}

} // namespace
