#include "qt/screen/x11_pick.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>
#include <new>
#include <utility>

namespace chromalog {

namespace {
constexpr int kMoment = 40;   ///< milliseconds until what lay under a tool tip is painted
constexpr int kTryEvery = 50; ///< milliseconds between two tries to have pointer and keys
constexpr int kTries = 40;    ///< a key that began the pick is another program's until it is let go
} // namespace

X11Pick::X11Pick(QWidget* dialog, ScreenAnswer answer) : answer_(std::move(answer)), triesLeft_(kTries) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->windowType() == Qt::ToolTip) window->hide();
    connect(&grabs_, &QTimer::timeout, this, [this] {
        guarded([this] {
            if (grab()) return grabs_.stop();
            if (--triesLeft_ == 0) end({{}, translated("Another program holds the mouse or the keyboard")});
        });
    });
    const auto changed = [this] {
        guarded([this] { end({{}, translated("The screens have changed; pick once more")}); });
    };
    connect(qGuiApp, &QGuiApplication::screenAdded, this, changed);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, changed);
    for (const QScreen* screen : QGuiApplication::screens())
        connect(screen, &QScreen::geometryChanged, this, changed);
    QTimer::singleShot(kMoment, this,
                       [this, dialog = QPointer(dialog)] { guarded([&] { freeze(dialog); }); });
}

void X11Pick::freeze(QWidget* dialog) try {
    if (!answer_) return;
    for (QScreen* screen : QGuiApplication::screens())
        screens_.push_back(std::make_unique<FrozenScreen>(*screen));
    for (const auto& screen : screens_) {
        if (screen->picture().isNull()) return end({{}, translated("The screen cannot be read")});
        screen->winId(); // makes the window handle
        if (dialog) screen->windowHandle()->setTransientParent(dialog->windowHandle()); // it is modal
        screen->installEventFilter(this);
        screen->windowHandle()->installEventFilter(this);
        screen->show();
    }
    const auto place = pointer_.place(*screens_.front()->windowHandle());
    place ? aimAt(*place) : pointedAt(QCursor::pos());
    if (!grab()) grabs_.start(kTryEvery);
} catch (const std::bad_alloc&) {
    end({{}, translated("There is no memory for a picture of the screens")});
}

/// Both, or neither.
bool X11Pick::grab() {
    FrozenScreen& first = *screens_.front();
    QWindow& window = *first.windowHandle();
    if (!window.setMouseGrabEnabled(true)) return false;
    if (!window.setKeyboardGrabEnabled(true)) {
        window.setMouseGrabEnabled(false);
        return false;
    }
    first.grabKeyboard(); // by the toolkit's count too: keys would go to the dialog
    return true;
}

/// Of the windows for the mouse, as widgets are told rounded places; of the widget that has them for keys.
bool X11Pick::eventFilter(QObject*, QEvent* event) try {
    const auto mouse = [event]() -> const QMouseEvent& { return *static_cast<QMouseEvent*>(event); };
    switch (event->type()) {
    case QEvent::MouseMove:
        pointedAt(mouse().globalPosition());
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        pressed_ = mouse().button();
        pointedAt(mouse().globalPosition());
        return true;
    case QEvent::MouseButtonRelease:
        if (std::exchange(pressed_, Qt::NoButton) != mouse().button()) return true; // begun before the pick
        pointedAt(mouse().globalPosition());
        mouse().button() == Qt::LeftButton ? take(mouse().modifiers() & Qt::ShiftModifier) : end({});
        return true;
    case QEvent::ShortcutOverride: // no key is the dialog's
        event->accept();
        return true;
    case QEvent::KeyPress: {
        const auto& key = *static_cast<QKeyEvent*>(event);
        keyPressed(key.key(), key.isAutoRepeat(), key.modifiers() & Qt::ShiftModifier);
        return true;
    }
    default:
        return false;
    }
} catch (...) {
    mishap();
    return true;
}

void X11Pick::keyPressed(int key, bool repeated, bool shift) {
    switch (key) {
    case Qt::Key_Escape:
        return end({});
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return repeated ? void() : take(shift);
    case Qt::Key_Left:
        return moveBy({-1, 0});
    case Qt::Key_Right:
        return moveBy({1, 0});
    case Qt::Key_Up:
        return moveBy({0, -1});
    case Qt::Key_Down:
        return moveBy({0, 1});
    default:
        return;
    }
}

/// A movement that this pick has made itself says nothing new: keys may have gone on meanwhile.
void X11Pick::pointedAt(QPointF global) {
    for (const auto& screen : screens_) {
        const auto pixel = screen->pixelAt(global);
        if (!pixel) continue;
        const auto own = std::ranges::find(moves_, *pixel);
        if (own != moves_.end()) {
            moves_.erase(moves_.begin(), own + 1);
            return;
        }
        moves_.clear();
        return aimAt(*pixel);
    }
}

void X11Pick::moveBy(QPoint by) {
    const QPoint to = aim_ + by;
    if (!screenOf(to)) return;
    moves_.push_back(to);
    pointer_.moveTo(to, *screens_.front()->windowHandle());
    aimAt(to);
}

FrozenScreen* X11Pick::screenOf(QPoint pixel) const {
    const auto found = std::ranges::find_if(
        screens_, [pixel](const auto& screen) { return screen->pixels().contains(pixel); });
    return found == screens_.end() ? nullptr : found->get();
}

void X11Pick::aimAt(QPoint pixel) {
    aim_ = pixel;
    for (const auto& screen : screens_)
        screen->aimAt(pixel, taken_);
}

void X11Pick::take(bool goesOn) {
    const FrozenScreen* screen = screenOf(aim_);
    if (!screen || !answer_) return;
    if (taken_.empty() || takenLast_ != aim_)
        taken_.push_back(screen->picture().pixelColor(aim_ - screen->pixels().topLeft()));
    takenLast_ = aim_;
    if (goesOn) return aimAt(aim_);
    ScreenColours all;
    for (const QColor& colour : taken_)
        all.colours.push_back(fromQt(colour).withAlpha(1.0));
    end(std::move(all));
}

/// Answers from the event loop: this object may be destroyed then, and not in the middle of its own event.
void X11Pick::end(ScreenColours colours) {
    if (!answer_) return;
    grabs_.stop();
    for (const auto& screen : screens_)
        screen->hide(); // lets pointer and keys go
    QTimer::singleShot(0, this, [answer = std::exchange(answer_, {}), colours = std::move(colours)] {
        guarded([&] { answer(colours); });
    });
}

} // namespace chromalog
