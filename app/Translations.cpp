// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include <QCoreApplication>
#include <QTranslator>

void installTranslations(const QLocale& locale)
{
    static QTranslator english;
    static QTranslator local;
    const QString tables = QStringLiteral(":/vupuge/translations");
    const auto install = [](QTranslator& translator, bool loaded) {
        QCoreApplication::removeTranslator(&translator);
        if (loaded)
            QCoreApplication::installTranslator(&translator);
    };
    // English has a table for its plurals alone. The one installed last is asked first.
    install(english, english.load(QStringLiteral("vupuge_en"), tables));
    install(local, local.load(locale, QStringLiteral("vupuge"), QStringLiteral("_"), tables));
}
