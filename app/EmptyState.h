// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QAction;

// Stands where the table will be while no notebook is listed, and says how notes get here.
class EmptyState : public QWidget {
public:
    // exportsFolder: a folder whose files count as notebooks; empty for none.
    EmptyState(QAction& importFile, const QString& exportsFolder);
};
