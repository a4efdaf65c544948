// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QWidget;

// What an alert says, and its only button.
struct Alert {
    QString messageText;
    QString informativeText;
    QString buttonTitle;
};

// Shows the alert and waits, while the whole application answers nothing else. parent may be null.
void runModalAlert(const Alert& alert, QWidget* parent);

// Shows the alert as a sheet on a window and returns at once.
void beginAlertSheet(const Alert& alert, QWidget& window);
