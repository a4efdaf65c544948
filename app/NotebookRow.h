// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/EvernoteApplication.h"

#include <QString>

#include <memory>

// One notebook in the window's table.
struct NotebookRow {
    QString name;
    // The notebook is to be imported.
    bool import = true;
    std::shared_ptr<platform::EvernoteNotebook> notebook;
    // When the notebooks were listed.
    quint64 numberOfNotes = 0;
    // Why the notebook cannot be read; empty for one that can.
    QString problem;
};
