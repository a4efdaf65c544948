// SPDX-License-Identifier: MIT
#pragma once

#include "app/NotebooksModel.h"

#include <QSortFilterProxyModel>

#include <optional>

// Arranges the notebooks for the table: sorted by name without regard to case, and only those whose
// name holds the searched text.
class NotebooksController : public QSortFilterProxyModel {
public:
    explicit NotebooksController(NotebooksModel& notebooks);

    void setSearchedText(const QString& text);

    // The notebooks as they are shown.
    [[nodiscard]] std::vector<NotebookRow> arrangedObjects() const;

    // Whether the notebooks that are shown are to be imported: all, none, or some. None where
    // nothing is shown.
    [[nodiscard]] Qt::CheckState importState() const;
    void setImportOfShown(bool import);

    [[nodiscard]] std::vector<NotebookRow> selectedObjects() const;
    // Rows of the table that are selected. The window never selects any.
    void setSelectedRows(const std::vector<int>& rows) { m_selectedRows = rows; }

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    NotebooksModel& m_notebooks;
    std::vector<int> m_selectedRows;
};
