#pragma once

#include "comparison/list_comparison.h"
#include "desktop/desktop.h"

#include <functional>
#include <memory>
#include <vector>

namespace chromalog {

/// What there is to compare: plain values, for a thread of its own.
struct ComparisonTask {
    std::vector<Lab> one, two;
    double within = 0;
    ComparisonView view = ComparisonView::onlyOne; ///< doubles are another question than the rest
};

/// Compares beside the event loop, one task at a time: what is asked meanwhile is asked anew when that has
/// ended, and its result is dropped.
class ComparisonWork {
  public:
    /// `task` tells what to compare when the time has come, `done` gets what came out. It is told nothing
    /// where there was no memory.
    ComparisonWork(Desktop& desktop, std::function<ComparisonTask()> task,
                   std::function<void(ListComparison)> done)
        : desktop_(desktop), task_(std::move(task)), done_(std::move(done)) {}
    ~ComparisonWork() { abandon(); }
    ComparisonWork(const ComparisonWork&) = delete;
    ComparisonWork& operator=(const ComparisonWork&) = delete;

    void ask(double seconds); ///< after a pause, which begins anew when it is asked again
    void abandon();           ///< nothing more is told of what was asked
    bool waits() const { return pause_ || running_; }

  private:
    struct Job {
        ComparisonTask task;
        ListComparison result;
        bool failed = false, dropped = false;
        void run() noexcept;
    };
    void begin();
    void ended(const std::shared_ptr<Job>&);

    Desktop& desktop_;
    std::function<ComparisonTask()> task_;
    std::function<void(ListComparison)> done_;
    std::unique_ptr<Timer> pause_;
    std::shared_ptr<Job> running_; ///< shared with the thread
    bool again_ = false;
};

} // namespace chromalog
