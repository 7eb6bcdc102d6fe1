// Completions of typed paths come when their folder has been read; by then their panel may ask something.
#include "qt/desktop_fixture.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

#include <fstream>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class CompletionsTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    DialogWindow dialog;
    QDialog panel{&dialog};
    QLineEdit field{&panel};
    QFileSystemModel files;
    QCompleter* completer = new QCompleter(&field);
    QSignalSpy loaded{&files, &QFileSystemModel::directoryLoaded};

    void SetUp() override {
        std::ofstream(folder / "swatches.aco") << 1;
        files.setRootPath("/");
        completer->setModel(&files);
        field.setCompleter(completer);
        dialog.show();
        panel.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
        field.setFocus();
    }
    /// Up to where the folder is to be read, its parents are by then.
    void type() {
        const QFileInfo path(QString::fromStdString(folder.path()));
        QTest::keyClicks(&field, path.path());
        QTest::keyClick(&field, Qt::Key_Slash);
        ASSERT_TRUE(isRead(path.path()));
        QTest::keyClicks(&field, path.fileName());
        QTest::keyClicks(&field, "/swa"); // no event comes between
        ASSERT_FALSE(completer->popup()->isVisible());
    }
    bool isRead(const QString& path) {
        return QTest::qWaitFor([&] { return loaded.contains(QVariantList{path}); });
    }
    bool folderIsRead() { return isRead(QString::fromStdString(folder.path())); }
    bool show() {
        return QTest::qWaitFor([this] { return completer->popup()->isVisible(); }, 1000);
    }
};

TEST_F(CompletionsTest, ComeLate) {
    type();
    EXPECT_TRUE(show());
}

TEST_F(CompletionsTest, DoNotComeOverAQuestionAndComeBackAfterIt) {
    type();
    QMessageBox question(QMessageBox::Question, {}, "Replace it?", QMessageBox::Yes, &panel);
    question.open();
    ASSERT_TRUE(folderIsRead());
    QTest::qWait(0);
    EXPECT_FALSE(completer->popup()->isVisible());
    question.close();
    panel.activateWindow(); // there is no window manager
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    QTest::keyClick(&field, Qt::Key_T);
    EXPECT_TRUE(show());
}

TEST_F(CompletionsTest, LeaveReturnToThePanelUnlessOneIsChosen) {
    QPushButton use("Use", &panel);
    use.setDefault(true);
    use.show();
    QSignalSpy used(&use, &QPushButton::clicked);
    type();
    ASSERT_TRUE(show());
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_EQ(used.count(), 0);
    EXPECT_EQ(field.text().toStdString(), folder / "swatches.aco");

    QTest::keyClick(&field, Qt::Key_Backspace);
    ASSERT_TRUE(show());
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_FALSE(completer->popup()->isVisible());
    EXPECT_EQ(used.count(), 1);
}

} // namespace
