#pragma once

#include "desktop/desktop.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace chromalog {

/// What takes long, beside the event loop. Only the latest counts: what it takes the place of is told to stop
/// and nobody waits for it.
class PictureWork {
  public:
    explicit PictureWork(Desktop& desktop) : worker_(desktop.makeWorker()) {}
    ~PictureWork() { cancel(); }
    PictureWork(const PictureWork&) = delete;
    PictureWork& operator=(const PictureWork&) = delete;

    using Job = std::function<void(const WorkProgress&)>; ///< touches nothing but what it was given

    void begin(Job, std::function<void()> then);
    void cancel(); ///< no `then` comes any more
    bool busy() const { return wanted_; }
    double done() const { return current_ ? current_->done.load() : 0; } ///< 0..1

  private:
    struct Course {
        std::atomic<bool> stop = false;
        std::atomic<double> done = 0;
    };
    struct Task {
        Job job;
        std::function<void()> then;
    };
    void start(Task);
    void ended(const Course&, const std::function<void()>& then);

    bool wanted_ = false;
    std::shared_ptr<Course> current_; ///< of what runs, wanted or not
    std::optional<Task> next_;
    std::unique_ptr<Worker> worker_; ///< goes first: it waits, and calls back
};

} // namespace chromalog
