// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>

class NotebooksController;

// The table's head, with a check box over the check boxes that stands for all notebooks shown.
class ImportColumnHeader : public QHeaderView {
public:
    explicit ImportColumnHeader(NotebooksController& controller);

protected:
    void paintSection(QPainter* painter, const QRect& place, int section) const override;

private:
    NotebooksController& m_controller;
};
