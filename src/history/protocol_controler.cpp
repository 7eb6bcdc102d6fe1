#include "history/protocol_controler.h"

#include "base/translated.h"
#include "history/undo_labels.h"
#include "record/global_record.h"

#include <new>

namespace chromalog {
namespace {

constexpr std::int16_t kUndoLimit = 20;

std::span<std::byte> bytesOf(GlobalRecord& record) {
    return std::as_writable_bytes(std::span(&record, 1));
}

/// The latest first, what was undone above what can be undone.
std::vector<std::string> rowsOf(const std::vector<std::string>& undo, const std::vector<std::string>& redo) {
    std::vector<std::string> rows;
    for (auto step = redo.rbegin(); step != redo.rend(); ++step)
        rows.push_back(translated("Redo: %1", *step));
    rows.push_back(translated("now"));
    for (auto step = undo.rbegin(); step != undo.rend(); ++step)
        rows.push_back(translated("Undo: %1", *step));
    return rows;
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
    showSteps();
    parts_.desktop.log("Done with init protocolcontroler");
}

FormOwner ProtocolControler::formOwner() {
    FormOwner owner;
    owner.outlets = {{"protocolWindow", &protocolWindow},
                     {"undoView", &undoView},
                     {"redoView", &redoView},
                     {"nubersUndo", &nubersUndo},
                     {"undoAction", &undoStep, true},
                     {"redoAction", &redoStep, true},
                     {"historySteps", &historySteps, true}};
    owner.actions = {{"undoAction:", [this] { undoAction(); }},
                     {"redoAction:", [this] { redoAction(); }},
                     {"showProtocolWindow", [this] { showProtocolWindow(); }},
                     {"dumpUndo", [this] { dumpUndo(); }}};
    return owner;
}

void ProtocolControler::setUndoablePosition(std::string_view label, std::string_view labelKey) {
    parts_.save();
    if (manager_) {
        const auto snapshot = std::make_shared<Snapshot>(bytesOf(parts_.record), manager_->latest());
        manager_->setLevelLimit(parts_.record.undoLimit);
        manager_->registerStep({snapshot, std::string(label),
                                labelKey.empty() ? std::string(label) : translated(stepInWords(labelKey))});
    }
    maxUndoSteps = ++undoCount;
    parts_.redoButton->setEnabled(false);
    parts_.undoButton->setEnabled(true);
    showSteps();
}

void ProtocolControler::describeSteps(std::string_view latest, std::string_view before) noexcept try {
    if (manager_) manager_->setWords(latest, before);
    showSteps();
} catch (const std::bad_alloc&) { // the change itself is made: no words are worth failing it
}

void ProtocolControler::showSteps() noexcept try {
    std::vector<std::string> undo, redo;
    if (mayUndo()) undo = manager_->undoWords();
    if (manager_) redo = manager_->redoWords();
    const std::string undoHelp =
        undo.empty() ? translated("nothing left to undo") : translated("Undo: %1", undo.back());
    const std::string redoHelp =
        redo.empty() ? translated("nothing left to redo") : translated("Redo: %1", redo.front());
    parts_.undoButton->setHelp(undoHelp);
    undoStep->setHelp(undoHelp);
    parts_.redoButton->setHelp(redoHelp);
    redoStep->setHelp(redoHelp);
    historySteps->setRows(rowsOf(undo, redo));
} catch (const std::bad_alloc&) { // the same
}

void ProtocolControler::pushgData(const UndoAction& action) {
    const std::span<std::byte> record = bytesOf(parts_.record);
    manager_->registerStep(
        {std::make_shared<Snapshot>(record, action.snapshot.get()), action.label, action.words});
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
    showSteps();
    parts_.showRecord();
}

void ProtocolControler::redoOneStep() {
    parts_.storeViewCounts(); // also where there is nothing to redo: the views take them back below
    if (manager_) manager_->redo();
    ++undoCount;
    showSteps();
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
