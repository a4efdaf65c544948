// SPDX-License-Identifier: MIT
#include "enex/NoteCounts.h"

NoteCounts& NoteCounts::operator+=(const NoteCounts& other)
{
    for (const auto count :
         {&NoteCounts::resources, &NoteCounts::shownResources, &NoteCounts::keptResources,
          &NoteCounts::leftOutResources, &NoteCounts::resourcesOfSkippedNotes,
          &NoteCounts::missingAttachments, &NoteCounts::encryptedPassages, &NoteCounts::tasks,
          &NoteCounts::taskLines, &NoteCounts::leftOutTasks, &NoteCounts::tasksOfSkippedNotes,
          &NoteCounts::links, &NoteCounts::resolvedLinks})
        this->*count += other.*count;
    return *this;
}

NoteCounts NoteCounts::ofSkippedNote() const
{
    NoteCounts skipped;
    skipped.resources = skipped.resourcesOfSkippedNotes = resources;
    skipped.tasks = skipped.tasksOfSkippedNotes = tasks;
    return skipped;
}
