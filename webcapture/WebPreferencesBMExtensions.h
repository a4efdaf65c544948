// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/WebPreferences.h"

// The platform's preferences with what the user's settings say. Their keys are made of the
// identifier and, for instance, "WebKitDefaultFontSize"; a key without a value leaves the
// platform's default.
[[nodiscard]] platform::WebPreferences webPreferencesWithIdentifier(const QString& identifier);
