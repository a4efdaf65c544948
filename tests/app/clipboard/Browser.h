// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScratchFolder.h"

#include <QProcess>

namespace test {

// Chromium with one page of ours in the left half of the display, 500 by 700 pixels from the
// corner.
class Browser {
public:
    [[nodiscard]] static bool isInstalled();

    // True once the page has been drawn. The page tells so by the title "Ready", which its window
    // has.
    [[nodiscard]] bool open(const QByteArray& body);
    ~Browser();

    // Waits for the page to give itself a title that begins so; the last title it had.
    [[nodiscard]] QString waitForTitle(const QString& beginning) const;
    [[nodiscard]] static QString title();

private:
    [[nodiscard]] static QString window();

    ScratchFolder m_folder;
    QProcess m_process;
};

// What a person does: moves and clicks of the mouse and keys, in xdotool's words. False when it is
// not there.
bool act(const QStringList& words);

} // namespace test
