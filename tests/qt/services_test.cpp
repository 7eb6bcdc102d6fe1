// The smaller services: log, texts, page setup, sounds, the clock, the toolkit's life in a host's process.
#include "qt/desktop_fixture.h"

#include "qt/log_ring.h"
#include "qt/panels/file_panels.h"
#include "qt/panels/print_jobs.h"
#include "qt/string_table.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QPixmapCache>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <clocale>
#include <ctime>
#include <set>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

TEST(LogRing, KeepsTheLastLines) {
    LogRing ring(false);
    for (std::size_t i = 0; i <= LogRing::capacity; ++i)
        ring.add("line " + std::to_string(i));
    EXPECT_EQ(ring.lines().size(), LogRing::capacity);
    EXPECT_EQ(ring.lines().front(), "line 1");
}

TEST(LogRing, RedrawsDoNotPushTheOthersOut) {
    LogRing ring(false);
    ring.add("first");
    for (int i = 0; i < 10000; ++i)
        ring.add("DrawSwatches Oy= ,0.000000 HY ," + std::to_string(i));
    EXPECT_THAT(ring.lines(), ElementsAre("first", "DrawSwatches Oy= ,0.000000 HY ,9999"));
}

class ServicesTest : public DesktopTest {};

/// Of the dialog and of the application, after a pick.
std::pair<QIcon, QIcon> iconsOfAPick(const QtDesktopSettings& settings) {
    QtDesktop desktop(settings);
    Outlet<Window> window;
    FormOwner owner;
    owner.outlets = {{"window", &window}};
    const auto form = desktop.loadForm("dialog", owner);
    QTimer::singleShot(0, [&desktop] { QTimer::singleShot(0, [&desktop] { desktop.stopModal(0); }); });
    desktop.runModal(*window);
    return {desktop.widget("window")->windowIcon(), QGuiApplication::windowIcon()};
}

TEST_F(ServicesTest, AnApplicationOfOurOwnKeepsTheIcon) {
    writeDialog("dialog", "");
    QtDesktopSettings own = settings();
    own.ownApplication = false;
    const auto [ofDialog, ofOthers] = iconsOfAPick(own);
    EXPECT_FALSE(ofDialog.pixmap(48, 48).isNull());
    EXPECT_TRUE(ofOthers.isNull()) << "another's is left alone";
    own.ownApplication = true;
    const auto [shown, first] = iconsOfAPick(own);
    EXPECT_FALSE(shown.pixmap(48, 48).isNull());
    EXPECT_FALSE(first.pixmap(48, 48).isNull());
    EXPECT_EQ(iconsOfAPick(own).second.cacheKey(), first.cacheKey());
    QGuiApplication::setWindowIcon({});
}

TEST_F(ServicesTest, AKeyWithoutATextStandsForItself) {
    EXPECT_EQ(StringTable().text("!Load Swatch!"), "!Load Swatch!");
    EXPECT_EQ(StringTable(folder.path()).text("unheard of"), "unheard of");
}

TEST_F(ServicesTest, TextsComeFromTheLanguagesTable) {
    QDir().mkpath(QString::fromStdString(folder / "strings"));
    const std::string language = QLocale().name().section('_', 0, 0).toStdString();
    QFile table(QString::fromStdString(folder / "strings/" + language + ".json"));
    ASSERT_TRUE(table.open(QIODevice::WriteOnly));
    table.write("{\"!Load Swatch!\": \"!Charger!\", \"empty\": \"\", \"number\": 3}");
    table.close();
    QtDesktop desktop{settings()};
    EXPECT_EQ(desktop.localized("!Load Swatch!"), "!Charger!");
    EXPECT_EQ(desktop.localized("empty"), "empty");
    EXPECT_EQ(desktop.localized("number"), "number");
}

TEST_F(ServicesTest, AFolderStandsForThePersonsApplicationsWithoutASlash) {
    QtDesktopSettings s = settings();
    s.dataDirectory = folder.path() + "//";
    EXPECT_EQ(QtDesktop(s).applicationsDirectory(), folder.path());
    s.dataDirectory.clear();
    setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    EXPECT_EQ(QtDesktop(s).applicationsDirectory(), folder / "applications");
    unsetenv("XDG_DATA_HOME");
}

TEST_F(ServicesTest, TheOptionKeyIsAskedOfTheKeyboardNow) {
    QtDesktop desktop{settings()};
    Qt::KeyboardModifiers held;
    desktop.keyboard = [&] { return held; };
    EXPECT_FALSE(desktop.optionKeyHeld());
    held = Qt::AltModifier | Qt::ShiftModifier;
    EXPECT_TRUE(desktop.optionKeyHeld());
}

TEST_F(ServicesTest, OptionWhileOpeningEndsWithTheFirstModalLoop) {
    QtDesktopSettings s = settings();
    s.optionWhileOpening = true;
    QtDesktop desktop{s};
    EXPECT_TRUE(desktop.optionKeyHeld());
    Outlet<Window> none;
    desktop.runModal(*none);
    EXPECT_FALSE(desktop.optionKeyHeld());
}

TEST_F(ServicesTest, SoundsAreRememberedWhetherOrNotTheSystemHasThem) {
    QtDesktop desktop{settings()};
    desktop.playSound("Frog");
    EXPECT_THAT(desktop.sounds(), ElementsAre("Frog"));
}

TEST_F(ServicesTest, APersonsPanelIsOursWhereTheDesktopHasNone) {
    QWidget window;
    FileHabits habits;
    FilePanels panels(habits);
    const auto openPanel = [&]() -> const QFileDialog& {
        panels.begin(SavePanel{.suggestedName = "warm", .extension = "aco", .title = "Save list 1"}, &window,
                     [](auto) {});
        return *panels.current();
    };
    EXPECT_TRUE(openPanel().testOption(QFileDialog::DontUseNativeDialog)) << "a script types into its fields";
    panels.beNative();
    const QFileDialog& persons = openPanel();
    EXPECT_FALSE(persons.testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_NE(persons.findChild<QLineEdit*>("fileNameEdit"), nullptr);
    EXPECT_EQ(persons.defaultSuffix(), "") << "ours puts the extension in place itself";
    EXPECT_EQ(persons.windowModality(), Qt::WindowModal) << "a sheet";
    EXPECT_EQ(persons.windowTitle(), "Save list 1");
}

TEST_F(ServicesTest, TheClockShowsLocalTime) {
    QtDesktop desktop{settings()};
    std::tm told = desktop.localTime();
    EXPECT_NEAR(double(std::mktime(&told)), double(std::time(nullptr)), 2);
    EXPECT_FALSE(desktop.userName().empty());
}

class PageSetupTest : public ServicesTest {
  protected:
    QtDesktop desktop{settings()};
    Outlet<Window> window;
    std::unique_ptr<Form> form;
    QDialog* sheet = nullptr;

    void SetUp() override {
        writeDialog("dialog", "");
        FormOwner owner;
        owner.outlets = {{"window", &window}};
        form = desktop.loadForm("dialog", owner);
        open();
        ASSERT_NE(sheet, nullptr);
    }
    void open() {
        delete sheet;
        desktop.runPageLayout(*window);
        sheet = desktop.widget("window")->findChild<QDialog*>("qt_pageSetup");
    }
    void press(QDialogButtonBox::StandardButton button) {
        sheet->findChild<QDialogButtonBox*>()->button(button)->click();
    }
};

TEST_F(PageSetupTest, TheSheetEditsTheSharedSettings) {
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    const auto boxes = sheet->findChildren<QComboBox*>();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes[0]->currentData().toSizeF(), QSizeF(612, 792)); // Letter, as the settings say
    boxes[0]->setCurrentIndex(boxes[0]->findData(QSizeF(595, 842)));
    boxes[1]->setCurrentIndex(1);
    sheet->findChild<QDoubleSpinBox*>("left")->setValue(10.5);
    press(QDialogButtonBox::Ok);
    const PrintInfo& info = desktop.sharedPrintInfo();
    EXPECT_EQ(info.paper, (Size{842, 595}));
    EXPECT_EQ(info.left, 10.5);
    EXPECT_EQ(info.right, 36);
    EXPECT_EQ(info.scale, 1);
}

TEST_F(PageSetupTest, APaperThatNobodyChangedIsKept) {
    press(QDialogButtonBox::Cancel);
    const Size papers[] = {{842, 2000}, {2000, 842}, {842, 1190.5}, {595, 842}, {300.5, 200}, {500, 842}};
    for (const Size& paper : papers) {
        desktop.sharedPrintInfo().paper = paper;
        open();
        press(QDialogButtonBox::Ok);
        EXPECT_EQ(desktop.sharedPrintInfo().paper, paper);
    }
}

TEST_F(PageSetupTest, ACancelledSheetChangesNothing) {
    sheet->findChild<QDoubleSpinBox*>("top")->setValue(1);
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(desktop.sharedPrintInfo().top, 36);
}

/// No application stands around these.
class ToolkitLife : public testing::Test, Offscreen {};

TEST_F(ToolkitLife, AnApplicationIsMadeForAPickAndGoesWithIt) {
    for (int pick = 0; pick < 3; ++pick) {
        {
            const ApplicationGuard guard;
            EXPECT_TRUE(guard.owns());
            EXPECT_NE(qApp, nullptr);
            EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
            const ApplicationGuard inner; // a host with an application of its own
            EXPECT_FALSE(inner.owns());
        }
        EXPECT_EQ(QCoreApplication::instance(), nullptr);
    }
}

/// What the guard left with the host for the end of its run.
void (*putAway)() = nullptr;
void keepPutAway(void (*function)()) {
    putAway = function;
}

TEST_F(ToolkitLife, AnApplicationIsKeptForTheNextPickWhereTheHostTellsTheEndOfItsRun) {
    std::set<QCoreApplication*> applications;
    for (int pick = 0; pick < 3; ++pick) {
        {
            const ApplicationGuard guard(keepPutAway);
            EXPECT_TRUE(guard.owns());
            applications.insert(qApp);
            const ApplicationGuard inner(keepPutAway);
            EXPECT_FALSE(inner.owns());
        }
        EXPECT_EQ(applications, std::set{QCoreApplication::instance()});
    }
    ASSERT_NE(putAway, nullptr);
    putAway();
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    putAway();
    { const ApplicationGuard guard; }
    EXPECT_EQ(QCoreApplication::instance(), nullptr) << "a host that tells no end";
}

TEST_F(ToolkitLife, EveryPickRunsInTheSameLocaleAndLeavesTheHostsBehind) {
    setenv("LC_ALL", "C.UTF-8", 1);
    std::setlocale(LC_ALL, "C");
    std::set<std::string> during;
    for (int pick = 0; pick < 3; ++pick) {
        {
            const ApplicationGuard guard(keepPutAway);
            during.insert(std::setlocale(LC_ALL, nullptr));
        }
        EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    }
    EXPECT_EQ(during.size(), 1u);
    putAway();
}

TEST_F(ToolkitLife, NoPictureOfAPickIsLeftAndAHostsOwnAre) {
    for (auto* const atEnd : {keepPutAway, static_cast<decltype(&keepPutAway)>(nullptr)}) {
        {
            const ApplicationGuard guard(atEnd);
            QPixmap picture(4, 4);
            picture.fill(Qt::red);
            EXPECT_FALSE(QPixmapCache::insert("a picture", picture));
        }
        const ApplicationGuard next;
        QPixmap found;
        EXPECT_FALSE(QPixmapCache::find("a picture", &found)) << (atEnd ? "kept" : "ended");
    }
    putAway();
    int count = 0;
    const QApplication hosts(count, nullptr);
    EXPECT_TRUE(QPixmapCache::insert("a picture", QPixmap(4, 4)));
}

TEST_F(ToolkitLife, WhatAPickLeavesOpenOrDyingIsGoneBeforeTheNext) {
    QPointer<QObject> dying;
    {
        const ApplicationGuard guard(keepPutAway);
        (new QWidget)->show();
        dying = new QObject;
        dying->deleteLater();
    }
    EXPECT_FALSE(dying);
    ASSERT_EQ(QApplication::topLevelWidgets().size(), 1);
    EXPECT_FALSE(QApplication::topLevelWidgets().front()->isVisible());
    delete QApplication::topLevelWidgets().front();
    putAway();
}

void ownHandler(QtMsgType, const QMessageLogContext&, const QString&) {}

TEST_F(ToolkitLife, BetweenPicksTheToolkitsMessagesAreTheHosts) {
    qInstallMessageHandler(ownHandler);
    for (int pick = 0; pick < 2; ++pick) {
        { const ApplicationGuard guard(keepPutAway); }
        EXPECT_EQ(qInstallMessageHandler(ownHandler), ownHandler);
    }
    qInstallMessageHandler(nullptr);
    putAway();
}

TEST_F(ToolkitLife, NumbersAreReadAsBefore) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    {
        const ApplicationGuard guard;
        EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), before);
    }
    EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), before);
}

TEST_F(ToolkitLife, EveryCategoryOfTheLocaleIsAsBefore) {
    const int categories[] = {LC_COLLATE, LC_CTYPE, LC_MESSAGES, LC_MONETARY, LC_NUMERIC, LC_TIME};
    setenv("LC_ALL", "C.UTF-8", 1); // what the toolkit sets
    std::setlocale(LC_ALL, "C");
    { const ApplicationGuard guard; }
    for (const int category : categories)
        EXPECT_STREQ(std::setlocale(category, nullptr), "C") << category;
    for (const int changed : categories) {
        std::setlocale(LC_ALL, "C");
        ASSERT_NE(std::setlocale(changed, "C.UTF-8"), nullptr);
        { const ApplicationGuard guard; }
        for (const int category : categories)
            EXPECT_STREQ(std::setlocale(category, nullptr), category == changed ? "C.UTF-8" : "C")
                << category;
    }
}

TEST_F(ToolkitLife, WithoutAScreenTheToolkitIsNotTried) {
    EXPECT_TRUE(DisplayProbe().available()); // the platform without a screen
    const std::string platform = getenv("QT_QPA_PLATFORM");
    const char* display = getenv("DISPLAY");
    const std::string kept = display ? display : "";
    for (const char* asked : {"xcb", "wayland", ""}) {
        setenv("QT_QPA_PLATFORM", asked, 1);
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        EXPECT_FALSE(DisplayProbe().available()) << asked;
        setenv("DISPLAY", ":4711", 1); // nobody is there
        EXPECT_FALSE(DisplayProbe().available()) << asked;
    }
    setenv("QT_QPA_PLATFORM", platform.c_str(), 1);
    if (display)
        setenv("DISPLAY", kept.c_str(), 1);
    else
        unsetenv("DISPLAY");
}

} // namespace
