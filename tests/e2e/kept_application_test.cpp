// What other programs see of an application that is kept between two picks.
#include "e2e/x_server.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include "qt/application_guard.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QThread>

#include <cstdlib>
#include <gmock/gmock.h>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

namespace chromalog::test {
namespace {

void (*putAway)() = nullptr;
void keepPutAway(void (*function)()) {
    putAway = function;
}

std::set<std::string> environment() {
    std::set<std::string> all;
    for (char** variable = environ; *variable; ++variable)
        all.insert(*variable);
    return all;
}

class KeptApplication : public testing::Test {
  protected:
    void SetUp() override {
        if (!server->runs() || runProgram({"sh", "-c", "command -v xdotool"}).exitCode != 0)
            GTEST_SKIP() << "needs Xvfb and xdotool";
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        setenv("DISPLAY", server->display().c_str(), 1);
        setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        setenv("DESKTOP_STARTUP_ID", "a launcher's", 1);
    }
    void TearDown() override {
        if (putAway) putAway();
    }
    /// How many windows another program sees.
    std::size_t windows() const {
        const auto seen = runProgram({"xdotool", "search", "--onlyvisible", "--name", "a field"});
        return static_cast<std::size_t>(std::ranges::count(seen.out, '\n'));
    }
    /// One pick, in which the person marks a text, and copies it or leaves a window open.
    void pick(bool copies) const {
        const ApplicationGuard guard(keepPutAway);
        auto* field = new QLineEdit("text");
        const std::unique_ptr<QLineEdit> closes(copies ? field : nullptr);
        if (!copies) left.push_back(field);
        field->setWindowTitle("a field");
        field->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(field));
        field->selectAll();
        QGuiApplication::clipboard()->setText("marked", QClipboard::Selection);
        if (copies) field->copy();
        EXPECT_EQ(windows(), 1u);
    }

    /// Windows of picks that nobody closed: nobody's any more, but known.
    inline static std::vector<QLineEdit*>& left = *new std::vector<QLineEdit*>;

    TemporaryFolder folder;
    std::optional<XServer> server{std::in_place};
};

TEST_F(KeptApplication, ShowsNothingAndOwnsNothingBetweenPicks) {
    const std::set<std::string> before = environment();
    for (int i = 0; i < 2; ++i) {
        pick(false);
        EXPECT_EQ(windows(), 0u);
        EXPECT_EQ(environment(), before);
        ASSERT_NE(qApp, nullptr) << "it is kept";
        EXPECT_FALSE(QGuiApplication::clipboard()->ownsSelection());
        EXPECT_FALSE(QGuiApplication::clipboard()->ownsClipboard());
    }
}

/// Only its end hands the text to whoever keeps texts of programs that have ended.
TEST_F(KeptApplication, EndsWithThePickThatCopied) {
    pick(false);
    ASSERT_NE(qApp, nullptr);
    pick(true);
    EXPECT_EQ(qApp, nullptr);
    pick(false);
    EXPECT_NE(qApp, nullptr);
}

/// The toolkit would end the process.
TEST_F(KeptApplication, IsNoneToPickWithOnceItsServerHasGone) {
    pick(false);
    EXPECT_TRUE(DisplayProbe().available());
    server.reset();
    for (int i = 0; i < 100 && DisplayProbe().available(); ++i)
        QThread::msleep(20);
    EXPECT_FALSE(DisplayProbe().available());
    putAway();
    EXPECT_EQ(qApp, nullptr);
}

} // namespace
} // namespace chromalog::test
