#pragma once

#include <QObject>

#include <exception>

namespace chromalog {

class LogRing;
class ModalLoops;

/// No exception may cross the toolkit's frames. Whatever the toolkit calls of ours (events, slots, timers,
/// answers of panels) ends with `catch (...) { mishap(); }`, or is run by guarded().
void mishap() noexcept; ///< within a catch: the pick's Mishaps take what was thrown

template <typename Work> void guarded(const Work& work) noexcept {
    try {
        work();
    } catch (...) {
        mishap();
    }
}

/// Gives `otherwise` where something was thrown.
template <typename Value, typename Work> Value guarded(Value otherwise, const Work& work) noexcept {
    try {
        otherwise = work();
    } catch (...) {
        mishap();
    }
    return otherwise;
}

/// What becomes of a pick after a mishap. Without memory, a command of the standing dialog fails with a line
/// of the log, and the dialog lives on. Anything else, and whatever happens before the dialog runs, ends the
/// pick: its modal loops stop, and what was thrown goes on from them.
class Mishaps {
  public:
    Mishaps(ModalLoops&, LogRing&);
    ~Mishaps();
    Mishaps(const Mishaps&) = delete;
    Mishaps& operator=(const Mishaps&) = delete;

    void rethrow() const; ///< what ended the pick; nothing where nothing did

  private:
    friend void mishap() noexcept;
    void take(const std::exception_ptr&);

    ModalLoops& loops_;
    LogRing& log_;
    QObject context_; ///< of what is still to be closed
    std::exception_ptr fatal_;
};

} // namespace chromalog
