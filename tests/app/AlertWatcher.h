// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <vector>

// Sits where a person would and answers every alert by a click on its first button, as soon as it
// appears.
class AlertWatcher {
public:
    struct Seen {
        QString text;
        QString informativeText;
        QStringList buttons;
        Qt::WindowModality modality = Qt::NonModal;
        QString parent; // its object name

        friend bool operator==(const Seen&, const Seen&) = default;
    };

    AlertWatcher();

    [[nodiscard]] const std::vector<Seen>& alerts() const { return m_alerts; }
    // Waits for that many alerts to have been answered.
    [[nodiscard]] bool waitFor(std::size_t count) const;

private:
    void look();

    QTimer m_timer;
    std::vector<Seen> m_alerts;
    QPointer<QMessageBox> m_answered;
};
