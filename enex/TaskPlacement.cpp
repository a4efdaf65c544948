// SPDX-License-Identifier: MIT
#include "enex/TaskPlacement.h"

#include "enex/MarkupTags.h"

#include <QHash>

#include <algorithm>
#include <optional>

namespace {

using Tag = MarkupTags::Tag;

// The lines of the tasks of one group.
class TaskGroup {
public:
    void add(const EnexTask& task) { m_tasks.push_back(&task); }

    [[nodiscard]] QByteArray lines(TaskBox box) const
    {
        std::vector<const EnexTask*> tasks = m_tasks;
        const bool haveOrder = std::none_of(tasks.begin(), tasks.end(), [](const EnexTask* task) {
            return task->sortWeight.isEmpty();
        });
        if (haveOrder) {
            std::stable_sort(tasks.begin(), tasks.end(),
                             [](const EnexTask* left, const EnexTask* right) {
                                 return left->sortWeight < right->sortWeight;
                             });
        }
        QByteArray lines;
        for (const EnexTask* task : tasks)
            lines += "<div>" + boxOf(*task, box) + task->text().toHtmlEscaped().toUtf8() + "</div>";
        return lines;
    }

private:
    static QByteArray boxOf(const EnexTask& task, TaskBox box)
    {
        if (box == TaskBox::Character)
            return task.isCompleted() ? "\u2611\uFE0E " : "\u2610 ";
        return task.isCompleted() ? "<en-todo checked=\"true\"/>" : "<en-todo checked=\"false\"/>";
    }

    std::vector<const EnexTask*> m_tasks;
};

// The name of the task group that a tag stands for; empty for any other tag.
QByteArray groupOfTag(const Tag& tag)
{
    const std::optional<QByteArrayView> style = tag.attribute("style");
    if (!style || !style->contains("en-task-group"))
        return {};
    bool isGroup = false;
    QByteArray name;
    for (const QByteArray& declaration : style->toByteArray().split(';')) {
        const qsizetype colon = declaration.indexOf(':');
        const QByteArray property = declaration.first(std::max<qsizetype>(colon, 0)).trimmed();
        if (property == "--en-task-group" || property == "-en-task-group")
            isGroup = declaration.sliced(colon + 1).trimmed() == "true";
        else if (property == "--en-id" || property == "-en-id")
            name = declaration.sliced(colon + 1).trimmed();
    }
    return isGroup ? name : QByteArray();
}

class Body {
public:
    Body(const QByteArray& markup, const std::vector<EnexTask>& tasks, TaskBox box)
        : m_markup(markup)
        , m_box(box)
    {
        for (const EnexTask& task : tasks) {
            const auto known = m_groupIndexes.constFind(task.group);
            if (known == m_groupIndexes.constEnd()) {
                m_groupIndexes.insert(task.group, m_groups.size());
                m_groups.push_back({});
            }
            m_groups[m_groupIndexes.value(task.group)].add(task);
        }
        m_isPlaced.resize(m_groups.size());
    }

    [[nodiscard]] QByteArray withTasks()
    {
        find();
        QByteArray result;
        qsizetype position = 0;
        for (const Place& place : m_places) {
            result += QByteArrayView(m_markup).sliced(position, place.start - position);
            result += m_groups[place.group].lines(m_box);
            position = m_isWellFormed ? place.end : place.start;
        }
        QByteArray rest;
        for (std::size_t index = 0; index < m_groups.size(); ++index) {
            if (!m_isPlaced[index])
                rest += m_groups[index].lines(m_box);
        }
        return result + ending(position, rest);
    }

private:
    struct Place {
        std::size_t group;
        qsizetype start;
        qsizetype end;
    };

    void find()
    {
        MarkupTags tags(m_markup);
        while (const std::optional<Tag> tag = tags.next()) {
            if (!m_firstTag)
                m_firstTag = *tag;
            if (tag->kind == Tag::Kind::End)
                end(*tag);
            else
                begin(*tag);
        }
        m_readableEnd = tags.readableEnd();
        m_isWellFormed = m_isWellFormed && m_open.empty() && m_readableEnd == m_markup.size();
    }

    void begin(const Tag& tag)
    {
        const bool isInGroup = m_openPlaceDepth > 0;
        const QByteArray name = isInGroup ? QByteArray() : groupOfTag(tag);
        const auto group =
            name.isEmpty() ? m_groupIndexes.constEnd() : m_groupIndexes.constFind(name);
        const bool isFirst = group != m_groupIndexes.constEnd() && !m_isPlaced[group.value()];
        if (isFirst) {
            m_isPlaced[group.value()] = true;
            m_places.push_back({group.value(), tag.start, tag.end});
        }
        if (tag.kind == Tag::Kind::Empty)
            return;
        m_open.push_back(tag.name);
        if (isFirst)
            m_openPlaceDepth = m_open.size();
    }

    void end(const Tag& tag)
    {
        m_lastEnd = tag;
        if (tag.name == "en-note")
            m_noteEnd = tag;
        if (m_open.empty() || m_open.back() != tag.name) {
            m_isWellFormed = false;
            return;
        }
        if (m_openPlaceDepth == m_open.size()) {
            m_places.back().end = tag.end;
            m_openPlaceDepth = 0;
        }
        m_open.pop_back();
    }

    // What follows the last place, with more lines before the body's end.
    [[nodiscard]] QByteArray ending(qsizetype position, const QByteArray& lines) const
    {
        const QByteArray rest = m_markup.sliced(position);
        if (lines.isEmpty())
            return rest;
        if (!m_firstTag)
            return rest + "<en-note>" + lines + "</en-note>";
        if (m_isWellFormed && m_firstTag->kind == Tag::Kind::Empty &&
            m_firstTag->start >= position) {
            // The body's one element is written in the short form.
            return m_markup.sliced(position, m_firstTag->start - position) + "<" +
                   m_firstTag->name.toByteArray() + m_firstTag->attributes.toByteArray() + ">" +
                   lines + "</" + m_firstTag->name.toByteArray() + ">" +
                   m_markup.sliced(m_firstTag->end);
        }
        // Behind what nothing ends, the lines would be part of it.
        qsizetype place = m_readableEnd;
        if (m_noteEnd)
            place = m_noteEnd->start;
        else if (m_isWellFormed && m_lastEnd)
            place = m_lastEnd->start;
        place = std::max(place, position);
        return m_markup.sliced(position, place - position) + lines + m_markup.sliced(place);
    }

    QByteArray m_markup;
    TaskBox m_box;
    std::vector<TaskGroup> m_groups;
    QHash<QByteArray, std::size_t> m_groupIndexes;
    std::vector<bool> m_isPlaced;

    std::vector<Place> m_places;
    std::vector<QByteArrayView> m_open;
    // How many elements are open inside the last place, itself included, counted from the body's
    // beginning.
    std::size_t m_openPlaceDepth = 0;
    bool m_isWellFormed = true;
    std::optional<Tag> m_firstTag;
    std::optional<Tag> m_lastEnd;
    std::optional<Tag> m_noteEnd;
    qsizetype m_readableEnd = 0;
};

} // namespace

QByteArray bodyWithTasks(const QByteArray& body, const std::vector<EnexTask>& tasks, TaskBox box)
{
    return tasks.empty() ? body : Body(body, tasks, box).withTasks();
}
