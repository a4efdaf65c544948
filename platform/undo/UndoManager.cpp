// SPDX-License-Identifier: MIT
#include "platform/undo/UndoManager.h"

namespace platform {

void UndoManager::registerUndo(std::function<void()> action)
{
    if (m_phase == Phase::Undoing) {
        m_redoStack.push_back(std::move(action));
        return;
    }
    // A new change makes what was undone before it impossible to do again.
    if (m_phase == Phase::Recording)
        m_redoStack.clear();
    m_undoStack.push_back(std::move(action));
}

void UndoManager::undo() { runLast(m_undoStack, Phase::Undoing); }

void UndoManager::redo() { runLast(m_redoStack, Phase::Redoing); }

void UndoManager::runLast(Stack& stack, Phase phase)
{
    if (stack.empty() || m_phase != Phase::Recording)
        return;
    const std::function<void()> action = std::move(stack.back());
    stack.pop_back();
    m_phase = phase;
    action();
    m_phase = Phase::Recording;
}

void UndoManager::removeAllActions()
{
    m_undoStack.clear();
    m_redoStack.clear();
}

} // namespace platform
