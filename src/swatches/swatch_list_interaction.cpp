#include "swatches/swatch_list_view.h"

namespace chromalog {

void CSwatchList::mouseDown(const MouseEvent&) {}
void CSwatchList::rightMouseDown(const MouseEvent&) {}
void CSwatchList::mouseDragged(const MouseEvent&) {}
bool CSwatchList::keyDown(const KeyEvent&) {
    return false;
}
DragOperation CSwatchList::draggingEntered(const DragInfo&) {
    return DragOperation::none;
}
bool CSwatchList::performDragOperation(const DragInfo&) {
    return true;
}

} // namespace chromalog
