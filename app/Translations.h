// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>

// Makes the texts appear in a locale's language from now on. What has no translation stays English,
// and so does everything in a language that there are no tables for; then the locale's plurals are
// the English ones.
void installTranslations(const QLocale& locale);
