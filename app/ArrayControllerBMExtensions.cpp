// SPDX-License-Identifier: MIT
#include "app/ArrayControllerBMExtensions.h"

std::optional<NotebookRow> selectedObject(const NotebooksController& controller)
{
    const std::vector<NotebookRow> selected = controller.selectedObjects();
    return selected.empty() ? std::nullopt : std::optional(selected.front());
}
