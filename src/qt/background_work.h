#pragma once

#include "desktop/worker.h"

#include <QObject>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace chromalog {

/// One piece of work at a time on a thread of its own, which is made for the first one and joined as this
/// goes. No signal of the process is handled on it.
class BackgroundWork : public QObject, public Worker {
  public:
    BackgroundWork() = default;
    ~BackgroundWork() override;
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// After the work before has ended, and its `then` too. `work` throws nothing; `then` runs on this
    /// thread, from the event loop or from finish().
    void begin(std::function<void()> work, std::function<void()> then) override;
    void finish();                                         ///< returns when nothing is under way
    bool busy() const { return static_cast<bool>(then_); } ///< asked on the thread that begins

  protected:
    bool event(QEvent*) override;

  private:
    void startThread();
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> work_; ///< waits to run, or runs
    std::function<void()> then_; ///< of this thread alone
    bool ends_ = false;
    std::thread thread_;
};

} // namespace chromalog
