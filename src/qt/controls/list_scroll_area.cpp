#include "qt/controls/list_scroll_area.h"

#include "desktop/controls.h"
#include "qt/contrast.h"
#include "qt/controls/focus_ring.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>

#include <cmath>

namespace chromalog {

namespace {
constexpr QColor hintInk(0x40, 0x40, 0x40); ///< on the lists' own light ground, in every palette
constexpr int hintMargin = 12;              ///< pixels
} // namespace

ListScrollArea::ListScrollArea(QWidget* parent) : QScrollArea(parent), hint_(new QLabel(viewport())) {
    hint_->setObjectName("captionEmpty");
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    hint_->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    hint_->setMargin(hintMargin);
    hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette ink = hint_->palette();
    ink.setColor(QPalette::WindowText, hintInk);
    hint_->setPalette(ink);
    setWidgetResizable(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(2); // room for the focus ring
    setFocusPolicy(Qt::NoFocus);
    verticalScrollBar()->setSingleStep(ScrollView::kRowPitch);
}

void ListScrollArea::showHint(bool shown) {
    if (hintShown_ == shown) return;
    hintShown_ = shown;
    fitHint();
}

void ListScrollArea::fitHint() {
    const QSize clip = viewport()->size();
    bool fits = false;
    for (auto hint = hints_.begin(); hintShown_ && !fits && hint != hints_.end(); ++hint) {
        hint_->setText(*hint);
        fits = hint_->minimumSizeHint().width() <= clip.width() &&
               hint_->heightForWidth(clip.width()) <= clip.height();
    }
    hint_->setGeometry(viewport()->rect());
    hint_->raise(); // above the view, which was set after it
    hint_->setVisible(fits);
}

ViewWidget* ListScrollArea::content() const {
    return qobject_cast<ViewWidget*>(widget());
}

int ListScrollArea::range() const {
    return widget() ? std::max(0, widget()->height() - viewport()->height()) : 0;
}

void ListScrollArea::setVerticalScroller(double v) {
    if (std::isfinite(v)) verticalScrollBar()->setValue(int(std::lround(std::clamp(v, 0.0, 1.0) * range())));
}

double ListScrollArea::verticalScroller() const {
    return range() > 0 ? double(verticalScrollBar()->value()) / range() : 0.0;
}

void ListScrollArea::scrollToPoint(Point p) {
    if (std::isfinite(p.y))
        verticalScrollBar()->setValue(int(std::lround(std::clamp(p.y, 0.0, double(range())))));
}

void ListScrollArea::setNeedsDisplay() {
    update();
    viewport()->update();
    if (widget()) widget()->update();
}

/// The content learns the new clip even where its own width stays: its height depends on the clip's.
void ListScrollArea::resizeEvent(QResizeEvent* event) try {
    if (ViewWidget* list = content()) {
        list->resize(viewport()->width(), list->height());
        if (list->view()) list->view()->sizeChanged();
    }
    fitHint();
    QScrollArea::resizeEvent(event);
} catch (...) {
    mishap();
}

/// Over the toolkit's: a hairline, or the focus.
void ListScrollArea::paintFrame() {
    QPainter painter(this);
    if (widget() && showsKeyboardFocus(*widget())) return paintFocusRing(painter, rect());
    painter.setPen(palette().color(QPalette::Window));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(hairline(palette()));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

bool ListScrollArea::event(QEvent* event) try {
    const bool used = QScrollArea::event(event);
    if (event->type() == QEvent::Paint) paintFrame();
    return used;
} catch (...) {
    mishap();
    return true;
}

} // namespace chromalog
