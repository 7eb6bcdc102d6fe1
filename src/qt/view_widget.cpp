#include "qt/view_widget.h"

#include "qt/contrast.h"
#include "qt/controls/focus_ring.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/controls/plain_text.h"
#include "qt/convert.h"
#include "qt/drags.h"
#include "qt/mishap.h"
#include "qt/name_editor.h"
#include "qt/paint_canvas.h"
#include "qt/view_accessible.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QUrl>

#include <cmath>

namespace chromalog {

namespace {

Key keyOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
        return Key::left;
    case Qt::Key_Right:
        return Key::right;
    case Qt::Key_Up:
        return Key::up;
    case Qt::Key_Down:
        return Key::down;
    case Qt::Key_Home:
        return Key::home;
    case Qt::Key_End:
        return Key::end;
    case Qt::Key_PageUp:
        return Key::pageUp;
    case Qt::Key_PageDown:
        return Key::pageDown;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return Key::deleteKey;
    case Qt::Key_Space:
        return Key::space;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::enter;
    case Qt::Key_F2:
        return Key::rename;
    case Qt::Key_A:
        return event.modifiers() == Qt::ControlModifier ? Key::selectAll : Key::other;
    case Qt::Key_Escape:
        return Key::escape;
    default:
        return Key::other;
    }
}

} // namespace

ViewWidget::ViewWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus); // until the view is known: a form orders only what takes the focus
}

ViewWidget::~ViewWidget() {
    if (view_) view_->setHost(nullptr);
}

void ViewWidget::setView(View* view, QtDesktop* desktop) {
    if (view_) view_->setHost(nullptr);
    view_ = view;
    desktop_ = desktop;
    setAttribute(Qt::WA_OpaquePaintEvent, view_ && clipWidget());
    if (!view_) return;
    view_->setHost(this);
    setFocusPolicy(view_->acceptsFocus() ? Qt::StrongFocus : Qt::NoFocus);
    setAcceptDrops(view_->acceptsColourDrags());
    setAccessibleName(toQt(view_->accessible().name));
    setAccessibleDescription(toQt(view_->accessible().description));
    layOutView();
    hiddenChanged();
    update();
}

/// Lists draw black text and no ground of their own.
void ViewWidget::paintGround(QPainter& painter, const QRect& where) const {
    if (clipWidget()) painter.fillRect(where, listGround(palette().color(QPalette::Window)));
}

QWidget* ViewWidget::clipWidget() const {
    return qobject_cast<ListScrollArea*>(parentWidget() ? parentWidget()->parentWidget() : nullptr)
               ? parentWidget()
               : nullptr;
}

QString ViewWidget::className() const {
    return QString::fromLatin1(view_ ? view_->className() : "View");
}

QPointF ViewWidget::toWidget(Point p) const {
    if (!view_) return {p.x, p.y};
    return {p.x, view_->isFlipped() ? p.y : height() - p.y};
}

QRectF ViewWidget::toWidget(const Rect& r) const {
    return QRectF(toWidget(Point{r.x, r.y}), toWidget(Point{r.x + r.w, r.y + r.h})).normalized();
}

Point ViewWidget::toView(QPointF p) const {
    if (!view_) return {p.x(), p.y()};
    return {p.x(), view_->isFlipped() ? p.y() : height() - p.y()};
}

bool ViewWidget::event(QEvent* event) try {
    if (event->type() != QEvent::ToolTip || !view_) return QWidget::event(event);
    const auto* asked = static_cast<QHelpEvent*>(event);
    const std::string help = view_->helpAt(toView(asked->pos()));
    if (help.empty()) return QWidget::event(event);
    QToolTip::showText(asked->globalPos(), plainToolTip(toQt(help)), this);
    return true;
} catch (...) {
    mishap();
    return true;
}

/// A view in a scroll area stays at its own origin while the area moves the widget.
void ViewWidget::layOutView() {
    if (!view_ || followingView_ || view_->host() != this) return;
    const QPoint origin = clipWidget() ? QPoint() : pos();
    view_->layOut({double(origin.x()), double(origin.y()), double(width()), double(height())});
}

void ViewWidget::resizeEvent(QResizeEvent*) {
    guarded([this] { layOutView(); });
}

void ViewWidget::moveEvent(QMoveEvent*) {
    guarded([this] { layOutView(); });
}

/// At a scale that is no whole number the toolkit can round the last column or row away on its way to the
/// screen, where it would stay as it was: the pixels around the view go along.
void ViewWidget::needsDisplay() {
    update();
    if (auto* area = qobject_cast<ListScrollArea*>(clipWidget() ? clipWidget()->parentWidget() : nullptr))
        area->showHint(view_ && view_->accessibleRowCount() == 0);
    const double scale = devicePixelRatioF();
    if (scale == std::floor(scale)) return;
    const QRect shown = visibleRegion().boundingRect();
    window()->update(QRect(mapTo(window(), shown.topLeft()), shown.size()).adjusted(-1, -1, 1, 1));
}

/// A list sets its own height; other views are laid out by the form, and frames that they set for a print job
/// are no business of the screen.
void ViewWidget::frameChanged() {
    if (!view_ || !clipWidget()) return;
    const QScopedValueRollback following(followingView_, true);
    resize(width(), qBound(1, int(view_->frame().h), QWIDGETSIZE_MAX));
}

void ViewWidget::hiddenChanged() {
    if (view_ && view_->hidden() != isHidden()) setHidden(view_->hidden());
}

void ViewWidget::accessibleChanged() {
    setAccessibleName(toQt(view_->accessible().name));
    announceView(*this);
}

void ViewWidget::remark(Point p, std::string_view words) {
    QToolTip::showText(mapToGlobal(toWidget(p).toPoint()), plainToolTip(toQt(words)), this);
}

std::optional<Rect> ViewWidget::superviewBounds() const {
    const QWidget* clip = clipWidget();
    if (!clip) return std::nullopt;
    return Rect{0, double(-y()), double(clip->width()), double(clip->height())};
}

Colour ViewWidget::surround() const {
    return fromQt(palette().color(QPalette::Window));
}

/// A view that is being printed has the paper's geometry, and its host is not this widget for that long:
/// nothing is drawn then, and the screen keeps what it shows.
void ViewWidget::paintEvent(QPaintEvent* event) try {
    if (!view_) return;
    QPainter painter(this);
    const QRect dirty = event->rect();
    paintGround(painter, dirty);
    if (view_->host() != this) return;
    const Rect bounds = view_->bounds();
    const double top = view_->isFlipped() ? dirty.y() : bounds.h - dirty.y() - dirty.height();
    const Rect clip{bounds.x + dirty.x(), bounds.y + top, double(dirty.width()), double(dirty.height())};
    const PaintTarget target{bounds, view_->isFlipped(), clip, true, true, &lines_, &cells_};
    PaintCanvas canvas(painter, target);
    view_->drawRect(canvas);
    PaintCanvas layer(painter, target);
    view_->drawDisplayLayer(layer);
    const auto mark = showsKeyboardFocus(*this) ? view_->focusMark() : std::nullopt;
    if (mark) paintFocusRing(painter, layer.map(*mark).toAlignedRect());
} catch (...) {
    mishap();
}

void ViewWidget::editText(TextEdit edit) {
    dropTextEdit();
    const QRect where = toWidget(edit.where).toAlignedRect();
    new NameEditor(*this, where, std::move(edit)); // the widget's child
}

void ViewWidget::dropTextEdit() {
    if (NameEditor* editor = NameEditor::of(*this)) editor->end(NameEditor::End::dropped);
}

MouseEvent ViewWidget::translated(const QMouseEvent& event) const {
    const auto held = [&event](Qt::KeyboardModifier key) { return event.modifiers().testFlag(key); };
    return {toView(event.position()), held(Qt::AltModifier), held(Qt::ShiftModifier),
            held(Qt::ControlModifier), doubled_ && !dragSent_};
}

void ViewWidget::mousePressEvent(QMouseEvent* event) try {
    if (!view_) return;
    if (event->button() == Qt::RightButton) {
        view_->rightMouseDown(translated(*event));
    } else if (event->button() == Qt::LeftButton) {
        pressed_ = true;
        dragSent_ = false;
        doubled_ = event->type() == QEvent::MouseButtonDblClick; // the press of one comes here too
        pressedAt_ = event->position();
        view_->mouseDown(translated(*event));
    }
} catch (...) {
    mishap();
}

void ViewWidget::mouseMoveEvent(QMouseEvent* event) try {
    if (!view_ || !pressed_ || !(event->buttons() & Qt::LeftButton)) return;
    if (!view_->startsDrags()) {
        view_->mouseDragged(translated(*event));
        return;
    }
    const double moved = (event->position() - pressedAt_).manhattanLength();
    if (dragSent_ || moved < QApplication::startDragDistance()) return;
    dragSent_ = true;
    view_->mouseDragged(translated(*event)); // returns when the drag is over
} catch (...) {
    mishap();
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event) try {
    if (!view_ || !pressed_ || event->button() != Qt::LeftButton) return;
    pressed_ = false;
    view_->mouseUp(translated(*event));
} catch (...) {
    mishap();
}

void ViewWidget::keyPressEvent(QKeyEvent* event) try {
    const KeyEvent key{keyOf(*event), event->modifiers().testFlag(Qt::ShiftModifier),
                       event->modifiers().testFlag(Qt::AltModifier),
                       event->modifiers().testFlag(Qt::ControlModifier)};
    if (!view_ || key.key == Key::other || !view_->keyDown(key)) QWidget::keyPressEvent(event);
} catch (...) {
    mishap();
}

/// The keyboard's menu key opens the menu of the selected row. By mouse the view was told at the press.
void ViewWidget::contextMenuEvent(QContextMenuEvent* event) try {
    if (!view_ || event->reason() != QContextMenuEvent::Keyboard) return;
    const auto row = view_->accessibleSelectedRow();
    if (!row) return;
    const Rect rect = view_->accessibleRow(*row).rect;
    view_->rightMouseDown({{width() / 2.0, rect.y + 0.75 * rect.h}}); // where a press is the row's too
} catch (...) {
    mishap();
}

void ViewWidget::focusInEvent(QFocusEvent*) try {
    needsDisplay();
    if (clipWidget()) clipWidget()->parentWidget()->update();
} catch (...) {
    mishap();
}

void ViewWidget::focusOutEvent(QFocusEvent* event) {
    focusInEvent(event);
}

namespace {

/// The files for a view that takes some; none where a colour is offered.
std::vector<std::string> filesFor(const View& view, const QMimeData& mime) {
    std::vector<std::string> files;
    if (mime.hasColor() || !mime.hasUrls() || !view.acceptsFiles()) return files;
    for (const QUrl& url : mime.urls())
        if (std::string path = fromQt(url.toLocalFile()); !path.empty()) files.push_back(std::move(path));
    return files;
}

} // namespace

void ViewWidget::dragEnterEvent(QDragEnterEvent* event) try {
    event->ignore();
    if (!view_) return;
    draggedFiles_ = filesFor(*view_, *event->mimeData());
    dragged_ = dragInfoOf(*event, toView(event->position()));
    if (draggedFiles_.empty() && view_->draggingEntered(dragged_) != DragOperation::copy) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
} catch (...) {
    mishap();
}

void ViewWidget::dragMoveEvent(QDragMoveEvent* event) try {
    event->setDropAction(Qt::CopyAction);
    event->accept(); // only an entered drag gets here
    if (view_ && draggedFiles_.empty()) draggedOver(*event);
} catch (...) {
    mishap();
}

void ViewWidget::draggedOver(const QDropEvent& event) {
    dragged_.location = toView(event.position());
    view_->draggingUpdated(dragged_);
    auto* area = qobject_cast<ListScrollArea*>(clipWidget() ? clipWidget()->parentWidget() : nullptr);
    if (!area) return;
    if (!dragScroll_)
        dragScroll_ = std::make_unique<DragScroll>(*area, [this](int pixels) {
            dragged_.location.y += pixels; // the pointer rests, and a list is flipped
            if (view_) view_->draggingUpdated(dragged_);
        });
    dragScroll_->over(int(event.position().y()) + y());
}

void ViewWidget::dragIsOver() {
    if (dragScroll_) dragScroll_->stop();
    if (view_) view_->draggingExited();
}

void ViewWidget::dragLeaveEvent(QDragLeaveEvent*) {
    guarded([this] { dragIsOver(); });
}

void ViewWidget::dropEvent(QDropEvent* event) try {
    if (!view_) return;
    dragIsOver();
    event->setDropAction(Qt::CopyAction);
    if (!draggedFiles_.empty()) {
        const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
        return event->setAccepted(view_->filesDropped(draggedFiles_, shift));
    }
    event->setAccepted(view_->performDragOperation(dragInfoOf(*event, toView(event->position()))));
} catch (...) {
    mishap();
}

} // namespace chromalog
