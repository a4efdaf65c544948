// SPDX-License-Identifier: MIT
#pragma once

#include "app/Environment.h"
#include "app/ImportOutcome.h"

#include <QDialog>

#include <vector>

class QTableWidget;

// What became of the notes, when a run is over: how many came across, which did not and why, and
// which were changed on the way.
class ImportResultSheet : public QDialog {
public:
    // False when all was said already: cancelled, or failed before there was a log.
    [[nodiscard]] static bool hasSomethingToSay(const std::vector<ImportOutcome>& outcomes);

    // Shows the sheet and returns at once. The environment must outlive it.
    static void begin(QWidget& window, const std::vector<ImportOutcome>& outcomes,
                      const Environment& environment);

private:
    ImportResultSheet(QWidget& window, const std::vector<ImportOutcome>& outcomes,
                      const Environment& environment);

    [[nodiscard]] QTableWidget* newTable(const std::vector<ImportOutcome>& outcomes);
    void addButtons(const QString& logPath, const QString& libraryFolder);

    const Environment& m_environment;
};
