// SPDX-License-Identifier: MIT
#include "AlertWatcher.h"

#include <QAbstractButton>
#include <QApplication>
#include <QtTest/QTest>

AlertWatcher::AlertWatcher()
{
    m_timer.setInterval(5);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
    m_timer.start();
}

bool AlertWatcher::waitFor(std::size_t count) const
{
    return QTest::qWaitFor([this, count] { return m_alerts.size() >= count && !m_answered; },
                           15000);
}

void AlertWatcher::look()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const alert = qobject_cast<QMessageBox*>(widget);
        if (!alert || !alert->isVisible() || alert == m_answered)
            continue;
        Seen seen{alert->text(),
                  alert->informativeText(),
                  {},
                  alert->windowModality(),
                  alert->parentWidget() ? alert->parentWidget()->objectName() : QString()};
        for (const QAbstractButton* const button : alert->buttons())
            seen.buttons += button->text();
        m_alerts.push_back(seen);
        m_answered = alert;
        QTest::mouseClick(alert->buttons().constFirst(), Qt::LeftButton);
        if (m_answered && !m_answered->isVisible())
            m_answered = nullptr;
        return;
    }
    if (m_answered && !m_answered->isVisible())
        m_answered = nullptr;
}
