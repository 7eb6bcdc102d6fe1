#include "drive/settle.h"

#include <QApplication>
#include <QEvent>
#include <QTimerEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace chromalog::drive {
namespace {

const QEvent::Type kProbe = static_cast<QEvent::Type>(QEvent::registerEventType());
constexpr int kMostTurns = 10'000; ///< what never rests (an animation) does not hold a script up for ever
constexpr int kPollMs = 5;
constexpr int kMostPolls = 1'000; ///< 5 s: nor does a window or the keyboard that the desktop withholds

} // namespace

Settle::Settle(std::function<void()> mishap) : mishap_(std::move(mishap)) {
    QCoreApplication::instance()->installEventFilter(this);
}

Settle::~Settle() {
    stop();
}

void Settle::wait(Keyboard keyboard, std::function<void()> then) {
    then_ = std::move(then);
    keyboard_ = keyboard;
    turns_ = polls_ = 0;
    busy_ = true;
    probe();
}

void Settle::stop() {
    then_ = nullptr;
    if (timer_) killTimer(std::exchange(timer_, 0));
}

void Settle::probe() {
    if (std::exchange(probing_, true)) return;
    QCoreApplication::postEvent(this, new QEvent(kProbe), Qt::LowEventPriority - 1); // after every paint
}

bool Settle::windowsAreUp() const {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const QWindow* handle = window->windowHandle();
        if (window->isVisible() && !window->isMinimized() && handle && !handle->isExposed()) return false;
    }
    return keyboard_ == Keyboard::asItIs || QGuiApplication::focusWindow();
}

bool Settle::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver != this && event->type() != QEvent::Timer) busy_ = true;
    return false;
}

bool Settle::event(QEvent* event) {
    if (event->type() != kProbe) return QObject::event(event);
    probing_ = false;
    if (then_) guarded([this] { look(); });
    return true;
}

void Settle::look() {
    if (std::exchange(busy_, false) && turns_++ < kMostTurns) return probe();
    if (!windowsAreUp() && polls_++ < kMostPolls) {
        if (!timer_) timer_ = startTimer(kPollMs);
        return;
    }
    const auto then = std::exchange(then_, nullptr);
    then();
}

void Settle::timerEvent(QTimerEvent*) {
    guarded([this] { pollAgain(); });
}

void Settle::pollAgain() {
    killTimer(std::exchange(timer_, 0));
    busy_ = true; // a whole quiet turn after the last window came up
    probe();
}

void Settle::guarded(const std::function<void()>& work) noexcept {
    try {
        work();
    } catch (...) {
        mishap_();
    }
}

} // namespace chromalog::drive
