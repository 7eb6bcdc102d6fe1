// What lists ask of the toolkit: names edited in place, drags that scroll, files that are dropped, menus that
// are made when they open, and what is remembered from pick to pick.
#include "qt/dialog_fixture.h"

#include "qt/controls/list_scroll_area.h"
#include "qt/name_editor.h"
#include "qt/panels/file_habits.h"
#include "qt/search_habits.h"
#include "qt/settings_file.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QJsonArray>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>

#include <filesystem>
#include <fstream>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ListWorkTest : public WholeDialogTest {
  protected:
    void SetUp() override {
        for (int i = 0; i < 100; ++i)
            record->swatchList1[i].SRed = 600 * i;
        makeDialog();
        list().setNumberOfColors(100);
        list().setScrollSize();
        window().show();
        QApplication::setActiveWindow(&window());
    }
    CSwatchList& list() { return controler->panels().one.view; }
    QDialog& window() { return *qobject_cast<QDialog*>(desktop.widget("chromalogWindow")); }
    ViewWidget& widget() { return *qobject_cast<ViewWidget*>(desktop.widget("swatch1")); }
    std::string name(int row) { return std::string(nameBytes(record->swatchList1[row])); }

    void mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QMouseEvent event(type, at, widget().mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, held);
        QApplication::sendEvent(&widget(), &event);
    }
    void clickOn(int row, Qt::KeyboardModifiers held = Qt::NoModifier) {
        const QPointF at(30, 22 * row + 14);
        mouse(QEvent::MouseButtonPress, at, held);
        mouse(QEvent::MouseButtonRelease, at, held);
    }
    NameEditor* editor() { return NameEditor::of(widget()); }
};

TEST_F(ListWorkTest, PressesTellWhichKeysAreHeld) {
    clickOn(1);
    clickOn(3, Qt::ShiftModifier);
    clickOn(6, Qt::ControlModifier);
    EXPECT_THAT(controler->panels().rows(list()).selection().rows(), ElementsAre(1, 2, 3, 6));
    QTest::keyClick(&widget(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(controler->panels().rows(list()).selection().rows().size(), 100u);
}

TEST_F(ListWorkTest, ADoubleClickIsTwoPressesAndAnEdit) {
    clickOn(2);
    const auto at = QPointF(30, 22 * 2 + 14);
    mouse(QEvent::MouseButtonDblClick, at);
    EXPECT_EQ(list().getSelected(), 2);
    EXPECT_EQ(editor(), nullptr) << "a drag may follow";
    mouse(QEvent::MouseButtonRelease, at);
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(editor()->geometry().intersects(QRect(45, 22 * 2 + 5, 60, 16)));
    QTest::keyClicks(editor(), "Ember");
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_EQ(name(2), "Ember");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(widget().hasFocus());
    EXPECT_TRUE(window().isVisible()) << "Return pressed no button";
}

TEST_F(ListWorkTest, EscapeDropsTheEditAndLeavesTheDialogOpen) {
    clickOn(2);
    QTest::keyClick(&widget(), Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    QTest::keyClicks(editor(), "Ember");
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_EQ(name(2), "");
    EXPECT_TRUE(window().isVisible());
}

TEST_F(ListWorkTest, LeavingTheEditEntersItOnce) {
    clickOn(2);
    QTest::keyClick(&widget(), Qt::Key_F2);
    QTest::keyClicks(editor(), "Coal");
    const int before = controler->history().undoSteps();
    desktop.widget("findColor1")->setFocus();
    EXPECT_EQ(name(2), "Coal");
    EXPECT_EQ(controler->history().undoSteps(), before + 1);
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(ListWorkTest, AnotherWindowOnlyBorrowsTheFocusOfAnEdit) {
    clickOn(2);
    QTest::keyClick(&widget(), Qt::Key_F2);
    QTest::keyClicks(editor(), "Coal");
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(editor(), &away);
    EXPECT_NE(editor(), nullptr);
    EXPECT_EQ(name(2), "");
}

TEST_F(ListWorkTest, LettersThatCannotBeKeptAreMarked) {
    clickOn(0);
    QTest::keyClick(&widget(), Qt::Key_F2);
    const auto redPixels = [this] {
        const QImage picture = editor()->grab().toImage();
        int red = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor c = picture.pixelColor(x, y);
                red += c.red() > 180 && c.green() < 90 && c.blue() < 90;
            }
        return red;
    };
    editor()->setText("Cafe");
    EXPECT_EQ(editor()->accessibleDescription(), "");
    EXPECT_EQ(redPixels(), 0);
    editor()->setText(QString::fromUtf8("Café ✓"));
    EXPECT_EQ(editor()->accessibleDescription(), "Kept as: Cafe ?");
    EXPECT_GT(redPixels(), 5);
    EXPECT_EQ(editor()->maxLength(), 255);
}

TEST_F(ListWorkTest, ADragNearAnEdgeScrollsAndTheLineFollows) {
    QMimeData colour;
    colour.setColorData(QColor(1, 200, 250));
    auto& bar = *qobject_cast<ListScrollArea*>(desktop.widget("swatch1Scroller"))->verticalScrollBar();
    const int clip = widget().parentWidget()->height();
    const QPoint edge(30, clip - 3);
    QDragEnterEvent enter(edge, Qt::CopyAction, &colour, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDragMoveEvent move(edge, Qt::CopyAction, &colour, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget(), &move);
    const ListMarks& marks = controler->panels().rows(list()).marks();
    const auto before = marks.gap();
    ASSERT_TRUE(before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() > 66; }));
    EXPECT_GT(*marks.gap(), *before) << "under a pointer that rests";
    QDragLeaveEvent leave;
    QApplication::sendEvent(&widget(), &leave);
    EXPECT_EQ(marks.gap(), std::nullopt);
    const int stopped = bar.value();
    QTest::qWait(100);
    EXPECT_EQ(bar.value(), stopped);
}

TEST_F(ListWorkTest, AnyFileOfThisMachineIsTakenWhereNoColourIsOffered) {
    const auto enters = [this](const QMimeData& data) {
        QDragEnterEvent enter({30, 30}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget(), &enter);
        return enter.isAccepted();
    };
    QMimeData file, remote, other, both;
    file.setUrls({QUrl("https://example.org/a.aco"), QUrl::fromLocalFile("/tmp/none.ACO")});
    remote.setUrls({QUrl("https://example.org/a.aco")});
    other.setUrls({QUrl::fromLocalFile("/tmp/picture.png")});
    both.setUrls({QUrl::fromLocalFile("/tmp/none.aco")});
    both.setColorData(QColor(10, 20, 250));
    EXPECT_TRUE(enters(file));
    EXPECT_FALSE(enters(remote));
    EXPECT_TRUE(enters(other)) << "what is no palette is named once it is dropped";
    ASSERT_TRUE(enters(both));
    QDropEvent drop({30, 30}, Qt::CopyAction, &both, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget(), &drop);
    ASSERT_EQ(list().getNumberOfColors(), 101) << "a colour drop";
    EXPECT_EQ(controler->history().manager()->undoNames().back(), "!Swatch Color deleted!");
}

/// Runs `look` while the menu that `open` opens stands.
template <typename Open, typename Look> void whileOpen(Open open, Look look) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        look(*menu);
        seen = true;
        menu->close();
    });
    open();
    EXPECT_TRUE(seen);
}

QStringList actionsOf(const QMenu& menu) {
    QStringList names;
    for (const QAction* item : menu.actions())
        names.append(item->property("action").toString());
    return names;
}

TEST_F(ListWorkTest, TheContextMenuHasFurtherItemsWhileItIsOpen) {
    auto* menu = window().findChild<QMenu*>("swatchContextMenu");
    const auto own = menu->actions().size();
    for (int time = 0; time < 2; ++time) {
        whileOpen(
            [this] {
                list().rightMouseDown({{30, 14}});
            },
            [&](const QMenu& open) {
                EXPECT_EQ(&open, menu);
                EXPECT_THAT(actionsOf(open), testing::Contains(QString("copyAcross:")));
                EXPECT_GT(open.actions().size(), own);
            });
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(menu->actions().size(), own) << "none stays, and none comes twice";
    }
}

TEST_F(ListWorkTest, ASearchFieldKeepsItsOwnMenuAboveTheChoices) {
    QWidget& field = *desktop.widget("findColor1");
    whileOpen(
        [&] {
            QContextMenuEvent ask(QContextMenuEvent::Mouse, {5, 5}, field.mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(&field, &ask);
        },
        [](const QMenu& open) {
            EXPECT_GT(open.actions().size(), 8);
            const auto items = open.actions();
            EXPECT_EQ(items.back()->property("action").toString(), "findLands:");
            EXPECT_FALSE(items.back()->isChecked()) << "nobody has chosen";
        });
}

class FileHabitsTest : public DesktopTest {
  protected:
    const std::string path = folder / "settings.json";
    FileHabits opened() const {
        FileHabits habits;
        habits.rememberIn(path);
        return habits;
    }
    void write(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
};

TEST_F(FileHabitsTest, TheLatestFilesComeBackEachOnce) {
    FileHabits habits = opened();
    for (int i = 0; i < 10; ++i)
        habits.loaded("/p/" + std::to_string(i) + ".aco");
    habits.loaded("/p/5.aco");
    habits.forget("/p/9.aco");
    EXPECT_THAT(opened().recent(), ElementsAre("/p/5.aco", "/p/8.aco", "/p/7.aco", "/p/6.aco", "/p/4.aco",
                                               "/p/3.aco", "/p/2.aco"));
}

TEST_F(FileHabitsTest, EachKindOfPanelHasItsFolder) {
    const QString place = QString::fromStdString(folder.path());
    FileHabits habits = opened();
    habits.usedFolder("aco", place);
    habits.usedFolder("acb", "/a folder that is gone");
    EXPECT_EQ(opened().folderOf("aco"), place);
    EXPECT_EQ(opened().folderOf("acb"), "");
    EXPECT_EQ(opened().folderOf("pdf"), "");
}

TEST_F(FileHabitsTest, APanelOpensInTheFolderThatWasUsedLast) {
    QtDesktop desktop{settings()};
    const auto form = desktop.loadForm("chromalogWindow", {});
    Outlet<Window> none;
    const auto folderOfAPanel = [&] {
        desktop.beginOpenPanel({{"aco", "ACO"}}, *none, [](auto) {});
        return desktop.panels().current()->directory().absolutePath();
    };
    std::filesystem::create_directory(folder / "palettes");
    const QString palettes = QString::fromStdString(folder / "palettes");
    EXPECT_NE(folderOfAPanel(), palettes);
    opened().usedFolder("aco", palettes);
    EXPECT_NE(folderOfAPanel(), palettes) << "not of a script";
    desktop.rememberFiles(path);
    EXPECT_EQ(folderOfAPanel(), palettes);
}

TEST_F(FileHabitsTest, WithoutAFileTheyLastAsLongAsThePick) {
    FileHabits habits;
    habits.loaded("/p/a.aco");
    habits.usedFolder("aco", "/");
    EXPECT_THAT(habits.recent(), ElementsAre("/p/a.aco"));
    EXPECT_EQ(habits.folderOf("aco"), "") << "panels open as ever";
    EXPECT_FALSE(std::ifstream(path).is_open());
}

TEST_F(FileHabitsTest, WhateverTheFileHoldsHurtsNothing) {
    for (const char* text : {"", "[]", "{\"recentFiles\": 3, \"folders\": [1]}",
                             "{\"recentFiles\": [1, null, {}, \"not/absolute\", \"/p/a.aco\"]}"}) {
        write(text);
        EXPECT_LE(opened().recent().size(), 1u);
    }
    std::string many = "{\"recentFiles\": [\"/0\"";
    for (int i = 1; i < 400; ++i)
        many += ", \"/" + std::to_string(i) + '"';
    write(many + "]}");
    EXPECT_EQ(opened().recent().size(), 8u);
}

TEST_F(FileHabitsTest, ChoicesForSearchesAreAPersons) {
    QtDesktop desktop{settings()};
    auto record = std::make_unique<GlobalRecord>();
    PickerRecord picker{};
    record->pickerRecord = &picker;
    {
        ChromalogControler controler(*record, desktop);
        EXPECT_EQ(controler.panels().search.options(), SearchOptions()) << "the search as it is by itself";
    }
    const auto person = [&](auto act) {
        ChromalogControler controler(*record, desktop);
        keepSearchHabits(controler.panels().search, path);
        act(controler.panels().search);
    };
    person([](SearchKnobs& search) {
        SearchOptions options = search.options();
        EXPECT_TRUE(options.landing);
        EXPECT_FALSE(options.findsMore());
        options.hex = true;
        options.landing = false;
        search.choose(options);
    });
    person([](SearchKnobs& search) {
        EXPECT_TRUE(search.options().hex);
        EXPECT_FALSE(search.options().landing);
    });
    write("{\"search\": {\"hex\": \"yes\", \"lands\": 0, \"anyCase\": true}}");
    person([](SearchKnobs& search) {
        EXPECT_FALSE(search.options().hex);
        EXPECT_TRUE(search.options().landing);
        EXPECT_TRUE(search.options().ignoreCase);
    });
}

} // namespace
