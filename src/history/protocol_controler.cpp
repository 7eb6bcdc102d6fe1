#include "history/protocol_controler.h"

#include "history/undo_labels.h"
#include "host/global_record.h"
#include "host/globals.h"

namespace chromalog {
namespace {

constexpr std::int16_t kUndoLimit = 20;

std::span<std::byte> bytesOf(GlobalRecord& record) {
    return std::as_writable_bytes(std::span(&record, 1));
}

} // namespace

ProtocolControler::ProtocolControler(HistoryDesk& desk) : desk_(desk) {
    form_ = desk_.desktop().loadForm("ProtocolPanel", formOwner());
    if (!form_) desk_.desktop().log("failed to load ProtocolPanel xib");
    gProtocolController = this;
    if (protocolWindow.connected()) {
        manager_.emplace([this](const UndoAction& action) { pushgData(action); });
        protocolWindow->onClose = [this] { forceHideProtocolWindow(); };
        protocolWindow->attachAsChildOf(desk_.getChromalogWindow());
    }
    desk_.record().undoLimit = kUndoLimit;
    undoCount = 0;
    desk_.desktop().log("Done with init protocolcontroler");
}

ProtocolControler::~ProtocolControler() {
    if (gProtocolController == this) gProtocolController = nullptr;
}

ProtocolControler* ProtocolControler::protocolController() {
    return gProtocolController;
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
    desk_.savePrefs();
    if (manager_) {
        const auto snapshot = std::make_shared<Snapshot>(bytesOf(desk_.record()), manager_->latest());
        manager_->setLevelLimit(desk_.record().undoLimit);
        manager_->registerStep({snapshot, std::string(label)});
    }
    maxUndoSteps = ++undoCount;
    desk_.disableRedo();
    desk_.enableUndo();
}

void ProtocolControler::pushgData(const UndoAction& action) {
    const std::span<std::byte> record = bytesOf(desk_.record());
    manager_->registerStep({std::make_shared<Snapshot>(record, action.snapshot.get()), action.label});
    action.snapshot->restore(record);
}

bool ProtocolControler::mayUndo() const {
    return undoCount > 0 && manager_ && manager_->canUndo();
}

/// Counts are stored first: a clear, a deletion or a drop changed only the view's, and could not be redone.
void ProtocolControler::undoOneStep() {
    desk_.storeViewCounts();
    manager_->undo();
    --undoCount; // with the swap, before what only shows it
    desk_.restoreUndoUI();
}

void ProtocolControler::redoOneStep() {
    desk_.storeViewCounts(); // also where there is nothing to redo: the views take them back below
    if (manager_) manager_->redo();
    ++undoCount;
    desk_.restoreUndoUI();
    desk_.makeActiveWindow();
}

void ProtocolControler::undoOutAction() {
    if (!mayUndo()) return;
    undoOneStep();
    desk_.enableRedo();
    if (undoCount < 1) desk_.disableUndo();
}

void ProtocolControler::undoAction() {
    if (!mayUndo()) return;
    undoOneStep();
    desk_.makeActiveWindow();
    desk_.enableRedo();
    if (undoCount < 1) desk_.disableUndo();
}

void ProtocolControler::redoOutAction() {
    redoOneStep();
    desk_.enableUndo();
    if (undoCount >= maxUndoSteps) desk_.disableRedo();
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
    desk_.desktop().stopModal(1);
}

std::int64_t ProtocolControler::showProtocolWindow() {
    if (protocolWindow->visible()) {
        protocolWindow->orderOut();
        return 0;
    }
    protocolWindow->attachAsChildOf(desk_.getChromalogWindow());
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
