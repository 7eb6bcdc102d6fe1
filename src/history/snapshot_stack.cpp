#include "history/snapshot_stack.h"

#include <utility>

namespace chromalog {

void SnapshotStack::setLevelLimit(int levels) {
    levels_ = levels;
    hold(undo_);
    hold(redo_);
}

void SnapshotStack::hold(Steps& steps) const {
    while (levels_ > 0 && steps.size() > static_cast<std::size_t>(levels_))
        steps.pop_front();
}

void SnapshotStack::beginGroup() {
    if (groupDepth_++ == 0) open_ = {};
}

void SnapshotStack::registerUndo(UndoAction action) {
    if (groupDepth_ > 0) open_.actions.push_back(std::move(action));
}

void SnapshotStack::setActionName(std::string_view name) {
    if (groupDepth_ > 0) open_.name = name;
}

void SnapshotStack::endGroup() {
    if (groupDepth_ == 0 || --groupDepth_ > 0) return;
    Step step = std::exchange(open_, {});
    if (step.actions.empty()) return; // an empty group is no step
    Steps one;
    one.push_back(std::move(step));
    push(one);
}

void SnapshotStack::registerStep(UndoAction action) {
    beginGroup();
    try {
        setActionName(action.label);
        registerUndo(std::move(action));
    } catch (...) {
        --groupDepth_;
        throw;
    }
    endGroup();
}

void SnapshotStack::push(Steps& one) {
    Steps& target = phase_ == Phase::undoing ? redo_ : undo_;
    target.splice(target.end(), one);
    hold(target);
    if (phase_ == Phase::recording) redo_.clear(); // a new change ends what could be redone
}

void SnapshotStack::closeGroups() {
    while (groupDepth_ > 0)
        endGroup();
}

void SnapshotStack::undo() {
    closeGroups();
    invokeLast(undo_, Phase::undoing);
}

void SnapshotStack::redo() {
    closeGroups();
    invokeLast(redo_, Phase::redoing);
}

void SnapshotStack::invokeLast(Steps& steps, Phase phase) {
    if (steps.empty() || phase_ != Phase::recording) return;
    Steps running, inverse(1); // its room is had before anything is undone
    running.splice(running.end(), steps, std::prev(steps.end()));
    auto& actions = running.back().actions;
    phase_ = phase;
    beginGroup();
    const auto settle = [&] {
        groupDepth_ = 0;
        inverse.back() = std::exchange(open_, {});
        if (!actions.empty()) steps.splice(steps.end(), running);
        if (!inverse.back().actions.empty()) push(inverse);
        phase_ = Phase::recording;
    };
    try {
        setActionName(running.back().name);
        for (; !actions.empty(); actions.pop_back())
            invoke_(actions.back());
    } catch (...) {
        settle();
        throw;
    }
    settle();
}

std::vector<std::string> SnapshotStack::undoNames() const {
    std::vector<std::string> names;
    for (const Step& step : undo_)
        names.push_back(step.name);
    return names;
}

std::vector<std::string> SnapshotStack::redoNames() const {
    std::vector<std::string> names;
    for (auto step = redo_.rbegin(); step != redo_.rend(); ++step)
        names.push_back(step->name);
    return names;
}

std::vector<std::string> SnapshotStack::undoWords() const {
    std::vector<std::string> words;
    for (const Step& step : undo_)
        words.push_back(step.actions.front().words);
    return words;
}

std::vector<std::string> SnapshotStack::redoWords() const {
    std::vector<std::string> words;
    for (auto step = redo_.rbegin(); step != redo_.rend(); ++step)
        words.push_back(step->actions.front().words);
    return words;
}

void SnapshotStack::setWords(std::string_view latest, std::string_view before) {
    auto step = undo_.rbegin();
    for (const std::string_view words : {latest, before}) {
        if (step == undo_.rend()) return;
        if (!words.empty()) step->actions.front().words = words;
        ++step;
    }
}

const Snapshot* SnapshotStack::latest() const {
    if (!open_.actions.empty()) return open_.actions.back().snapshot.get();
    return undo_.empty() ? nullptr : undo_.back().actions.back().snapshot.get();
}

std::size_t SnapshotStack::storedBytes() const {
    std::unordered_set<const void*> counted;
    std::size_t bytes = 0;
    for (const Steps* steps : {&undo_, &redo_})
        for (const Step& step : *steps)
            for (const UndoAction& action : step.actions)
                bytes += action.snapshot->bytesBeside(counted);
    return bytes;
}

} // namespace chromalog
