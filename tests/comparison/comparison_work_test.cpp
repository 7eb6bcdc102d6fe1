#include "comparison/comparison_work.h"
#include "support/failing_new.h"
#include "support/headless_desktop.h"

#include <gtest/gtest.h>

#include <new>

namespace chromalog::test {
namespace {

/// Work in the background ends when the test says so.
class SlowDesktop : public HeadlessDesktop {
  public:
    void inBackground(std::function<void()> work, std::function<void()> then) override {
        ++begun;
        work_ = std::move(work);
        then_ = std::move(then);
    }
    void work() { work_(); }
    void then() { std::exchange(then_, nullptr)(); }
    void end() {
        work();
        then();
    }
    int begun = 0;

  private:
    std::function<void()> work_, then_;
};

class ComparisonWorkTest : public testing::Test {
  protected:
    ComparisonTask task() {
        ++asked;
        return {{Lab{within, 0, 0}}, {}, within, ComparisonView::onlyOne};
    }
    SlowDesktop desktop;
    double within = 1;
    int asked = 0;
    std::vector<ListComparison> told;
    std::optional<ComparisonWork> work{std::in_place, desktop, [this] { return task(); },
                                       [this](ListComparison result) { told.push_back(std::move(result)); }};
};

TEST_F(ComparisonWorkTest, WhatIsAskedQuicklyIsAskedOnce) {
    for (int i = 0; i < 5; ++i) {
        work->ask(0.1);
        desktop.advance(0.05);
    }
    EXPECT_EQ(desktop.begun, 0);
    desktop.advance(0.1);
    EXPECT_EQ(desktop.begun, 1);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(told.empty());
    desktop.end();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].matches[0].size(), 1u);
    EXPECT_FALSE(work->waits());
}

TEST_F(ComparisonWorkTest, WhatIsAskedMeanwhileIsAskedAnewAndTheOldResultIsDropped) {
    work->ask(0);
    desktop.advance(0);
    work->ask(0.1);
    desktop.advance(0.2);
    EXPECT_EQ(desktop.begun, 1) << "one at a time";
    desktop.end();
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(desktop.begun, 1) << "nothing begins where something may wait for the end";
    desktop.advance(0);
    EXPECT_EQ(desktop.begun, 2);
    desktop.end();
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(ComparisonWorkTest, NothingIsToldAfterItWasAbandonedOrIsGone) {
    work->ask(0);
    desktop.advance(0);
    work->abandon();
    desktop.end();
    work->ask(0);
    desktop.advance(0);
    work.reset();
    desktop.end();
    EXPECT_TRUE(told.empty());
}

TEST_F(ComparisonWorkTest, AFailedComparisonIsNotToldAndTheNextOneIs) {
    work->ask(0);
    desktop.advance(0);
    {
        const FailingNew failing(1);
        desktop.work();
    }
    desktop.then();
    EXPECT_TRUE(told.empty());
    work->ask(0);
    desktop.advance(0);
    desktop.end();
    EXPECT_EQ(told.size(), 1u);
}

} // namespace
} // namespace chromalog::test
