// The dialog opens as a person left it, whatever the settings file holds.
#include "qt/desktop_fixture.h"

#include "qt/controls/window_control.h"
#include "qt/settings_file.h"
#include "qt/window_memory.h"

#include <QJsonArray>
#include <QMenu>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

std::vector<std::string> filesBelow(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(fs::relative(entry.path(), folder));
    return files;
}

/// The offscreen platform's screen is 800 x 800, so what is restored here is small: forms of the test's own.
class WindowMemoryTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    const std::string path = settingsPath(desktop.applicationsDirectory());

    void SetUp() override {
        writeForm(
            "small",
            "<ui version=\"4.0\"><widget class=\"QDialog\" name=\"window\"><property name=\"geometry\">"
            "<rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>"
            "<widget class=\"QWidget\" name=\"boxTones\"/>"
            "<widget class=\"QWidget\" name=\"boxMore\"><property "
            "name=\"visible\"><bool>false</bool></property>"
            "</widget>"
            "<widget class=\"QMenu\" name=\"menu\"><action name=\"itemTones\"><property "
            "name=\"checkable\"><bool>true</bool></property><property name=\"checked\"><bool>true</bool>"
            "</property><property name=\"shows\" stdset=\"0\"><string>boxTones</string></property>"
            "</action><action name=\"itemMore\"><property name=\"checkable\"><bool>true</bool></property>"
            "<property name=\"shows\" stdset=\"0\"><string>boxMore</string></property></action>"
            "<addaction name=\"itemTones\"/></widget></widget></ui>");
    }

    void writeSettings(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
    std::string readFile() const {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    /// One pick: the dialog opens, `meanwhile` happens, it closes.
    void open(const std::function<void(QDialog&)>& meanwhile) {
        const auto form = desktop.loadForm("small", {});
        auto& window = *qobject_cast<QDialog*>(desktop.widget("window"));
        new WindowMemory(window, path);
        window.show();
        meanwhile(window);
        window.hide();
    }
    static QAction* item(QDialog& window) { return window.findChild<QAction*>("itemTones"); }
    static QWidget* box(QDialog& window) { return window.findChild<QWidget*>("boxTones"); }
};

TEST(FrameAround, IsNoneWhileTheWindowManagerPutsItThere) {
    const QRect window(250, 80, 1280, 760);
    EXPECT_EQ(frameAround(window, {249, 60, 1282, 785}), QRect(249, 60, 1282, 785));
    EXPECT_EQ(frameAround(window, window), window);
    EXPECT_EQ(frameAround(window, {250, 80, 1, 1}), window);
    EXPECT_EQ(frameAround(window, {0, 0, 1282, 785}), window);
}

TEST(WindowPlace, APanelStandsBesideTheDialogWhereThereIsRoom) {
    const QRect screen(0, 20, 1600, 900), dialog(250, 100, 1000, 600);
    const QSize panel(240, 400);
    EXPECT_EQ(placeBeside(dialog, panel, screen, true), QPoint(10, 100));
    EXPECT_EQ(placeBeside(dialog, panel, screen, false), QPoint(1250, 100));
    EXPECT_EQ(placeBeside(dialog.translated(-100, 0), panel, screen, true), QPoint(1150, 100))
        << "on the other side";
    EXPECT_EQ(placeBeside(dialog.translated(0, -90), panel, screen, true), QPoint(10, 20));
    EXPECT_FALSE(placeBeside(screen, panel, screen, true));
}

TEST_F(WindowMemoryTest, SizePlaceAndFoldsLast) {
    open([](QDialog& window) {
        EXPECT_EQ(window.size(), QSize(400, 300));
        EXPECT_FALSE(box(window)->isHidden());
        window.resize(520, 410);
        window.move(70, 60);
        item(window)->trigger();
        EXPECT_TRUE(box(window)->isHidden());
    });
    open([](QDialog& window) {
        EXPECT_EQ(window.size(), QSize(520, 410));
        EXPECT_EQ(window.pos(), QPoint(70, 60));
        EXPECT_TRUE(box(window)->isHidden());
        item(window)->trigger();
    });
    open([](QDialog& window) { EXPECT_FALSE(box(window)->isHidden()); });
    EXPECT_THAT(filesBelow(folder.path()), ElementsAre("Quorvex/Chromalog-settings.json", "small.ui"));
}

TEST_F(WindowMemoryTest, WhatIsFoldedAtFirstStaysUnfoldedOnceItWas) {
    const auto more = [](QDialog& window) { return window.findChild<QAction*>("itemMore"); };
    const auto shown = [](QDialog& window) { return !window.findChild<QWidget*>("boxMore")->isHidden(); };
    open([&](QDialog& window) {
        EXPECT_FALSE(shown(window));
        more(window)->trigger();
        EXPECT_TRUE(shown(window));
    });
    open([&](QDialog& window) {
        EXPECT_TRUE(shown(window));
        EXPECT_FALSE(box(window)->isHidden());
        more(window)->trigger();
    });
    open([&](QDialog& window) { EXPECT_FALSE(shown(window)); });
}

TEST_F(WindowMemoryTest, OtherSettingsStayAndAnUnchangedPickWritesNothing) {
    writeSettings("{\"other\": [1, {\"a\": null}], \"windowSize\": [300, 200]}");
    open([](QDialog& window) { EXPECT_EQ(window.size(), QSize(300, 200)); });
    EXPECT_EQ(readSettings(path)["other"], QJsonArray({1, QJsonObject{{"a", QJsonValue::Null}}}));
    const auto before = fs::last_write_time(path);
    fs::last_write_time(path, before - std::chrono::hours(1));
    open([](QDialog&) {});
    EXPECT_EQ(fs::last_write_time(path), before - std::chrono::hours(1));
}

TEST_F(WindowMemoryTest, WhateverTheFileHoldsTheDialogOpens) {
    std::string deep;
    for (int i = 0; i < 5000; ++i)
        deep += "{\"windowSize\":";
    for (const std::string& text :
         {std::string(), std::string("nonsense"), std::string("{\"windowSize\""), deep,
          std::string(70000, '['), std::string("[1, 2]"), std::string("\0\xff\xfe", 3),
          std::string("{\"windowSize\": \"400x300\"}"),
          std::string("{\"windowSize\": [1], \"windowPlace\": 7, \"folded\": {\"a\": 1}}"),
          std::string("{\"windowSize\": [1e308, -1e308], \"windowPlace\": [2147483647, -2147483648]}"),
          std::string("{\"windowSize\": [null, true], \"folded\": [[], 3, \"unknown\"]}")}) {
        writeSettings(text);
        open([&](QDialog& window) {
            EXPECT_EQ(window.size(), QSize(400, 300)) << text.substr(0, 60);
            EXPECT_FALSE(box(window)->isHidden()) << text.substr(0, 60);
        });
    }
}

TEST_F(WindowMemoryTest, AFileThatCannotBeWrittenIsNoHindrance) {
    fs::create_directory(path);
    open([](QDialog& window) { window.resize(500, 400); });
    EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(WindowMemoryTest, WithoutAPlaceForTheFileNothingIsWritten) {
    const auto form = desktop.loadForm("small", {});
    auto& window = *qobject_cast<QDialog*>(desktop.widget("window"));
    new WindowMemory(window, {});
    window.show();
    window.hide();
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(settingsPath({}), "");
}

TEST_F(WindowMemoryTest, AWindowIsHeldToItsScreen) {
    const QRect screen(100, 50, 1000, 700);
    EXPECT_EQ(heldTo(screen, {400, 300}, QPoint(200, 100)), QRect(200, 100, 400, 300));
    EXPECT_EQ(heldTo(screen, {400, 300}, QPoint(5000, -5000)), QRect(700, 50, 400, 300));
    EXPECT_EQ(heldTo(screen, {400, 300}, QPoint(100, 749)), QRect(100, 418, 400, 300))
        << "with its title bar";
    EXPECT_EQ(heldTo(screen, {1280, 760}, std::nullopt).size(), QSize(1000, 668));
    EXPECT_TRUE(screen.contains(heldTo(screen, {400, 300}, std::nullopt)));
}

TEST_F(WindowMemoryTest, ALargeDialogOpensOnASmallScreen) {
    const auto form = desktop.loadForm("chromalogWindow", {});
    auto& window = *qobject_cast<QDialog*>(desktop.widget("chromalogWindow"));
    new WindowMemory(window, path);
    EXPECT_EQ(window.size(), QSize(window.minimumWidth(), 760)) << "the screen is 800 x 800";
}

} // namespace
