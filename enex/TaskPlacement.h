// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexTask.h"

#include <QByteArray>

#include <vector>

// How a task's box is written.
enum class TaskBox {
    // As a checkbox of the body.
    Tag,
    // As a character: a clipped page knows no checkboxes.
    Character
};

// A body with its tasks as to-do lines: where a task group stands in the body its tasks stand
// instead of its placeholder, in their order; the tasks of no group, and of groups that the body
// does not show, stand at the body's end. Nothing else of the body changes.
//
// body: Evernote's markup in UTF-8; an empty one becomes a body of its own. A group without tasks,
// and all but the first of groups with one name, keep their placeholder. So does every group of a
// body that is not well-formed, where nobody can say how far a placeholder reaches; its tasks stand
// before it.
[[nodiscard]] QByteArray bodyWithTasks(const QByteArray& body, const std::vector<EnexTask>& tasks,
                                       TaskBox box);
