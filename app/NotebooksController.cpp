// SPDX-License-Identifier: MIT
#include "app/NotebooksController.h"

namespace {

// Such a notebook would end an import of all: it is checked by itself, or not at all.
bool isUnreadable(const NotebookRow& row)
{
    return !row.problem.isEmpty();
}

} // namespace

NotebooksController::NotebooksController(NotebooksModel& notebooks)
    : m_notebooks(notebooks)
{
    setSourceModel(&notebooks);
    setFilterKeyColumn(NotebooksModel::NameColumn);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    setDynamicSortFilter(true);
    sort(NotebooksModel::NameColumn, Qt::AscendingOrder);
}

void NotebooksController::setSearchedText(const QString& text)
{
    setFilterFixedString(text.trimmed());
}

bool NotebooksController::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const QString& leftName = m_notebooks.rows()[static_cast<std::size_t>(left.row())].name;
    const QString& rightName = m_notebooks.rows()[static_cast<std::size_t>(right.row())].name;
    return leftName.compare(rightName, Qt::CaseInsensitive) < 0;
}

std::vector<NotebookRow> NotebooksController::arrangedObjects() const
{
    std::vector<NotebookRow> objects;
    for (int row = 0; row < rowCount(); ++row)
        objects.push_back(
            m_notebooks.rows()[static_cast<std::size_t>(mapToSource(index(row, 0)).row())]);
    return objects;
}

Qt::CheckState NotebooksController::importState() const
{
    std::vector<NotebookRow> shown = arrangedObjects();
    std::erase_if(shown, isUnreadable);
    const auto checked = std::count_if(shown.begin(), shown.end(),
                                       [](const NotebookRow& row) { return row.import; });
    if (checked == 0)
        return Qt::Unchecked;
    return checked == static_cast<std::ptrdiff_t>(shown.size()) ? Qt::Checked
                                                                : Qt::PartiallyChecked;
}

void NotebooksController::setImportOfShown(bool import)
{
    const std::vector<NotebookRow> shown = arrangedObjects();
    for (int row = 0; row < rowCount(); ++row) {
        const bool checks = import && !isUnreadable(shown[static_cast<std::size_t>(row)]);
        setData(index(row, NotebooksModel::ImportColumn), checks ? Qt::Checked : Qt::Unchecked,
                Qt::CheckStateRole);
    }
}

std::vector<NotebookRow> NotebooksController::selectedObjects() const
{
    const std::vector<NotebookRow> shown = arrangedObjects();
    std::vector<NotebookRow> selected;
    for (const int row : m_selectedRows) {
        if (row >= 0 && row < static_cast<int>(shown.size()))
            selected.push_back(shown[static_cast<std::size_t>(row)]);
    }
    return selected;
}
