#pragma once

#include <QObject>

#include <functional>

namespace chromalog::drive {

/// Tells when the dialog has come to rest: every window that is to be seen is on the screen, and a whole turn
/// of the event loop has passed in which no event but timers was delivered, so that no paint and no posted
/// event is left.
class Settle : public QObject {
  public:
    enum class Keyboard { asItIs, ours };

    /// `mishap` is called within a catch, for what the calls have thrown.
    explicit Settle(std::function<void()> mishap);
    ~Settle() override;

    /// Calls `then` once, from the innermost event loop, when all is at rest; with Keyboard::ours also not
    /// before the application has the keyboard. A second call before that replaces the first.
    void wait(Keyboard, std::function<void()> then);
    void stop();                                              ///< forgets what was waited for
    void guarded(const std::function<void()>& work) noexcept; ///< what it throws is the pick's mishap

  protected:
    bool event(QEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;
    void timerEvent(QTimerEvent*) override;

  private:
    void probe();
    void look();
    void pollAgain();
    bool windowsAreUp() const;

    std::function<void()> mishap_;
    std::function<void()> then_;
    Keyboard keyboard_ = Keyboard::ours;
    bool busy_ = false;    ///< an event was delivered since the last probe
    bool probing_ = false; ///< a probe is posted
    int turns_ = 0, polls_ = 0;
    int timer_ = 0; ///< polls windows that are not on the screen yet; 0 while not running
};

} // namespace chromalog::drive
