#include "drive/hand_over.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>

#include <utility>

namespace chromalog::drive {

Qt::DropAction offer(const QMimeData& data, const PointerTarget& target, Qt::KeyboardModifiers held) {
    if (!target.widget) return Qt::IgnoreAction;
    const QPoint near =
        target.at.toPoint(); // entering and moving know whole pixels alone, a drop the exact point
    QDragEnterEvent enter(near, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(target.widget, &enter);
    if (!enter.isAccepted() || !target.widget) return Qt::IgnoreAction;
    QDragMoveEvent move(near, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(target.widget, &move);
    if (!target.widget) return Qt::IgnoreAction;
    if (!move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(target.widget, &leave);
        return Qt::IgnoreAction;
    }
    QDropEvent drop(target.at, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(target.widget, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

HandOver::HandOver(std::function<Qt::DropAction(QDrag&)>& loop, std::function<PointerTarget()> target)
    : loop_(loop), target_(std::move(target)), before_(std::move(loop)) {
    loop_ = [this](QDrag& drag) {
        happened_ = true;
        drag.deleteLater(); // a drag that ran its own loop would do so itself
        return offer(*drag.mimeData(), target_());
    };
}

HandOver::~HandOver() {
    loop_ = std::move(before_);
}

} // namespace chromalog::drive
