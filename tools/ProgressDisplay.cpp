// SPDX-License-Identifier: MIT
#include "tools/ProgressDisplay.h"

#include "tools/TerminalText.h"
#include "tools/TotalCounts.h"

#include <cstdio>

#include <unistd.h>

namespace {

constexpr quint64 barWidth = 40;
// Milliseconds between two drawings: a terminal takes longer to show one than a note to convert.
constexpr qint64 drawingInterval = 50;

} // namespace

ProgressDisplay::Style ProgressDisplay::styleForStandardOutput()
{
    return isatty(STDOUT_FILENO) ? Style::Bar : Style::Lines;
}

ProgressDisplay::ProgressDisplay(Style style)
    : m_style(style)
{
}

void ProgressDisplay::begin(const QString& file, quint64 notes)
{
    m_notes = notes;
    m_done = 0;
    m_shownTenths = 0;
    printLine(QStringLiteral("Importing %1: %2").arg(file, countedNotes(notes)));
    m_sinceDrawn.start();
    if (m_style == Style::Bar && notes > 0)
        drawBar();
}

void ProgressDisplay::advance()
{
    ++m_done;
    if (m_notes == 0)
        return;
    if (m_style == Style::Bar) {
        if (m_done >= m_notes || m_sinceDrawn.elapsed() >= drawingInterval)
            drawBar();
        return;
    }
    const quint64 tenths = m_done * 10 / m_notes;
    if (tenths > m_shownTenths) {
        m_shownTenths = tenths;
        printLine(QStringLiteral("  %1 of %2").arg(m_done).arg(countedNotes(m_notes)));
    }
}

void ProgressDisplay::drawBar()
{
    const quint64 filled = std::min(barWidth, m_done * barWidth / m_notes);
    const std::string bar = std::string(filled, '#') + std::string(barWidth - filled, ' ');
    const auto done = static_cast<unsigned long long>(m_done);
    const auto notes = static_cast<unsigned long long>(m_notes);
    std::printf("\r  [%s] %3llu %%  %llu of %llu", bar.c_str(), done * 100 / notes, done, notes);
    std::fflush(stdout);
    m_barIsShown = true;
    m_sinceDrawn.restart();
}

void ProgressDisplay::end()
{
    if (m_barIsShown)
        std::printf("\n");
    std::fflush(stdout);
    m_barIsShown = false;
}
