// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QVariant>

// The colour in a setting; invalid when there is none.
[[nodiscard]] QColor colorOfSetting(const QString& key);

// A colour as settings keep it: a keyed archive of an NSColor in the calibrated RGB space. An
// invalid value for an invalid colour.
[[nodiscard]] QVariant settingOfColor(const QColor& color);
