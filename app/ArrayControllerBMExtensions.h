// SPDX-License-Identifier: MIT
#pragma once

#include "app/NotebooksController.h"

// The first of the controller's selected objects; none when nothing is selected.
[[nodiscard]] std::optional<NotebookRow> selectedObject(const NotebooksController& controller);
