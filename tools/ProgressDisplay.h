// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

// Shows on standard output how far a run is: a bar that moves on a terminal, a line every tenth of the way
// elsewhere.
class ProgressDisplay {
public:
    enum class Style { Bar, Lines };
    // The style that suits what standard output is.
    [[nodiscard]] static Style styleForStandardOutput();

    explicit ProgressDisplay(Style style);

    void begin(const QString& file, quint64 notes);
    void advance();
    // Leaves the bar's line.
    void end();

private:
    void drawBar();

    Style m_style;
    quint64 m_notes = 0;
    quint64 m_done = 0;
    quint64 m_shownTenths = 0;
    bool m_barIsShown = false;
    QElapsedTimer m_sinceDrawn;
};
