// SPDX-License-Identifier: MIT
#pragma once

#include "app/NotebookRow.h"

#include <QAbstractTableModel>

#include <vector>

// The notebooks as a table: a check box, the name, the number of notes.
class NotebooksModel : public QAbstractTableModel {
public:
    enum Column { ImportColumn, NameColumn, NumberOfNotesColumn, ColumnCount };

    // What a column is called in code, whatever language its title is in.
    [[nodiscard]] static QString identifierOfColumn(int column);

    [[nodiscard]] const std::vector<NotebookRow>& rows() const { return m_rows; }
    void insertRow(int index, const NotebookRow& row);
    void removeRow(int index);
    void replaceRow(int index, const NotebookRow& row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    std::vector<NotebookRow> m_rows;
};
