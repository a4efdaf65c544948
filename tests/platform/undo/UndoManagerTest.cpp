// SPDX-License-Identifier: MIT
#include "platform/undo/UndoManager.h"

namespace {

class Counter {
public:
    void set(int value)
    {
        manager.registerUndo([this, old = m_value] { set(old); });
        m_value = value;
    }
    [[nodiscard]] int value() const { return m_value; }

    platform::UndoManager manager;

private:
    int m_value = 0;
};

TEST(UndoManagerTest, TakesChangesBackAndDoesThemAgain)
{
    Counter counter;
    counter.set(1);
    counter.set(2);
    counter.manager.undo();
    EXPECT_EQ(counter.value(), 1);
    counter.manager.undo();
    EXPECT_EQ(counter.value(), 0);
    EXPECT_FALSE(counter.manager.canUndo());
    counter.manager.redo();
    counter.manager.redo();
    EXPECT_EQ(counter.value(), 2);
    EXPECT_FALSE(counter.manager.canRedo());
    counter.manager.undo();
    EXPECT_EQ(counter.value(), 1);
}

TEST(UndoManagerTest, ANewChangeForgetsWhatWasUndone)
{
    Counter counter;
    counter.set(1);
    counter.manager.undo();
    counter.set(5);
    EXPECT_FALSE(counter.manager.canRedo());
    counter.manager.redo();
    EXPECT_EQ(counter.value(), 5);
}

TEST(UndoManagerTest, NothingToUndoChangesNothing)
{
    Counter counter;
    counter.manager.undo();
    counter.manager.redo();
    EXPECT_EQ(counter.value(), 0);
    counter.set(1);
    counter.manager.removeAllActions();
    counter.manager.undo();
    EXPECT_EQ(counter.value(), 1);
}

} // namespace
