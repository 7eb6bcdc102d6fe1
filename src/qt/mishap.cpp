#include "qt/mishap.h"

#include "qt/controls/window_control.h"
#include "qt/log_ring.h"
#include "qt/modal_loops.h"

#include <QApplication>
#include <QDrag>

#include <new>

namespace chromalog {

namespace {

Mishaps* ofThePick = nullptr;

bool isOutOfMemory(const std::exception_ptr& thrown) {
    try {
        std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
        return true;
    } catch (...) {
        return false;
    }
}

bool stemsFromADialog(const QWidget& window) {
    for (const QWidget* parent = window.parentWidget(); parent; parent = parent->parentWidget())
        if (qobject_cast<const DialogWindow*>(parent)) return true;
    return false;
}

/// Drags, menus, alerts and panels run loops of their own, which the dialog's would wait for.
void endOtherLoops() {
    QDrag::cancel();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || qobject_cast<DialogWindow*>(window) || !stemsFromADialog(*window))
            continue;
        if (auto* dialog = qobject_cast<QDialog*>(window))
            dialog->done(QDialog::Rejected);
        else
            window->close();
    }
}

} // namespace

void mishap() noexcept {
    try {
        if (ofThePick) ofThePick->take(std::current_exception());
    } catch (...) { // no memory to say so either
    }
}

Mishaps::Mishaps(ModalLoops& loops, LogRing& log) : loops_(loops), log_(log) {
    ofThePick = this;
}

Mishaps::~Mishaps() {
    if (ofThePick == this) ofThePick = nullptr;
}

void Mishaps::take(const std::exception_ptr& thrown) {
    if (loops_.depth() > 0 && isOutOfMemory(thrown))
        return log_.add("out of memory: a command was not carried out");
    if (!fatal_) fatal_ = thrown;
    loops_.stopAll(0);
    // From the innermost loop: what is to be closed may be in the middle of its own event.
    const auto end = [] { guarded(endOtherLoops); };
    QMetaObject::invokeMethod(&context_, end, Qt::QueuedConnection);
}

void Mishaps::rethrow() const {
    if (fatal_) std::rethrow_exception(fatal_);
}

} // namespace chromalog
