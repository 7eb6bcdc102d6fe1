// The ground around colours: on any desktop texts, lines and lists are seen.
#include "qt/desktop_fixture.h"

#include "qt/contrast.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/settings_file.h"
#include "qt/surround.h"
#include "qt/window_memory.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>

using namespace chromalog;
using namespace chromalog::test;

namespace {

const QStringList kGrounds = {"light", "midGrey", "dark"};
constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

QPalette desktopOf(QColor window, QColor text) {
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::PlaceholderText, palette.color(QPalette::Text));
    return palette;
}

/// Light and dark ones, tinted ones, and of high contrast.
std::vector<QPalette> desktops() {
    return {desktopOf(QColor(0xefefef), Qt::black), desktopOf(QColor(0xf6f5f4), QColor(0x2e3436)),
            desktopOf(QColor(0x353535), Qt::white), desktopOf(QColor(0x2b303b), QColor(0xeeeeec)),
            desktopOf(Qt::white, Qt::black),        desktopOf(Qt::black, Qt::white)};
}

/// As the window has it: what the choice says over the desktop's.
QPalette shownOn(const QPalette& desktop, const QString& name) {
    return surroundPalette(desktop, name).resolve(desktop);
}

TEST(Surround, TextsAndLinesAreSeenOnEveryGround) {
    for (const QPalette& desktop : desktops())
        for (const QString& name : QStringList{"desktop"} + kGrounds) {
            const QPalette shown = shownOn(desktop, name);
            const QColor window = shown.color(QPalette::Window);
            EXPECT_GE(contrast(window, shown.color(QPalette::WindowText)), 4.5) << name.toStdString();
            EXPECT_GE(contrast(window, hairline(shown)), 3) << name.toStdString();
            EXPECT_EQ(window.hsvSaturation(), 0) << name.toStdString();
            const QColor quiet = shown.color(QPalette::Disabled, QPalette::WindowText);
            EXPECT_GE(contrast(window, quiet), 4.5) << name.toStdString();
        }
}

TEST(Surround, AListsGroundCarriesBlackNamesAndTheBlueFrameAndNeverGlaresInTheDark) {
    for (const QPalette& desktop : desktops())
        for (const QString& name : QStringList{"desktop"} + kGrounds) {
            const QColor window = shownOn(desktop, name).color(QPalette::Window), ground = listGround(window);
            EXPECT_GE(contrast(ground, Qt::black), 4.5) << name.toStdString();
            EXPECT_GE(contrast(ground, QColor(0, 0, 255)), 3) << name.toStdString();
            EXPECT_EQ(ground.hsvSaturation(), 0);
            EXPECT_EQ(ground != QColor(Qt::white), relativeLuminance(window) < 0.4) << name.toStdString();
        }
}

TEST(Surround, TwoRolesAreSetAndNoOthers) {
    for (const QString& name : kGrounds) {
        const QPalette palette = surroundPalette(desktops()[0], name);
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            for (const auto group : kGroups)
                EXPECT_EQ(palette.isBrushSet(group, QPalette::ColorRole(role)),
                          role == QPalette::Window || role == QPalette::WindowText)
                    << role;
    }
}

TEST(Surround, PlaceholdersAreReadOnADesktopThatForgetsThem) {
    QPalette desktop = desktops()[2];
    desktop.setColor(QPalette::Base, QColor(0x262626));
    desktop.setColor(QPalette::Text, Qt::white);
    desktop.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    const QPalette shown = shownOn(desktop, "desktop");
    EXPECT_GE(contrast(shown.color(QPalette::PlaceholderText), QColor(0x262626)), 4.5);
    desktop.setColor(QPalette::PlaceholderText, QColor(0xbbbbbb));
    EXPECT_EQ(shownOn(desktop, "desktop").color(QPalette::PlaceholderText), QColor(0xbbbbbb));
}

/// How many were found is greyed, and read.
TEST(Surround, WhatIsGreyedIsReadOnADesktopThatMakesItFaint) {
    QPalette desktop = desktops()[0];
    desktop.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0xbebebe));
    const QColor grey = shownOn(desktop, "desktop").color(QPalette::Disabled, QPalette::WindowText);
    EXPECT_GE(contrast(grey, desktop.color(QPalette::Window)), 4.5);
    EXPECT_LT(contrast(grey, desktop.color(QPalette::Window)), 5.5) << "and is still grey";
    EXPECT_EQ(shownOn(desktop, "desktop").color(QPalette::WindowText), QColor(Qt::black));
}

TEST(Surround, AsTheDesktopOnlyATintIsTakenAway) {
    const QPalette neutral = surroundPalette(desktops()[0], "desktop");
    EXPECT_EQ(neutral.resolveMask(), QPalette().resolveMask());
    const QPalette tinted = surroundPalette(desktops()[3], "desktop");
    const QColor window = tinted.color(QPalette::Window), before = desktops()[3].color(QPalette::Window);
    EXPECT_NEAR(relativeLuminance(window), relativeLuminance(before), 0.002);
    EXPECT_FALSE(tinted.isBrushSet(QPalette::Active, QPalette::WindowText));
}

class SurroundChoiceTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    const std::string path = settingsPath(desktop.applicationsDirectory());
    const QPalette before = QApplication::palette();

    void SetUp() override {
        std::string items, added;
        for (const QString& name : QStringList{"desktop"} + kGrounds) {
            const std::string n = name.toStdString();
            items += "<action name=\"" + n + "\"><property name=\"checkable\"><bool>true</bool></property>" +
                     "<property name=\"checked\"><bool>" + (n == "desktop" ? "true" : "false") +
                     "</bool></property><property name=\"surround\" stdset=\"0\"><string>" + n +
                     "</string></property></action>";
            added += "<addaction name=\"" + n + "\"/>";
        }
        writeDialog("form", "<widget class=\"ListScrollArea\" name=\"boxList\"><widget class=\"ViewWidget\" "
                            "name=\"list\"/></widget><widget class=\"QMenu\" name=\"menu\">" +
                                items + added + "</widget>");
    }
    void TearDown() override { QApplication::setPalette(before); }

    /// One pick of a person, or of a script.
    void open(bool byAPerson, const std::function<void(QDialog&)>& meanwhile) {
        const auto form = desktop.loadForm("form", {});
        auto& window = *qobject_cast<QDialog*>(desktop.widget("window"));
        if (byAPerson) new WindowMemory(window, path);
        window.show();
        meanwhile(window);
        window.hide();
    }
    static QColor ground(const QDialog& window) { return window.palette().color(QPalette::Window); }
};

TEST_F(SurroundChoiceTest, TheChoiceLastsAndAScriptIsNotToldOfIt) {
    open(true, [&](QDialog& window) {
        const QColor desktopsOwn = ground(window);
        window.findChild<QAction*>("dark")->trigger();
        EXPECT_EQ(ground(window), QColor(0x32, 0x32, 0x32));
        window.findChild<QAction*>("desktop")->trigger();
        EXPECT_EQ(ground(window), desktopsOwn);
        window.findChild<QAction*>("midGrey")->trigger();
        EXPECT_FALSE(window.findChild<QAction*>("desktop")->isChecked());
    });
    open(true, [&](QDialog& window) {
        EXPECT_EQ(ground(window), QColor(0x80, 0x80, 0x80));
        EXPECT_TRUE(window.findChild<QAction*>("midGrey")->isChecked());
    });
    open(false, [&](QDialog& window) { EXPECT_EQ(ground(window), before.color(QPalette::Window)); });
    EXPECT_EQ(readSettings(path)["surround"].toString(), "midGrey");
    changeSettings(path, {{"surround", "pink"}});
    open(true, [&](QDialog& window) { EXPECT_EQ(ground(window), before.color(QPalette::Window)); });
}

TEST_F(SurroundChoiceTest, TheDesktopIsFollowedWhileTheDialogIsOpen) {
    open(true, [&](QDialog& window) {
        QApplication::setPalette(desktopOf(QColor(0x2b303b), Qt::white));
        QCoreApplication::sendPostedEvents();
        EXPECT_LT(relativeLuminance(ground(window)), 0.05);
        EXPECT_EQ(ground(window).hsvSaturation(), 0);
        EXPECT_EQ(window.palette().color(QPalette::WindowText), QColor(Qt::white));
        QApplication::setPalette(before);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(ground(window), before.color(QPalette::Window));
    });
}

TEST_F(SurroundChoiceTest, AListIsShownOnItsGroundAndItsPictureHasNone) {
    open(true, [&](QDialog& window) {
        auto& list = *window.findChild<ViewWidget*>("list");
        SpyView view;
        list.setView(&view, &desktop);
        window.findChild<ListScrollArea*>()->resize(100, 80);
        list.resize(90, 70);
        const auto shown = [&] { return list.grab().toImage().pixelColor(20, 20); };
        EXPECT_EQ(shown(), QColor(Qt::white));
        window.findChild<QAction*>("dark")->trigger();
        EXPECT_EQ(shown(), listGround(QColor(0x32, 0x32, 0x32)));
        EXPECT_NE(shown(), QColor(Qt::white));
        EXPECT_THAT(desktop.capture(view).pixels, testing::Each(0U));
        list.setView(nullptr);
    });
}

} // namespace
