#pragma once

#include "desktop/desktop.h"
#include "history/snapshot_stack.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace chromalog {

struct GlobalRecord;

/// What the history asks of the dialog around it.
class HistoryDesk {
  public:
    virtual ~HistoryDesk() = default;
    virtual Desktop& desktop() = 0;
    virtual GlobalRecord& record() = 0; ///< what is snapshotted, whole
    virtual void savePrefs() = 0;
    virtual void storeViewCounts() = 0; ///< the views' counts into the record, as savePrefs does
    virtual void restoreUndoUI() = 0;   ///< shows the record after a swap
    virtual void enableUndo() = 0;
    virtual void disableUndo() = 0;
    virtual void enableRedo() = 0;
    virtual void disableRedo() = 0;
    virtual void makeActiveWindow() = 0;
    virtual Window& getChromalogWindow() = 0;
};

/// The history of one pick and its floating panel. Every change to the lists is announced before it is made;
/// its undo swaps the whole record back. Without the panel's interface file there is no undo manager, and
/// steps are only counted.
class ProtocolControler {
  public:
    explicit ProtocolControler(HistoryDesk&); ///< loads the panel and stores itself in gProtocolController
    ~ProtocolControler();
    ProtocolControler(const ProtocolControler&) = delete;
    ProtocolControler& operator=(const ProtocolControler&) = delete;

    static ProtocolControler* protocolController();

    void setUndoablePosition(std::string_view label); ///< before a change; the label is localised already
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
    void undoOneStep();
    void redoOneStep();

    HistoryDesk& desk_;
    Outlet<Window> protocolWindow;
    Outlet<TextView> undoView;
    Outlet<TextView> redoView;
    Outlet<TextField> nubersUndo;
    std::int16_t undoCount = 0;    ///< steps that may be undone; the manager's limit does not cap it
    std::int16_t maxUndoSteps = 0; ///< undoCount after the latest new change: the ceiling of redo
    std::optional<SnapshotStack> manager_;
    std::unique_ptr<Form> form_; ///< declared last: its controls go before the outlets do
};

} // namespace chromalog
