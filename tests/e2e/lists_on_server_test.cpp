// Work in the lists on a real X server, under a real pointer and keyboard: each story does what a person does
// and waits for what that person sees.
#include "e2e/dialog_on_server.h"
#include "support/run_program.h"

#include "qt/controls/list_scroll_area.h"
#include "qt/name_editor.h"

#include <QDrag>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>

#include <functional>
#include <vector>

namespace chromalog::test {
namespace {

using testing::ElementsAre;

/// Another program's file, as far as the window system knows.
class FileWindow : public QWidget {
  public:
    explicit FileWindow(const std::string& path) : path_(QString::fromStdString(path)) { resize(80, 80); }

  protected:
    void mouseMoveEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(path_)});
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    }

  private:
    const QString path_;
};

class ListsOnServer : protected DialogOnServer, public testing::Test {
  protected:
    ListsOnServer() : DialogOnServer("1") {}

    void SetUp() override {
        if (!server.runs() || runProgram({"sh", "-c", "command -v xdotool"}).exitCode != 0)
            GTEST_SKIP() << "needs Xvfb and xdotool";
        ASSERT_TRUE(open());
        perform("dropfile swatch1 30 30 '" + folder / "swatches.aco'");
        ASSERT_EQ(one().getNumberOfColors(), 40);
    }

    CSwatchList& one() { return controler->panels().one.view; }
    CSwatchList& two() { return controler->panels().two.view; }
    const RowGestures& rows(CSwatchList& list) { return controler->panels().rows(list); }
    std::vector<std::string> undoNames() { return controler->history().manager()->undoNames(); }
    static std::vector<std::string> names(const CSwatchList& list) {
        std::vector<std::string> all;
        for (const FCOStruct& record : list.shownRecords())
            all.emplace_back(nameBytes(record));
        return all;
    }

    QPoint onScreen(const char* outlet, QPoint at) const { return desktop->widget(outlet)->mapToGlobal(at); }
    QPoint row(const char* list, int row) const { return onScreen(list, {60, 22 * row + 14}); }

    static void tool(std::vector<std::string> words) {
        words.insert(words.begin(), "xdotool");
        const auto done = runProgram(words);
        ASSERT_EQ(done.exitCode, 0) << done.err;
    }
    static std::vector<std::string> to(QPoint p) {
        return {"mousemove", std::to_string(p.x()), std::to_string(p.y())};
    }
    static void moveTo(QPoint p) { tool(to(p)); }
    static void clickAt(QPoint p) {
        moveTo(p);
        tool({"click", "1"});
    }
    template <typename Condition> static void until(Condition condition) {
        ASSERT_TRUE(QTest::qWaitFor(condition));
    }

    /// What a person does while a loop of the toolkit runs, each as soon as they see what they wait for.
    struct Step {
        std::function<bool()> seen;
        std::vector<std::string> words;
    };
    void during(std::vector<Step> steps, const std::function<void()>& begin,
                const std::function<bool()>& done) {
        std::size_t next = 0;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (next < steps.size() && steps[next].seen()) tool(steps[next++].words);
        });
        poll.start(5);
        begin();
        EXPECT_TRUE(QTest::qWaitFor([&] { return next == steps.size() && done(); }))
            << "step " << next << " of " << steps.size();
    }

    void dragTo(QPoint from, QPoint target, const std::function<bool()>& over,
                const std::function<bool()>& done) {
        const auto begun = [this] { return QWidget::mouseGrabber() || desktop->drags().last; };
        const auto always = [] { return true; };
        desktop->drags().last.reset();
        during(
            {{always, {"mousedown", "1"}},
             {always, to(from + QPoint(8, 3))},
             {always, to(from + QPoint(16, 6))},
             {begun, to(target - QPoint(3, 0))},
             {always, to(target)},
             {over, {"mouseup", "1"}}},
            [from] { moveTo(from); }, done);
    }
};

TEST_F(ListsOnServer, TenColoursGoAcrossInThreeActionsAndBackInOne) {
    clickAt(row("swatch1", 2));
    until([this] { return one().getSelected() == 2; });
    tool({"keydown", "shift"});
    clickAt(row("swatch1", 11));
    tool({"keyup", "shift"});
    until([this] { return rows(one()).selection().rows().size() == 10; });
    const auto line = [this] { return rows(two()).marks().gap().has_value(); };
    dragTo(row("swatch1", 5), row("swatch2", 3), line, [this] { return two().getNumberOfColors() == 10; });
    EXPECT_EQ(names(two()).front(), names(one())[2]);
    EXPECT_EQ(names(two()).back(), names(one())[11]);
    EXPECT_EQ(rows(two()).marks().landed().size(), 10u) << "seen where they landed";
    EXPECT_EQ(undoNames().back(), "!Swatches copied across!");
    tool({"key", "ctrl+z"});
    until([this] { return two().getNumberOfColors() == 0; });
}

TEST_F(ListsOnServer, ANameIsTypedWhereItStands) {
    moveTo(row("swatch1", 1));
    tool({"click", "--repeat", "2", "--delay", "40", "1"});
    QWidget* list = desktop->widget("swatch1");
    until([list] { return NameEditor::of(*list) && NameEditor::of(*list)->hasFocus(); });
    EXPECT_EQ(one().getSelected(), 1) << "both presses selected the row";
    tool({"type", "--delay", "1", "Ember"});
    until([list] { return NameEditor::of(*list) && NameEditor::of(*list)->text() == "Ember"; });
    tool({"key", "Return"});
    until([this] { return names(one())[1] == "Ember"; });
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(undoNames().back(), "!Swatch renamed!");
}

class FilesOnServer : public ListsOnServer {
  protected:
    /// Drags the file from another window onto list 2; what follows the drop is seen in `done`.
    void dropFile(const std::function<bool()>& done) {
        FileWindow files(folder / "swatches.aco");
        files.move(1700, 100);
        files.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&files));
        const auto target = row("swatch2", 4);
        const auto always = [] { return true; };
        const QPoint from = files.mapToGlobal(QPoint(30, 30));
        bool entered = false;
        struct Watch : QObject {
            bool& entered;
            explicit Watch(bool& e) : entered(e) {}
            bool eventFilter(QObject*, QEvent* e) override {
                return entered |= e->type() == QEvent::DragMove, false;
            }
        } watch(entered);
        desktop->widget("swatch2")->installEventFilter(&watch);
        during(
            {{always, {"mousedown", "1"}},
             {always, to(from + QPoint(20, 5))},
             {always, to(target - QPoint(3, 0))},
             {always, to(target)},
             {[&] { return entered; }, {"mouseup", "1"}}},
            [from] { moveTo(from); }, done);
    }
};

TEST_F(FilesOnServer, AFileFromAnotherWindowLoadsWhereItIsDroppedWithShift) {
    tool({"keydown", "shift"});
    dropFile([this] { return two().getNumberOfColors() == 40; });
    tool({"keyup", "shift"});
    EXPECT_EQ(undoNames(), (std::vector<std::string>{"!Swatch File loaded!", "!Swatch File loaded!"}));
    EXPECT_FALSE(desktop->widget("importWindow"));
}

TEST_F(FilesOnServer, AFileFromAnotherWindowOpensItsImport) {
    const auto button = [this] { return desktop->widget("importAppend"); };
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        if (!button() || !button()->isVisible() || !button()->window()->isActiveWindow()) return;
        press.stop();
        clickAt(button()->mapToGlobal(button()->rect().center()));
    });
    press.start(10);
    dropFile([this] { return two().getNumberOfColors() == 40; });
    EXPECT_EQ(undoNames(), (std::vector<std::string>{"!Swatch File loaded!", "!Import!"}));
}

TEST_F(ListsOnServer, ASearchLandsOnItsHitAndReturnTakesIt) {
    SearchOptions options;
    options.ignoreCase = options.landing = true;
    controler->panels().search.choose(options);
    clickAt(onScreen("findColor1", {20, 10}));
    until([this] { return desktop->widget("findColor1")->hasFocus(); });
    tool({"type", "--delay", "1", "SWATCH 3"});
    until([this] { return one().hits().size() == 11; });
    EXPECT_TRUE(rows(one()).isHit);
    tool({"key", "Up"}); // from the first to the last one
    until([this] { return one().getSelected() == one().hits().back().position; });
    const QRect clip = desktop->widget("swatch1")->visibleRegion().boundingRect();
    const QRect hit(4, 22 * one().getSelected() + 4, 10, 18);
    EXPECT_TRUE(clip.contains(hit)) << clip.top() << ".." << clip.bottom() << ": " << hit.top();
    tool({"key", "Return"});
    const FCOStruct& taken = record->swatchList1[one().getSelected()];
    until([&] { return std::abs(controler->colours().getFirstColor().red() - taken.SRed / 65535.0) < 1e-6; });
}

TEST_F(ListsOnServer, AMenuSortsByBrightness) {
    const auto popUp = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const auto open = [popUp] { return popUp() && popUp()->isVisible(); };
    const auto inner = [popUp] {
        return popUp() && popUp()->actions().front()->property("action") == "sortByBrightness:";
    };
    during(
        {{open, {"key", "Up"}}, // its last item: the menu of orders
         {open, {"key", "Right"}},
         {inner, {"key", "Return"}}},
        [this] {
            moveTo(row("swatch1", 0));
            tool({"click", "3"});
        },
        [this] { return undoNames().back() == "!Sort Swatch Brightness!"; });
    const ConstListRecords shown = one().shownRecords();
    const auto brightness = [](const FCOStruct& r) { return std::max({r.SRed, r.SGreen, r.SBlue}); };
    EXPECT_TRUE(std::ranges::is_sorted(shown, {}, brightness));
}

} // namespace
} // namespace chromalog::test
