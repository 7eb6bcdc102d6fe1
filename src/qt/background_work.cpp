#include "qt/background_work.h"

#include "qt/mishap.h"

#include <QCoreApplication>
#include <QEvent>

#include <csignal>
#include <utility>

namespace chromalog {
namespace {

const QEvent::Type kEnded = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

BackgroundWork::~BackgroundWork() {
    guarded([this] { finish(); });
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
}

void BackgroundWork::begin(std::function<void()> work, std::function<void()> then) {
    finish();
    if (!thread_.joinable()) startThread();
    {
        const std::lock_guard lock(mutex_);
        work_ = std::move(work);
    }
    then_ = std::move(then);
    changed_.notify_all();
}

/// A thread begins with the signals blocked that its maker blocks.
void BackgroundWork::startThread() {
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        thread_ = std::thread([this] { run(); });
    } catch (...) {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        throw;
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void BackgroundWork::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return work_ || ends_; });
        if (!work_) return;
        lock.unlock(); // nobody touches it until it is empty again
        work_();
        lock.lock();
        work_ = nullptr;
        changed_.notify_all();
        try {
            QCoreApplication::postEvent(this, new QEvent(kEnded));
        } catch (...) { // no memory: whoever comes next finds it ended
        }
    }
}

void BackgroundWork::finish() {
    if (!then_) return;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !work_; });
    }
    const auto then = std::exchange(then_, nullptr);
    then();
}

bool BackgroundWork::event(QEvent* event) {
    if (event->type() != kEnded) return QObject::event(event);
    {
        const std::lock_guard lock(mutex_);
        if (work_)
            return true; // somebody waited for the end that this tells of; the next one tells of its own
    }
    guarded([this] { finish(); });
    return true;
}

} // namespace chromalog
