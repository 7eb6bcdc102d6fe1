// Work beside the event loop.
#include "qt/desktop_fixture.h"

#include "qt/background_work.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <optional>
#include <semaphore>
#include <thread>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

class BackgroundWorkTest : public DesktopTest {
  protected:
    std::binary_semaphore gate{0}; ///< the work waits for it
    std::vector<std::string> ended;
    std::optional<BackgroundWork> work{std::in_place};

    void begin(const std::string& name) {
        work->begin([this] { gate.acquire(); }, [this, name] { ended.push_back(name); });
    }
};

TEST_F(BackgroundWorkTest, RunsBesideTheEventLoopWhichHearsOfItsEnd) {
    begin("one");
    for (int turn = 0; turn < 5; ++turn)
        QApplication::processEvents();
    EXPECT_THAT(ended, ElementsAre());
    gate.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !ended.empty(); }));
    work->finish();
    EXPECT_THAT(ended, ElementsAre("one")) << "once";
}

TEST_F(BackgroundWorkTest, WaitsForTheOneBefore) {
    begin("one");
    gate.release();
    begin("two");
    EXPECT_THAT(ended, ElementsAre("one"));
    gate.release();
    work->finish();
    EXPECT_THAT(ended, ElementsAre("one", "two"));
}

TEST_F(BackgroundWorkTest, AnEndThatWasWaitedForDoesNotHoldTheEventLoopForTheNext) {
    begin("one");
    gate.release();
    work->finish();
    begin("two");
    std::jthread rescue([this](const std::stop_token& enough) {
        for (int i = 0; i < 100 && !enough.stop_requested(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        gate.release();
    });
    QApplication::processEvents();
    EXPECT_THAT(ended, ElementsAre("one")) << "the loop waited for the second";
    rescue.request_stop();
    work->finish();
    EXPECT_THAT(ended, ElementsAre("one", "two"));
}

TEST_F(BackgroundWorkTest, EndsBeforeItsThreadDoes) {
    begin("one");
    gate.release();
    work.reset();
    EXPECT_THAT(ended, ElementsAre("one"));
}

TEST_F(BackgroundWorkTest, HasOneThreadThatHandlesNoSignal) {
    std::vector<std::thread::id> threads;
    int open = 0;
    for (int i = 0; i < 2; ++i) {
        work->begin(
            [&] {
                threads.push_back(std::this_thread::get_id());
                sigset_t mask;
                pthread_sigmask(SIG_SETMASK, nullptr, &mask);
                for (const int signal : {SIGINT, SIGTERM, SIGALRM, SIGCHLD, SIGUSR1, SIGXFSZ})
                    open += sigismember(&mask, signal) == 0;
            },
            [] {});
        work->finish();
    }
    EXPECT_EQ(open, 0);
    ASSERT_EQ(threads.size(), 2u);
    EXPECT_EQ(threads[0], threads[1]);
    EXPECT_NE(threads[0], std::this_thread::get_id());
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(sigismember(&mask, SIGTERM), 0) << "here as before";
}

TEST_F(BackgroundWorkTest, AWorkerOfItsOwnHoldsNothingElseUp) {
    QtDesktop desktop(settings());
    auto worker = desktop.makeWorker();
    worker->begin([this] { gate.acquire(); }, [this] { ended.push_back("picture"); });
    desktop.inBackground([] {}, [this] { ended.push_back("store"); });
    desktop.finishBackground();
    EXPECT_THAT(ended, ElementsAre("store"));
    gate.release();
    EXPECT_TRUE(desktop.finishWork());
    EXPECT_THAT(ended, ElementsAre("store", "picture"));
    EXPECT_FALSE(desktop.finishWork());
    worker.reset();
    EXPECT_FALSE(desktop.finishWork());
}

} // namespace
