// One allocation of our own after the other fails while a person works in the real dialog.
#include "support/swatch_files.h" // before the toolkit, which takes the word "slots" for its own

#include "dialog/pick_fixture.h"
#include "drive/hand_over.h"
#include "qt/application_guard.h"
#include "qt/qt_desktop.h"
#include "qt/view_widget.h"
#include "support/failing_new.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace chromalog::test {
namespace {

#if defined(__SANITIZE_ADDRESS__)
/// Where memory runs out inside the toolkit's forms and file panels they lose what they had begun.
[[maybe_unused]] const bool kLeaksNotCounted = (__lsan_disable(), true);
#endif

using Lists = std::array<std::vector<std::string>, 2>;

class OutOfMemoryDialog : public PickTest {
  public:
    std::unique_ptr<Desktop> makeDesktop(const StandaloneSuite*) override {
        if (opening) opening();
        QtDesktopSettings settings;
        settings.dataDirectory = applications.string();
        auto made = std::make_unique<QtDesktop>(settings);
        desktop = made.get();
        return made;
    }
    void dialogReady(Desktop&, ChromalogControler& controler) override {
        dialog = &controler;
        QTimer::singleShot(0, desktop->widget("chromalogWindow"), [this] {
            if (opened) opened();
            click("okPressed:");
        });
    }
    void log(std::string_view line) override { lines.emplace_back(line); }

  protected:
    void SetUp() override {
        PickTest::SetUp();
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        setenv("XDG_CONFIG_HOME", files.path().c_str(), 1);
        application.emplace();
        FileBuilder file;
        file.header(2, 4);
        for (const char* name : {"wheat", "a longer name than fits into a short text", "rye", "barley"})
            file.colour(0, 10'000 * name[0] % 65'535, 300 * name[1], 500).name(name);
        std::ofstream(swatchFile.toStdString(), std::ios::binary)
            .write(reinterpret_cast<const char*>(file.bytes.data()),
                   static_cast<std::streamsize>(file.bytes.size()));
    }

    // What is done while memory fails needs none of this program's own.
    void click(const char* action) {
        for (QObject* sender : widget("chromalogWindow").findChildren<QObject*>()) {
            if (sender->property("action").toString() != QLatin1String(action)) continue;
            if (auto* button = qobject_cast<QAbstractButton*>(sender)) return button->click();
            if (auto* item = qobject_cast<QAction*>(sender)) return item->trigger();
        }
        ADD_FAILURE() << "nothing sends " << action;
    }
    void answerPanel() {
        QFileDialog* panel = desktop->panels().current();
        if (!panel) return; // it could not be opened
        panel->findChild<QLineEdit*>("fileNameEdit")->setText(swatchFile);
        static_cast<QDialog*>(panel)->accept();
    }
    QWidget& widget(const char* outlet) { return *desktop->widget(outlet); }

    Lists lists() const {
        Lists told;
        for (int number : {1, 2})
            for (const FCOStruct& swatch :
                 dialog->panels().both()[static_cast<std::size_t>(number - 1)]->view.shownRecords())
                told[number - 1].push_back(std::string(nameBytes(swatch)) + ' ' +
                                           std::to_string(swatch.SRed) + ' ' + std::to_string(swatch.SGreen));
        return told;
    }
    /// Lists as they were, for the next try; the history stays.
    void restore(const GlobalRecord& record, const std::array<std::int16_t, 2>& counts) {
        std::memcpy(static_cast<void*>(&dialog->record()), &record, sizeof record);
        for (int number : {1, 2}) {
            dialog->panels().both()[static_cast<std::size_t>(number - 1)]->view.setNumberOfColors(
                counts[number - 1]);
            dialog->panels().both()[static_cast<std::size_t>(number - 1)]->view.setSelectedColor(1);
        }
    }

    /// The work with each of its allocations failing once.
    void sweep(const char* what, const std::function<void()>& prepareWork,
               const std::function<void()>& work) {
        const auto start = std::make_unique<GlobalRecord>(dialog->record());
        const std::array counts{dialog->panels().one.view.getNumberOfColors(),
                                dialog->panels().two.view.getNumberOfColors()};
        if (prepareWork) prepareWork();
        const Lists before = lists();
        work();
        const Lists complete = lists();
        for (long n = 1; !HasFailure(); ++n) {
            restore(*start, counts);
            if (prepareWork) prepareWork();
            FailingNew failing(n, FailingNew::Of::ownCode);
            work();
            const bool failed = failing.stop();
            EXPECT_TRUE(lists() == before || lists() == complete) << what << ", allocation " << n;
            EXPECT_EQ(desktop->modalLoops().depth(), 1U) << what << ", allocation " << n;
            if (!failed) break;
            ++failures;
        }
        restore(*start, counts);
    }

    TemporaryFolder files;
    const QString swatchFile = QString::fromStdString(files / "four.aco");
    std::optional<ApplicationGuard> application;
    std::function<void()> opening, opened;
    QtDesktop* desktop = nullptr;
    ChromalogControler* dialog = nullptr;
    std::vector<std::string> lines;
    int failures = 0;
};

TEST_F(OutOfMemoryDialog, LivesOnAndItsListsAreWholeWhateverFails) {
    opened = [this] {
        click("loadSwatch1:");
        answerPanel();
        ASSERT_EQ(lists()[0].size(), 4u);
        for (const char* action : {"sortAlpha1:", "sortHue1:", "killSwatch1:", "deleteSwatch1:",
                                   "writeToSwatch:", "editSwatch:", "complementOn:", "triComplementOn:"})
            sweep(action, nullptr, [&] { click(action); });
        sweep(
            "load", [&] { click("loadSwatch2:"); }, [&] { answerPanel(); });
        sweep("opening a panel", nullptr, [&] { click("loadSwatch1:"); });
        sweep(
            "undo", [&] { click("sortAlpha1:"); }, [&] { click("doUndo:"); });
        sweep("delete key", nullptr, [&] { QTest::keyClick(&widget("swatch1"), Qt::Key_Delete); });
        sweep("row", nullptr, [&] { QTest::mouseClick(&widget("swatch1"), Qt::LeftButton, {}, {20, 30}); });
        sweep("wheel", nullptr, [&] {
            QTest::mouseClick(&widget("chromaView"), Qt::LeftButton, {}, {120, 90});
        });
        sweep("search", nullptr, [&] {
            widget("findColor1").setFocus();
            QTest::keyClick(&widget("findColor1"), Qt::Key_E);
            QTest::keyClick(&widget("findColor1"), Qt::Key_Return);
        });
        sweep("drop", nullptr, [&] {
            QMimeData data;
            data.setColorData(QColor::fromRgba64(100, 65'000, 30'000));
            data.setText("a dropped text that needs memory of its own");
            drive::offer(data, {&widget("swatch1"), {20, 30}});
        });
        sweep("paint", nullptr, [&] { widget("chromalogWindow").grab(); });
    };
    pick();
    EXPECT_GT(failures, 40);
    EXPECT_EQ(result, 0) << "the dialog was left by OK";
    EXPECT_EQ(record.pickParms.colorComponents[3], 0);
    EXPECT_EQ(globals().numColors1, 4);
    EXPECT_EQ(unlocks, 1);
}

TEST_F(OutOfMemoryDialog, ThatCannotOpenReportsIt) {
    for (long n = 1;; n += 1 + n / 50) {
        unlocks = acquired = released = 0;
        std::optional<FailingNew> failing;
        opening = [&] { failing.emplace(n, FailingNew::Of::ownCode); };
        bool wordless = false; // no words of the history are worth a pick
        opened = [&] {
            failing->stop();
            for (const QWidget* widget : QApplication::allWidgets())
                if (widget->objectName() == "historySteps")
                    wordless = dynamic_cast<const QListWidget&>(*widget).count() == 0;
        };
        result = 7;
        pick();
        const bool failed = failing->stop();
        failures += failed;
        EXPECT_EQ(result, failed && !wordless ? -108 : 0) << "allocation " << n;
        EXPECT_EQ(unlocks, data ? 1 : 0);
        EXPECT_EQ(acquired, released);
        EXPECT_EQ(gChromalogControler, nullptr);
        if (!failed || HasFailure()) break;
    }
    EXPECT_GT(failures, 20);
}

} // namespace
} // namespace chromalog::test
