#include "history/protocol_controler.h"

#include "history/undo_labels.h"
#include "record/global_record.h"

namespace chromalog {
namespace {

constexpr std::int16_t kUndoLimit = 20;

std::span<std::byte> bytesOf(GlobalRecord& record) {
    return std::as_writable_bytes(std::span(&record, 1));
}

} // namespace

ProtocolControler::ProtocolControler(HistoryParts parts) : parts_(std::move(parts)) {
    form_ = parts_.desktop.loadForm("ProtocolPanel", formOwner());
    if (!form_) parts_.desktop.log("failed to load ProtocolPanel xib");
    if (protocolWindow.connected()) {
        manager_.emplace([this](const UndoAction& action) { pushgData(action); });
        protocolWindow->whenClosed([this] { forceHideProtocolWindow(); });
        protocolWindow->attachAsChildOf(*parts_.dialog);
    }
    parts_.record.undoLimit = kUndoLimit;
    undoCount = 0;
    parts_.desktop.log("Done with init protocolcontroler");
}

FormOwner ProtocolControler::formOwner() {
    FormOwner owner;
    owner.outlets = {{"protocolWindow", &protocolWindow},
                     {"undoView", &undoView},
                     {"redoView", &redoView},
                     {"nubersUndo", &nubersUndo}};
    owner.actions = {{"undoAction:", [this] { undoAction(); }},
                     {"redoAction:", [this] { redoAction(); }},
                     {"showProtocolWindow", [this] { showProtocolWindow(); }},
                     {"dumpUndo", [this] { dumpUndo(); }}};
    return owner;
}

void ProtocolControler::setUndoablePosition(std::string_view label) {
    parts_.save();
    if (manager_) {
        const auto snapshot = std::make_shared<Snapshot>(bytesOf(parts_.record), manager_->latest());
        manager_->setLevelLimit(parts_.record.undoLimit);
        manager_->registerStep({snapshot, std::string(label)});
    }
    maxUndoSteps = ++undoCount;
    parts_.redoButton->setEnabled(false);
    parts_.undoButton->setEnabled(true);
}

void ProtocolControler::pushgData(const UndoAction& action) {
    const std::span<std::byte> record = bytesOf(parts_.record);
    manager_->registerStep({std::make_shared<Snapshot>(record, action.snapshot.get()), action.label});
    action.snapshot->restore(record);
}

bool ProtocolControler::mayUndo() const {
    return undoCount > 0 && manager_ && manager_->canUndo();
}

/// Counts are stored first: a clear, a deletion or a drop changed only the view's, and could not be redone.
void ProtocolControler::undoOneStep() {
    parts_.storeViewCounts();
    manager_->undo();
    --undoCount; // with the swap, before what only shows it
    parts_.showRecord();
}

void ProtocolControler::redoOneStep() {
    parts_.storeViewCounts(); // also where there is nothing to redo: the views take them back below
    if (manager_) manager_->redo();
    ++undoCount;
    parts_.showRecord();
    parts_.dialog->makeKeyAndOrderFront();
}

void ProtocolControler::undoOutAction() {
    if (!mayUndo()) return;
    undoOneStep();
    parts_.redoButton->setEnabled(true);
    if (undoCount < 1) parts_.undoButton->setEnabled(false);
}

void ProtocolControler::undoAction() {
    if (!mayUndo()) return;
    undoOneStep();
    parts_.dialog->makeKeyAndOrderFront();
    parts_.redoButton->setEnabled(true);
    if (undoCount < 1) parts_.undoButton->setEnabled(false);
}

void ProtocolControler::redoOutAction() {
    redoOneStep();
    parts_.undoButton->setEnabled(true);
    if (undoCount >= maxUndoSteps) parts_.redoButton->setEnabled(false);
}

void ProtocolControler::redoAction() {
    redoOneStep(); // changes no button: kept
}

void ProtocolControler::setUndoableGroup(std::string_view label) {
    if (!manager_) return;
    manager_->beginGroup();
    manager_->setActionName(label);
}

void ProtocolControler::endUndoableGroup() {
    if (manager_) manager_->endGroup();
}

void ProtocolControler::shutDownProtocol() {
    parts_.desktop.stopModal(1);
}

std::int64_t ProtocolControler::showProtocolWindow() {
    if (protocolWindow->visible()) {
        protocolWindow->orderOut();
        return 0;
    }
    protocolWindow->attachAsChildOf(*parts_.dialog);
    protocolWindow->makeKeyAndOrderFront();
    return 0;
}

void ProtocolControler::forceHideProtocolWindow() {
    if (protocolWindow->visible()) protocolWindow->orderOut();
}

void ProtocolControler::dumpUndo() {
    // The list of recorded actions has no source and is always empty: the view gets the single space. Kept.
    undoView->setText(undoListing(""));
}

} // namespace chromalog
