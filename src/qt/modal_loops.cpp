#include "qt/modal_loops.h"

#include "qt/controls/window_control.h"

#include <QScopeGuard>

#include <algorithm>

namespace chromalog {

std::int64_t ModalLoops::run(DialogWindow& window) {
    DialogWindow* below = innermost();
    if (below && !window.parentWidget()) window.setParent(below, window.windowFlags()); // stays above it
    Running running(window);
    running_.push_back(&running);
    const auto end =
        qScopeGuard([&] { running_.erase(std::find(running_.begin(), running_.end(), &running)); });
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    window.raise();
    window.activateWindow();
    if (!running.stopped) running.loop.exec();
    return running.code;
}

/// A loop that was told to stop still stands until its caller's calls have returned; the next stop ends the
/// next one.
void ModalLoops::stop(std::int64_t code) {
    const auto innermost =
        std::find_if(running_.rbegin(), running_.rend(), [](const Running* r) { return !r->stopped; });
    if (innermost == running_.rend()) return;
    (*innermost)->stopped = true;
    (*innermost)->code = code;
    (*innermost)->loop.exit();
}

void ModalLoops::stopAll(std::int64_t code) {
    for (std::size_t left = running_.size(); left > 0; --left)
        stop(code);
}

} // namespace chromalog
