#include "comparison/comparison_work.h"

namespace chromalog {

void ComparisonWork::Job::run() noexcept try {
    if (task.view == ComparisonView::doublesOne)
        result = findDoubles(task.one, 0, task.within);
    else if (task.view == ComparisonView::doublesTwo)
        result = findDoubles(task.two, 1, task.within);
    else
        result = compareLists(task.one, task.two, task.within);
} catch (...) {
    failed = true;
}

void ComparisonWork::ask(double seconds) {
    again_ = running_ != nullptr;
    if (pause_) return pause_->fireIn(seconds);
    pause_ = desktop_.startTimer(seconds, [this] {
        pause_.reset();
        begin();
    });
}

void ComparisonWork::abandon() {
    pause_.reset();
    if (running_) running_->dropped = true;
    running_.reset();
    again_ = false;
}

void ComparisonWork::begin() {
    if (running_) return; // its end begins the next one
    auto job = std::make_shared<Job>();
    job->task = task_();
    running_ = job;
    again_ = false;
    try {
        desktop_.inBackground([job] { job->run(); },
                              [this, job] {
                                  if (!job->dropped) ended(job);
                              });
    } catch (...) {
        abandon();
        throw;
    }
}

/// Perhaps in the middle of something that waits for what runs in the background: it begins nothing itself.
void ComparisonWork::ended(const std::shared_ptr<Job>& job) {
    running_.reset();
    if (again_) return ask(0);
    if (!job->failed) done_(std::move(job->result));
}

} // namespace chromalog
