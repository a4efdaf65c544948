// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace platform {

// Two stacks of actions. An action registered while undo() runs is one that redoes.
class UndoManager {
public:
    // The target that the action captures must outlive the manager, or be dropped with removeAllActions().
    void registerUndo(std::function<void()> action);

    [[nodiscard]] bool canUndo() const { return !m_undoStack.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redoStack.empty(); }

    // Take back the last change, or do it again; nothing where there is none.
    void undo();
    void redo();

    [[nodiscard]] bool isUndoing() const { return m_phase == Phase::Undoing; }
    [[nodiscard]] bool isRedoing() const { return m_phase == Phase::Redoing; }

    void removeAllActions();

private:
    enum class Phase { Recording, Undoing, Redoing };
    using Stack = std::vector<std::function<void()>>;

    void runLast(Stack& stack, Phase phase);

    Phase m_phase = Phase::Recording;
    Stack m_undoStack;
    Stack m_redoStack;
};

} // namespace platform
