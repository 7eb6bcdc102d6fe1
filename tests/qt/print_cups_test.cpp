// Printing on a real printer queue: a print server of the test's own, with a queue that keeps what it is
// sent.
#include "qt/application_guard.h"
#include "qt/panels/print_jobs.h"
#include "qt/pdf_document.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QProgressDialog>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <pwd.h>
#include <thread>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {
namespace {

using namespace std::chrono_literals;

constexpr const char* kQueue = "Keeper";

/// A print server in a folder of its own.
class PrintServer {
  public:
    PrintServer() {
        for (const char* name : {"spool", "tmp", "cache", "state"}) {
            std::filesystem::create_directory(folder_ / name);
            std::filesystem::permissions(folder_ / name, std::filesystem::perms::all);
        }
        std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
        std::ofstream(folder_ / "cupsd.conf")
            << "Listen " << socket() << "\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n"
            << "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
            << "<Location /admin>\nOrder allow,deny\nAllow all\n</Location>\n"
            << "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n";
        const passwd* person = ::getuid() == 0 ? ::getpwnam("lp") : ::getpwuid(::getuid());
        std::ofstream files(folder_ / "cups-files.conf");
        if (person) files << "User " << person->pw_name << "\n";
        files << "FileDevice Yes\nServerRoot " << folder_.path() << "\nRequestRoot " << folder_ / "spool"
              << "\nTempDir " << folder_ / "tmp"
              << "\nCacheDir " << folder_ / "cache"
              << "\nStateDir " << folder_ / "state"
              << "\nErrorLog " << folder_ / "errors"
              << "\nAccessLog " << folder_ / "accesses"
              << "\nPageLog " << folder_ / "pages"
              << "\n";
        files.close();
        start();
    }
    ~PrintServer() {
        ::kill(process_, SIGTERM);
        ::waitpid(process_, nullptr, 0);
    }

    bool addQueue() const {
        const std::string command =
            std::string("lpadmin -p ") + kQueue + " -E -v file:/dev/null >/dev/null 2>&1";
        for (int tries = 0; tries < 100; ++tries, std::this_thread::sleep_for(100ms))
            if (std::filesystem::exists(socket()) && std::system(command.c_str()) == 0) return true;
        return false;
    }
    /// The documents that were sent so far.
    std::vector<std::string> documents() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder_ / "spool"))
            if (entry.path().filename().string().starts_with("d")) found.push_back(entry.path());
        return found;
    }
    std::string socket() const { return folder_ / "socket"; }

  private:
    void start() {
        process_ = ::fork();
        if (process_ != 0) return;
        const std::string settings = folder_ / "cupsd.conf", files = folder_ / "cups-files.conf";
        ::execlp("/usr/sbin/cupsd", "cupsd", "-f", "-c", settings.c_str(), "-s", files.c_str(), nullptr);
        ::_exit(127);
    }

    test::TemporaryFolder folder_;
    pid_t process_ = -1;
};

class PrinterQueue : public testing::Test {
  protected:
    void SetUp() override {
        if (::access("/usr/sbin/cupsd", X_OK) != 0 || std::system("command -v lpadmin >/dev/null") != 0 ||
            !test::PdfDocument::readersInstalled())
            GTEST_SKIP() << "needs cups, cups-client, poppler-utils and qpdf";
        if (!server) server = std::make_unique<PrintServer>();
        setenv("CUPS_SERVER", server->socket().c_str(), 1);
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        setenv("XDG_CONFIG_HOME", settings.path().c_str(), 1);
        if (!server->addQueue()) GTEST_SKIP() << "the print server does not run here";
        application = std::make_unique<ApplicationGuard>();
    }

    static void TearDownTestSuite() { server.reset(); }

    /// Five sheets on the queue; `atSheet` runs while a sheet is painted.
    PrintOutcome print(std::function<void(int)> atSheet) {
        QTimer::singleShot(0, [] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* printers = dialog->findChild<QComboBox*>("printers");
            printers->setCurrentIndex(printers->findText(kQueue));
            auto* buttons = dialog->findChild<QDialogButtonBox*>();
            for (QAbstractButton* button : buttons->buttons())
                if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) button->click();
        });
        const auto layOut = [&](const PrintInfo& info) {
            return PrintPages{5, info.page(), [&](int sheet, Canvas& canvas) {
                                  atSheet(sheet);
                                  canvas.setFill(Colour());
                                  canvas.drawText({10, 50}, "Sheet" + std::to_string(sheet), Font{}, 0);
                              }};
        };
        StatusLine status;
        return PrintJobs(status).run({"five sheets", layOut}, nullptr);
    }

    test::TemporaryFolder settings;
    static inline std::unique_ptr<PrintServer> server; ///< one a process: its library knows no second one
    std::unique_ptr<ApplicationGuard> application;
};

TEST_F(PrinterQueue, TakesTheWholeJobAndNothingOfACancelledOne) {
    const PrintOutcome cancelled = print([](int sheet) {
        if (sheet < 2) return;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* progress = qobject_cast<QProgressDialog*>(widget)) progress->cancel();
    });
    EXPECT_EQ(cancelled, PrintOutcome::cancelled);
    EXPECT_TRUE(server->documents().empty());

    EXPECT_EQ(print([](int) {}), PrintOutcome::printed);
    const auto documents = server->documents();
    ASSERT_EQ(documents.size(), 1u);
    const test::PdfDocument document(documents[0]);
    EXPECT_EQ(document.pages(), 5);
    for (int page = 1; page <= 5; ++page) {
        const auto words = document.words(page);
        ASSERT_EQ(words.size(), 1u);
        EXPECT_EQ(words[0].text, "Sheet" + std::to_string(page - 1));
        EXPECT_NEAR(words[0].xMin, 46, 0.5);
    }
}

TEST_F(PrinterQueue, AJobThatIsLongerThanFilesMayBeEndsAndNotTheHost) {
    rlimit before;
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit shorter{500, before.rlim_max};
    int paintings = 0;
    const PrintOutcome outcome = print([&](int sheet) {
        if (sheet == 0 && ++paintings == 2) ::setrlimit(RLIMIT_FSIZE, &shorter); // the rehearsal is over
    });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(paintings, 2);
    EXPECT_NE(outcome, PrintOutcome::cancelled);
}

} // namespace
} // namespace chromalog
