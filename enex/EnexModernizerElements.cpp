// SPDX-License-Identifier: MIT
//
// The elements that EnexModernizer reads, and the fields of a task that their texts go to.
#include "enex/EnexModernizer.h"

#include <algorithm>
#include <array>

// The elements that are read, by what they stand in.
std::span<const EnexModernizer::Element> EnexModernizer::elementsIn(Place place)
{
    using L = QLatin1String;
    static constexpr std::array ofNote = {
        Element{L("title"), Text::Passed},
        Element{L("content"), Text::Content},
        Element{L("created"), Text::Trimmed},
        Element{L("updated"), Text::Trimmed},
        Element{L("tag"), Text::Trimmed},
        Element{L("note-attributes"), Text::None, Place::NoteAttributes},
        Element{L("resource"), Text::None, Place::Resource},
        Element{L("task"), Text::None, Place::Task},
    };
    static constexpr std::array ofNoteAttributes = {
        Element{L("source"), Text::Trimmed},
        Element{L("source-url"), Text::Trimmed},
    };
    static constexpr std::array ofResource = {
        Element{L("data"), Text::Passed},
        Element{L("mime"), Text::Trimmed},
        Element{L("width"), Text::Trimmed},
        Element{L("height"), Text::Trimmed},
        Element{L("resource-attributes"), Text::None, Place::ResourceAttributes},
    };
    static constexpr std::array ofResourceAttributes = {
        Element{L("timestamp"), Text::Trimmed},
        Element{L("file-name"), Text::FileName},
    };
    static constexpr std::array ofTask = {
        Element{L("title"), Text::OfTask},
        Element{L("taskStatus"), Text::OfTask},
        Element{L("taskFlag"), Text::OfTask},
        Element{L("sortWeight"), Text::OfTask},
        Element{L("taskGroupNoteLevelID"), Text::OfTask},
        Element{L("dueDate"), Text::OfTask},
        Element{L("dueDateUIOption"), Text::OfTask},
        Element{L("timeZone"), Text::OfTask},
        Element{L("recurrence"), Text::OfTask},
        Element{L("reminder"), Text::None, Place::Reminder},
    };
    static constexpr std::array ofReminder = {
        Element{L("reminderDate"), Text::OfTask},
        Element{L("reminderDateUIOption"), Text::OfTask},
        Element{L("timeZone"), Text::OfTask},
    };
    switch (place) {
    case Place::Note:
        return ofNote;
    case Place::NoteAttributes:
        return ofNoteAttributes;
    case Place::Resource:
        return ofResource;
    case Place::ResourceAttributes:
        return ofResourceAttributes;
    case Place::Task:
        return ofTask;
    case Place::Reminder:
        return ofReminder;
    case Place::Outside:
        break;
    }
    return {};
}

const EnexModernizer::Element* EnexModernizer::knownElement(const QString& name) const
{
    const std::span<const Element> elements = elementsIn(m_place);
    const auto found =
        std::find_if(elements.begin(), elements.end(),
                     [&name](const Element& element) { return element.name == name; });
    return found == elements.end() ? nullptr : &*found;
}

void EnexModernizer::endTaskText(const QString& name)
{
    EnexTask& task = m_tasks.back();
    const QByteArray text = m_collected.trimmed();
    if (m_place == Place::Reminder) {
        EnexTask::Moment& reminder = task.reminders.back();
        if (name == QLatin1String("reminderDate"))
            reminder.stamp = text;
        else if (name == QLatin1String("reminderDateUIOption"))
            reminder.option = text;
        else
            reminder.timeZone = text;
    } else if (name == QLatin1String("title")) {
        task.title = text;
    } else if (name == QLatin1String("taskStatus")) {
        task.status = text;
    } else if (name == QLatin1String("taskFlag")) {
        task.flag = text;
    } else if (name == QLatin1String("sortWeight")) {
        task.sortWeight = text;
    } else if (name == QLatin1String("taskGroupNoteLevelID")) {
        task.group = text;
    } else if (name == QLatin1String("dueDate")) {
        task.due.stamp = text;
    } else if (name == QLatin1String("dueDateUIOption")) {
        task.due.option = text;
    } else if (name == QLatin1String("timeZone")) {
        task.due.timeZone = text;
    } else {
        task.recurrence = text;
    }
}
