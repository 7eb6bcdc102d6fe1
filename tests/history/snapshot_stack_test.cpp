#include "history/snapshot_stack.h"

#include "support/failing_new.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <new>

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One byte of state under a manager, changed as the history changes its record.
class SnapshotStackTest : public testing::Test {
  protected:
    void change(int value, std::string label) {
        stack.setLevelLimit(limit);
        stack.beginGroup();
        stack.registerUndo({std::make_shared<Snapshot>(state, stack.latest()), label});
        stack.setActionName(label);
        stack.endGroup();
        state[0] = static_cast<std::byte>(value);
    }
    int value() const { return std::to_integer<int>(state[0]); }

    std::array<std::byte, 1> state{};
    int limit = 3;
    int invocationsUntilFailure = -1;
    SnapshotStack stack{[this](const UndoAction& action) {
        if (invocationsUntilFailure-- == 0) throw std::bad_alloc();
        stack.beginGroup();
        stack.registerUndo({std::make_shared<Snapshot>(state, action.snapshot.get()), action.label});
        stack.endGroup();
        action.snapshot->restore(state);
    }};
};

TEST_F(SnapshotStackTest, StartsWithNothingToUndoOrRedo) {
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.canRedo());
    stack.undo();
    stack.redo();
    EXPECT_EQ(stack.latest(), nullptr);
    EXPECT_EQ(stack.storedBytes(), 0u);
}

TEST_F(SnapshotStackTest, AStepThatFindsNoMemoryLeavesNoGroupOpen) {
    stack.setLevelLimit(limit);
    const std::string label = "a label that is longer than a text without memory of its own";
    bool failed = true;
    int failures = 0;
    for (long n = 1; failed; ++n) {
        UndoAction action{std::make_shared<Snapshot>(state, nullptr), label};
        test::FailingNew failing(n);
        try {
            stack.registerStep(std::move(action));
            failed = false;
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        failing.stop();
    }
    EXPECT_GE(failures, 2);
    change(1, "after it");
    EXPECT_THAT(stack.undoNames(), ElementsAre(label, "after it"));
}

TEST_F(SnapshotStackTest, UndoesAndRedoesInOrderWithNames) {
    change(1, "one");
    change(2, "two");
    EXPECT_THAT(stack.undoNames(), ElementsAre("one", "two"));
    stack.undo();
    EXPECT_EQ(value(), 1);
    EXPECT_THAT(stack.undoNames(), ElementsAre("one"));
    EXPECT_THAT(stack.redoNames(), ElementsAre("two"));
    stack.undo();
    EXPECT_EQ(value(), 0);
    EXPECT_THAT(stack.redoNames(), ElementsAre("one", "two"));
    stack.redo();
    stack.redo();
    EXPECT_EQ(value(), 2);
    EXPECT_FALSE(stack.canRedo());
}

TEST_F(SnapshotStackTest, AStepThatCouldNotBeUndoneStaysAndSoDoesTheOneThatCouldNotBeRedone) {
    change(1, "one");
    change(2, "two");
    invocationsUntilFailure = 0;
    EXPECT_THROW(stack.undo(), std::bad_alloc);
    EXPECT_EQ(value(), 2);
    EXPECT_THAT(stack.undoNames(), ElementsAre("one", "two"));
    EXPECT_THAT(stack.redoNames(), IsEmpty());
    stack.undo();
    invocationsUntilFailure = 0;
    EXPECT_THROW(stack.redo(), std::bad_alloc);
    EXPECT_EQ(value(), 1);
    EXPECT_THAT(stack.redoNames(), ElementsAre("two"));
    change(3, "three");
    EXPECT_THAT(stack.undoNames(), ElementsAre("one", "three")) << "recording goes on";
    EXPECT_FALSE(stack.canRedo());
}

TEST_F(SnapshotStackTest, AGroupThatIsUndoneHalfWayIsTwoStepsFromThere) {
    stack.beginGroup();
    for (int i = 1; i <= 2; ++i) {
        stack.registerUndo({std::make_shared<Snapshot>(state, nullptr), std::to_string(i)});
        state[0] = static_cast<std::byte>(i);
    }
    stack.setActionName("both");
    stack.endGroup();
    invocationsUntilFailure = 1;
    EXPECT_THROW(stack.undo(), std::bad_alloc);
    EXPECT_EQ(value(), 1);
    stack.undo();
    EXPECT_EQ(value(), 0);
    EXPECT_FALSE(stack.canUndo());
    stack.redo();
    stack.redo();
    EXPECT_EQ(value(), 2);
    EXPECT_FALSE(stack.canRedo());
}

TEST_F(SnapshotStackTest, ForgetsTheOldestStepsPastTheLimit) {
    for (int i = 1; i <= 5; ++i)
        change(i, std::to_string(i));
    EXPECT_THAT(stack.undoNames(), ElementsAre("3", "4", "5"));
    for (int i = 0; i < 5; ++i)
        stack.undo();
    EXPECT_EQ(value(), 2);
}

TEST_F(SnapshotStackTest, ALowerLimitAppliesAtOnceAndNoneKeepsAll) {
    limit = 0;
    for (int i = 1; i <= 50; ++i)
        change(i, "step");
    EXPECT_EQ(stack.undoNames().size(), 50u);
    stack.setLevelLimit(2);
    EXPECT_EQ(stack.undoNames().size(), 2u);
}

TEST_F(SnapshotStackTest, ANewChangeForgetsWhatCouldBeRedone) {
    change(1, "one");
    stack.undo();
    change(2, "two");
    EXPECT_THAT(stack.redoNames(), IsEmpty());
    stack.redo();
    EXPECT_EQ(value(), 2);
}

TEST_F(SnapshotStackTest, AnOuterGroupIsOneStep) {
    stack.beginGroup();
    stack.setActionName("both");
    change(1, "one");
    change(2, "two");
    EXPECT_THAT(stack.undoNames(), IsEmpty());
    stack.endGroup();
    EXPECT_EQ(stack.undoNames().size(), 1u);
    stack.undo();
    EXPECT_EQ(value(), 0);
    stack.redo();
    EXPECT_EQ(value(), 2);
}

TEST_F(SnapshotStackTest, UndoClosesAGroupThatWasLeftOpen) {
    stack.beginGroup();
    change(7, "seven");
    EXPECT_TRUE(stack.canUndo());
    stack.undo();
    EXPECT_EQ(value(), 0);
    EXPECT_THAT(stack.redoNames(), ElementsAre("seven"));
}

TEST_F(SnapshotStackTest, EmptyGroupsAndStrayCallsRecordNothing) {
    stack.beginGroup();
    stack.endGroup();
    stack.endGroup();
    stack.setActionName("lost");
    stack.registerUndo({std::make_shared<Snapshot>(state, nullptr), "lost"});
    EXPECT_FALSE(stack.canUndo());
}

} // namespace
} // namespace chromalog
