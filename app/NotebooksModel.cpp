// SPDX-License-Identifier: MIT
#include "app/NotebooksModel.h"

#include "platform/core/LocalizedStrings.h"

#include <QLocale>

using platform::localizedString;

QString NotebooksModel::identifierOfColumn(int column)
{
    switch (column) {
    case ImportColumn:
        return QStringLiteral("Import");
    case NameColumn:
        return QStringLiteral("Name");
    case NumberOfNotesColumn:
        return QStringLiteral("NumberOfNotes");
    default:
        return {};
    }
}

void NotebooksModel::insertRow(int index, const NotebookRow& row)
{
    beginInsertRows({}, index, index);
    m_rows.insert(m_rows.begin() + index, row);
    endInsertRows();
}

void NotebooksModel::removeRow(int index)
{
    beginRemoveRows({}, index, index);
    m_rows.erase(m_rows.begin() + index);
    endRemoveRows();
}

void NotebooksModel::replaceRow(int index, const NotebookRow& row)
{
    m_rows[static_cast<std::size_t>(index)] = row;
    Q_EMIT dataChanged(this->index(index, 0), this->index(index, ColumnCount - 1));
}

int NotebooksModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int NotebooksModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant NotebooksModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const NotebookRow& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case ImportColumn:
        if (role == Qt::CheckStateRole)
            return static_cast<int>(row.import ? Qt::Checked : Qt::Unchecked);
        // The box has no text beside it; who cannot see the row hears which notebook it belongs to.
        if (role == Qt::AccessibleTextRole)
            return localizedString("Import “%1”").arg(row.name);
        return {};
    case NameColumn:
        if (role == Qt::DisplayRole)
            return row.problem.isEmpty() ? row.name
                                         : localizedString("%1 (cannot be read)").arg(row.name);
        if (role == Qt::ToolTipRole ||
            (role == Qt::AccessibleDescriptionRole && !row.problem.isEmpty()))
            return row.problem.isEmpty() ? row.name : row.problem;
        return {};
    case NumberOfNotesColumn:
        // What was counted before the place that cannot be read says nothing.
        if (role == Qt::DisplayRole)
            return row.problem.isEmpty() ? QLocale().toString(row.numberOfNotes) : QString();
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

bool NotebooksModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != ImportColumn || role != Qt::CheckStateRole)
        return false;
    m_rows[static_cast<std::size_t>(index.row())].import = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

Qt::ItemFlags NotebooksModel::flags(const QModelIndex& index) const
{
    // The focus of the keyboard goes where selection may go; the view sees to it that nothing is
    // selected.
    const Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == ImportColumn ? all | Qt::ItemIsUserCheckable : all;
}

QVariant NotebooksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole && section != ImportColumn)
        return static_cast<int>((section == NumberOfNotesColumn ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    switch (section) {
    case ImportColumn:
        return role == Qt::AccessibleTextRole ? localizedString("Import") : QString();
    case NameColumn:
        return localizedString("Notebook");
    case NumberOfNotesColumn:
        return localizedString("Notes");
    default:
        return {};
    }
}
