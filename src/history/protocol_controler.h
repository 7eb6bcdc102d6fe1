#pragma once

#include "desktop/desktop.h"
#include "history/snapshot_stack.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace chromalog {

struct GlobalRecord;

/// What the history of a pick works on. All of it lives longer than the history.
struct HistoryParts {
    Desktop& desktop;
    GlobalRecord& record; ///< what is snapshotted, whole
    Outlet<Window>& dialog;
    Outlet<Button>&undoButton, &redoButton;
    std::function<void()> save;            ///< the record as it is, before it changes
    std::function<void()> storeViewCounts; ///< the views' counts into the record, as saving does
    std::function<void()> showRecord;      ///< after a swap
};

/// The history of one pick and its floating panel. Every change to the lists is announced before it is made;
/// its undo swaps the whole record back. Without the panel's interface file there is no undo manager, and
/// steps are only counted.
class ProtocolControler {
  public:
    explicit ProtocolControler(HistoryParts); ///< loads the panel
    ProtocolControler(const ProtocolControler&) = delete;
    ProtocolControler& operator=(const ProtocolControler&) = delete;

    static ProtocolControler* protocolController(); ///< of the pick that runs; null outside one

    /// Before a change. The label is localised already; people are told of it in the words of its key.
    void setUndoablePosition(std::string_view label, std::string_view labelKey = {});
    /// After a change: other words for the latest step, and for the one before it unless they are empty.
    void describeSteps(std::string_view latest, std::string_view before = {}) noexcept;
    /// The swap itself: what the record holds becomes the inverse, `action` goes over the record.
    void pushgData(const UndoAction& action);

    void undoOutAction(); ///< from the main window's buttons
    void redoOutAction();
    void undoAction(); ///< from the panel's controls
    void redoAction();

    void setUndoableGroup(std::string_view label); ///< the steps up to endUndoableGroup are undone as one
    void endUndoableGroup();
    void shutDownProtocol(); ///< ends the modal loop with code 1

    std::int64_t showProtocolWindow(); ///< shows the panel or hides it again; 0
    void forceHideProtocolWindow();
    void dumpUndo();

    Outlet<Window>& getProtocolWindow() { return protocolWindow; }
    Outlet<TextView>& getUndoView() { return undoView; }
    Outlet<TextView>& getRedoView() { return redoView; }

    std::int16_t undoSteps() const { return undoCount; }
    std::int16_t undoStepsAtMost() const { return maxUndoSteps; }
    /// Null without a panel.
    const SnapshotStack* manager() const { return manager_ ? &*manager_ : nullptr; }

  private:
    FormOwner formOwner();
    bool mayUndo() const;
    void showSteps() noexcept; ///< in tool tips and in our own list
    void undoOneStep();
    void redoOneStep();

    HistoryParts parts_;
    Outlet<Window> protocolWindow;
    Outlet<TextView> undoView;
    Outlet<TextView> redoView;
    Outlet<TextField> nubersUndo;
    Outlet<Button> undoStep, redoStep; ///< the panel's buttons
    Outlet<RowList> historySteps;      ///< every step, the latest first
    std::int16_t undoCount = 0;        ///< steps that may be undone; the manager's limit does not cap it
    std::int16_t maxUndoSteps = 0;     ///< undoCount after the latest new change: the ceiling of redo
    std::optional<SnapshotStack> manager_;
    std::unique_ptr<Form> form_; ///< declared last: its controls go before the outlets do
};

} // namespace chromalog
