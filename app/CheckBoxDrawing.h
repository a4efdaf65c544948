// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QPainter;
class QRect;
class QStyleOption;
class QWidget;

// Draws a check box in the middle of a place of a table, as the widget's style has it. option: what
// is known of the place; its rectangle is where the box goes.
void drawCheckBox(const QStyleOption& option, Qt::CheckState state, QPainter& painter,
                  const QWidget* widget);
