// A name that holds markup, in every place that shows names: it is shown as it stands, and the file that it
// names is never opened.
#include "support/swatch_files.h" // before the toolkit, which takes the word slots

#include "qt/desktop_fixture.h"

#include "abi/picker_record.h"
#include "dialog/chromalog_controler.h"
#include "qt/controls/plain_text.h"
#include "qt/convert.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPrintDialog>
#include <QPushButton>
#include <QTextDocumentFragment>
#include <QTimer>

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace chromalog;
using namespace chromalog::test;

namespace {

const char* const kName = "<img src=pipe>";
const char* const kFile = "<img src=pipe>.aco";

/// A pipe that stands for the file of an image. Who opens it would wait for ever: this lets go of them, and
/// remembers that they came.
class Pipe {
  public:
    explicit Pipe(std::string path) : path_(std::move(path)) { mkfifo(path_.c_str(), 0600); }
    ~Pipe() {
        done_ = true;
        watch_.join();
    }
    bool wasOpened() const { return opened_; }

  private:
    void watch() {
        while (!done_) {
            const int end = open(path_.c_str(), O_WRONLY | O_NONBLOCK); // succeeds beside a reader alone
            if (end >= 0) {
                opened_ = true;
                close(end);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    std::string path_;
    std::atomic<bool> done_ = false, opened_ = false;
    std::thread watch_{[this] { watch(); }};
};

/// Runs in a folder of its own: the names that the toolkit would open are relative to it.
class ForeignNames : public DesktopTest {
  protected:
    struct InFolder {
        explicit InFolder(const std::string& path) { std::filesystem::current_path(path); }
        ~InFolder() { std::filesystem::current_path(before); }
        std::filesystem::path before = std::filesystem::current_path();
    } inFolder{folder.path()};
    Pipe pipe{folder / "pipe"};
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    PickerRecord picker{};
    QtDesktop desktop{settings()};
    std::unique_ptr<ChromalogControler> controler;

    void SetUp() override {
        record->pickerRecord = &picker;
        FileBuilder swatches;
        swatches.header(2, 1).colour(0, 65535, 0, 0).name(kName);
        std::ofstream(folder / kFile, std::ios::binary)
            .write(reinterpret_cast<const char*>(swatches.bytes.data()),
                   std::streamsize(swatches.bytes.size()));
        controler = std::make_unique<ChromalogControler>(*record, desktop);
        window()->show();
        for (const char* load : {"loadSwatch1:", "loadSwatch2:"}) {
            press(load);
            choose(kFile);
        }
        press("editSwatch:");                                         // its name into the name field
        controler->colours().changeSecondColor(Colour::rgb(1, 0, 0)); // and into the nearest swatch's
    }
    void TearDown() override { EXPECT_FALSE(pipe.wasOpened()); }

    QWidget* window() { return desktop.widget("chromalogWindow"); }
    void press(const char* action) {
        for (QObject* object : window()->findChildren<QObject*>()) {
            if (object->property("action").toString() != action) continue;
            if (auto* button = qobject_cast<QAbstractButton*>(object)) return button->click();
            if (auto* item = qobject_cast<QAction*>(object)) return item->trigger();
        }
        ADD_FAILURE() << "nothing sends " << action;
    }
    void choose(const QString& file) {
        QFileDialog* panel = desktop.panels().current();
        ASSERT_NE(panel, nullptr);
        panel->findChild<QLineEdit*>("fileNameEdit")
            ->setText(QString::fromStdString(folder / file.toStdString()));
        static_cast<QDialog*>(panel)->accept();
    }

    /// What the toolkit would show of a text that it takes for markup where it looks like it.
    static QString asShown(const QString& text) {
        return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    }

    static void expectPlain(QWidget& widget) {
        const std::string name = fromQt(widget.objectName() + ' ' + widget.metaObject()->className());
        if (const auto* label = qobject_cast<QLabel*>(&widget)) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << name;
        }
        EXPECT_FALSE(asShown(widget.toolTip()).contains(QChar::ObjectReplacementCharacter)) << name;
        EXPECT_FALSE(widget.toolTip().contains("<img")) << name;
        EXPECT_FALSE(widget.windowTitle().contains("<img")) << name;
        for (const QAction* action : widget.actions())
            EXPECT_FALSE(action->text().contains("<img") || action->toolTip().contains("<img")) << name;
        const auto* accessible = QAccessible::queryAccessibleInterface(&widget);
        for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
            if (const QString told = accessible->text(kind); told.contains("img")) {
                EXPECT_TRUE(told.contains(kName)) << name << ": " << fromQt(told);
            }
    }

    /// Lays out and paints every window, hidden ones too, and looks at every widget. Returns the labels that
    /// show the name.
    static std::vector<std::string> labelsWithTheName() {
        for (QWidget* window : QApplication::topLevelWidgets())
            window->grab();
        std::vector<std::string> labels;
        for (QWidget* widget : QApplication::allWidgets()) {
            expectPlain(*widget);
            const auto* label = qobject_cast<QLabel*>(widget);
            if (label && label->text().contains(kName)) labels.push_back(fromQt(label->objectName()));
        }
        std::sort(labels.begin(), labels.end());
        return labels;
    }

    /// Runs inside the next modal loop of the toolkit, then dismisses its box.
    template <typename Look> void whileABoxIsOpen(Look look) {
        QTimer::singleShot(0, window(), [this, look] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return whileABoxIsOpen(look);
            look(*box);
            box->reject();
        });
    }
};

using Names = std::vector<std::string>;

TEST_F(ForeignNames, AreShownAsTheyStandInTheDialog) {
    EXPECT_EQ(labelsWithTheName(), (Names{"nearName", "swatch1Name", "swatch2Name"}));
    EXPECT_EQ(qobject_cast<QLineEdit*>(desktop.widget("colorName"))->text(), kName);
    auto* row = QAccessible::queryAccessibleInterface(desktop.widget("swatch1"))->child(0);
    EXPECT_EQ(row->text(QAccessible::Name), kName);
    auto* near = QAccessible::queryAccessibleInterface(desktop.widget("nearName"));
    EXPECT_EQ(near->text(QAccessible::Description), kName);
}

TEST_F(ForeignNames, AreOneLineInTheDialog) {
    auto* label = qobject_cast<QLabel*>(desktop.widget("swatch1Name"));
    const auto shown = [&](const QString& file) {
        std::filesystem::copy_file(kFile, fromQt(file));
        press("loadSwatch1:");
        choose(file);
        EXPECT_EQ(label->text(), file);
        EXPECT_EQ(label->sizeHint().height(),
                  qobject_cast<QLabel*>(desktop.widget("swatch2Name"))->sizeHint().height());
        return label->grab().toImage();
    };
    const QImage oneLine = shown("onetwo.aco");
    for (const char* file : {"one\ntwo.aco", "one\xE2\x80\xA8two.aco", "one\xE2\x80\xA9two\x1B.aco"})
        EXPECT_EQ(shown(QString::fromUtf8(file)), oneLine) << file;
}

TEST_F(ForeignNames, AreShownAsTheyStandInTheHistoryPanel) {
    press("showProtocolWindow");
    ASSERT_TRUE(desktop.widget("protocolWindow")->isVisible());
    labelsWithTheName();
}

TEST_F(ForeignNames, AreShownAsTheyStandInToolTips) {
    auto* near = desktop.widget("nearName");
    EXPECT_EQ(asShown(near->toolTip()), kName);
    QHelpEvent asks(QEvent::ToolTip, QPoint(1, 1), near->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(near, &asks);
    const auto tips = near->findChildren<QLabel*>();
    ASSERT_EQ(tips.size(), 1);
    EXPECT_EQ(asShown(tips.front()->text()), kName);
    tips.front()->grab();
}

TEST_F(ForeignNames, WithoutMarkupAreToolTipsUnchanged) {
    for (const char* name : {"Red & blue", "a < b", "2 > 1", "two\nlines", ""})
        EXPECT_EQ(plainToolTip(name), name);
    for (const char* name : {"<b>x</b>", "&lt;b>", "a <i>b</i>", "<!doctype html>"})
        EXPECT_EQ(asShown(plainToolTip(name)), name);
}

TEST_F(ForeignNames, OfADropByAnotherProgramAreShownAsTheyStand) {
    QMimeData data;
    data.setColorData(QColor(Qt::blue));
    data.setText("another <img src=pipe>");
    ViewWidget& list = *qobject_cast<ViewWidget*>(desktop.widget("swatch1"));
    QDragEnterEvent enters(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&list, &enters);
    QDropEvent drops(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&list, &drops);
    controler->colours().changeSecondColor(Colour::rgb(0, 0, 1));
    EXPECT_EQ(qobject_cast<QLabel*>(desktop.widget("nearName"))->text(), data.text());
    labelsWithTheName();
}

TEST_F(ForeignNames, AreShownAsTheyStandInAlerts) {
    bool open = false;
    whileABoxIsOpen([&](QMessageBox& box) {
        open = true;
        EXPECT_EQ(labelsWithTheName(), (Names{"nearName", "qt_msgbox_informativelabel", "qt_msgbox_label",
                                              "swatch1Name", "swatch2Name"}));
        EXPECT_EQ(box.informativeText(), kName);
    });
    desktop.runAlert({kName, kName, "ok"});
    EXPECT_TRUE(open);
}

TEST_F(ForeignNames, AreShownAsTheyStandInTheSavePanelAndItsQuestion) {
    press("saveSwatch1:");
    labelsWithTheName();
    bool open = false;
    whileABoxIsOpen([&](QMessageBox& box) {
        open = true;
        EXPECT_TRUE(box.text().contains(kFile));
        labelsWithTheName();
    });
    choose(kFile);
    EXPECT_TRUE(open);
}

TEST_F(ForeignNames, AreShownAsTheyStandWhereTheOpenPanelMissesAFile) {
    press("loadSwatch1:");
    bool open = false;
    whileABoxIsOpen([&](QMessageBox& box) {
        open = true;
        EXPECT_TRUE(box.text().contains("<img src=pipe>2"));
        labelsWithTheName();
    });
    desktop.panels().current()->findChild<QLineEdit*>("fileNameEdit")->setText("<img src=pipe>2");
    static_cast<QDialog*>(desktop.panels().current())->accept();
    EXPECT_TRUE(open);
}

TEST_F(ForeignNames, AreShownAsTheyStandInPageSetup) {
    press("setupPrintPage:");
    ASSERT_NE(window()->findChild<QWidget*>("qt_pageSetup"), nullptr);
    labelsWithTheName();
}

TEST_F(ForeignNames, AreShownAsTheyStandWhilePrinting) {
    int steps = 0;
    QTimer::singleShot(0, window(), [&] {
        ++steps; // the print options
        EXPECT_EQ(QApplication::activeModalWidget()->objectName(), "printOptionWindow");
        labelsWithTheName();
        QTimer::singleShot(0, window(), [&] {
            ++steps; // the print dialog; its job goes to a file that exists
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            labelsWithTheName();
            dialog->findChild<QLineEdit*>("filename")->setText(kFile);
            whileABoxIsOpen([&](QMessageBox& box) {
                ++steps;
                EXPECT_TRUE(box.text().contains(kFile));
                labelsWithTheName();
                dialog->reject();
            });
            for (QAbstractButton* button : dialog->findChild<QDialogButtonBox*>()->buttons())
                if (button->text().contains("Print")) button->click();
            dialog->reject();
        });
        desktop.stopModal(1);
    });
    press("printFirstSwatch:");
    EXPECT_EQ(steps, 3);
}

TEST_F(ForeignNames, AreThePrintJobsTitleAsTheyStand) {
    QTimer::singleShot(0, window(), [&] { desktop.stopModal(1); });
    desktop.printJobs().nextPdf = folder / "job.pdf";
    press("printFirstSwatch:");
    QFile job(QString::fromStdString(folder / "job.pdf"));
    ASSERT_TRUE(job.open(QIODevice::ReadOnly));
    QByteArray title; // UTF-16
    for (const char* c = kFile; *c; ++c)
        title.append('\0').append(*c);
    EXPECT_TRUE(job.readAll().contains(title));
}

} // namespace
