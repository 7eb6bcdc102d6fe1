#include "desktop/view.h"

namespace chromalog {

void View::setFrame(const Rect& frame) {
    frame_ = frame;
    bounds_.w = frame.w;
    bounds_.h = frame.h;
    if (host_) host_->frameChanged();
}

void View::layOut(const Rect& frame) {
    const bool resized = frame.w != frame_.w || frame.h != frame_.h;
    frame_ = frame;
    bounds_.w = frame.w;
    bounds_.h = frame.h;
    if (resized) sizeChanged();
}

void View::setHidden(bool hidden) {
    hidden_ = hidden;
    if (host_) host_->hiddenChanged();
}

void View::setNeedsDisplay() {
    if (host_) host_->needsDisplay();
}

void View::announceChange() {
    if (host_) host_->accessibleChanged();
}

void View::editText(TextEdit edit) {
    if (host_) host_->editText(std::move(edit));
}

void View::dropTextEdit() {
    if (host_) host_->dropTextEdit();
}

void View::remark(Point p, std::string_view words) {
    if (host_) host_->remark(p, words);
}

std::optional<Rect> View::superviewBounds() const {
    return host_ ? host_->superviewBounds() : std::nullopt;
}

} // namespace chromalog
