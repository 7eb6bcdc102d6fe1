#pragma once

#include "history/snapshot.h"

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// What undoes one change: the state before it, and the label that its own inverse gets again.
struct UndoAction {
    std::shared_ptr<const Snapshot> snapshot;
    std::string label;
    std::string words{}; ///< what undoing it does, for people; its inverse gets them too
};

/// The undo manager: steps that can be undone and steps that can be redone, each a group of registered
/// actions under a name. To undo a step is to invoke its actions, latest first; what they register meanwhile
/// becomes the step that redoes it, and the other way round. Nothing outside of a group is recorded. Where
/// memory runs out, no step is lost: what was invoked until then can be redone, the rest can be undone still.
class SnapshotStack {
  public:
    using Invoke = std::function<void(const UndoAction&)>;
    /// `invoke` puts a snapshot back and registers the inverse.
    explicit SnapshotStack(Invoke invoke) : invoke_(std::move(invoke)) {}

    /// Steps kept on either side; the oldest go first. 0 or less: no limit. Applied now and at every push.
    void setLevelLimit(int levels);

    void beginGroup(); ///< groups nest; the outermost one is a step
    void registerUndo(UndoAction);
    void setActionName(std::string_view name); ///< of the group that is open
    void endGroup();
    /// A group of this one action, named by its label. Where memory runs out, no group stays open.
    void registerStep(UndoAction);

    /// Other words for the step that is undone next, and for the one before it; nothing where there is none.
    void setWords(std::string_view latest, std::string_view before);

    bool canUndo() const { return groupDepth_ > 0 ? !open_.actions.empty() : !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    void undo(); ///< closes open groups first; nothing where there is no step
    void redo();

    std::vector<std::string> undoNames() const; ///< the last is undone next
    std::vector<std::string> redoNames() const; ///< the first is redone next
    std::vector<std::string> undoWords() const; ///< the last is undone next
    std::vector<std::string> redoWords() const; ///< the first is redone next

    /// The state most recently recorded for undo; null where there is none.
    const Snapshot* latest() const;
    std::size_t storedBytes() const; ///< memory of all snapshots, shared pages counted once

  private:
    struct Step {
        std::string name;
        std::vector<UndoAction> actions;
    };
    using Steps = std::list<Step>; ///< the latest at the back; steps move from list to list without memory
    enum class Phase { recording, undoing, redoing };

    void closeGroups();
    void push(Steps& one);
    void hold(Steps&) const;
    void invokeLast(Steps&, Phase);

    Invoke invoke_;
    Steps undo_, redo_;
    Step open_; ///< being collected while groupDepth_ > 0
    int groupDepth_ = 0;
    int levels_ = 0;
    Phase phase_ = Phase::recording;
};

} // namespace chromalog
