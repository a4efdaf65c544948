// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

class NotebooksController;

// Decides which parts of the table react to the mouse.
class NotebooksViewDelegate {
public:
    virtual ~NotebooksViewDelegate();

    [[nodiscard]] virtual bool tableViewShouldSelectRow(int row) const = 0;
    // column: its identifier.
    [[nodiscard]] virtual bool tableViewShouldTrackCellForTableColumnRow(const QString& column,
                                                                         int row) const = 0;
};

// The table of notebooks. The space bar switches the check box of the row that has the keyboard's
// focus; a click on the head of the check boxes switches all that are shown.
class NotebooksView : public QTableView {
public:
    NotebooksView(NotebooksController& controller, const NotebooksViewDelegate& delegate);

    // Checks all that are shown, or none when all are checked.
    void toggleAll();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    [[nodiscard]] bool tracksMouseAt(const QPoint& place) const;

    NotebooksController& m_controller;
    const NotebooksViewDelegate& m_delegate;
};
