// Undo and redo as the dialog sees them.
#include "host/chromalog_controler.h"

namespace chromalog {

void ChromalogControler::setUndoablePosition(std::string_view labelKey) {
    if (history_) history_->setUndoablePosition(desktop_.localized(labelKey));
}

void ChromalogControler::doUndo() {
    history_->undoOutAction();
}
void ChromalogControler::doRedo() {
    history_->redoOutAction();
}

void ChromalogControler::storeViewCounts() {
    if (swatch1_.connected()) data_.numColors1 = swatch1_.getNumberOfColors();
    if (swatch2_.connected()) data_.numColors2 = swatch2_.getNumberOfColors();
}

void ChromalogControler::restoreUndoUI() {
    swatch1_.setNumberOfColors(data_.numColors1);
    swatch2_.setNumberOfColors(data_.numColors2);
    // The counts are asked here, the lengths of the names when the preferences are read: kept.
    if (data_.numColors1 > 0) showListName(1);
    if (data_.numColors2 > 0) showListName(2);
    for (CSwatchList* list : {&swatch1_, &swatch2_}) {
        list->setScrollSize();
        list->setNeedsDisplay();
    }
}

} // namespace chromalog
