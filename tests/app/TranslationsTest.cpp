// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include "platform/core/LocalizedStrings.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QRegularExpression>
#include <QXmlStreamReader>

using testing::IsEmpty;

namespace {

const QStringList& languages()
{
    static const QStringList all = {"de", "fr", "es", "ja", "zh_CN"};
    return all;
}

QString contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

// The text that adjoining string literals of C++ stand for.
QString textOfLiterals(const QString& literals)
{
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    static const QRegularExpression universal(QStringLiteral("\\\\u([0-9a-fA-F]{4})"));
    QString text;
    for (auto found = literal.globalMatch(literals); found.hasNext();)
        text += found.next().captured(1);
    for (auto match = universal.match(text); match.hasMatch(); match = universal.match(text))
        text.replace(match.captured(0), QChar(match.captured(1).toUShort(nullptr, 16)));
    return text.replace(QLatin1String("\\\""), QLatin1String("\""));
}

QStringList matches(const QString& source, const QString& pattern)
{
    QStringList texts;
    const QRegularExpression expression(pattern);
    for (auto found = expression.globalMatch(source); found.hasNext();)
        texts += textOfLiterals(found.next().captured(1));
    return texts;
}

// Every text for users that stands in the sources, with the files that hold it.
QMap<QString, QString> textsOfSources()
{
    const QString literals = QStringLiteral("\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)");
    const QMap<QString, QString> tables = {
        {"LoadErrors.cpp", "return" + literals},
        {"URLResponse.cpp", "return" + literals},
        {"StringPhrasesBMExtensions.cpp", "(\"%ld [^\"]*\")"},
        {"BinaryPropertyListWriter.cpp", "fail\\(" + literals},
        {"XmlPropertyListWriter.cpp", "fail\\(" + literals},
        {"QLEncryptedItemTypes.cpp", ",\\s*(\"[A-Z][A-Za-z ]*\")"},
    };
    const QString direct = QStringLiteral("(?:localizedString\\(|counted\\(|translate\\(\"Vupuge\","
                                          "|PropertyListErrorCode::\\w+,)") +
                           literals;
    QMap<QString, QString> texts;
    for (const char* const folder :
         {"platform", "foundation", "formats", "enex", "convert", "webcapture", "exports", "import", "app"}) {
        QDirIterator files(QStringLiteral(VUPUGE_SOURCE_DIRECTORY "/") + QLatin1String(folder),
                           {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString source = contents(path);
            QStringList found = matches(source, direct);
            if (const QString table = tables.value(QFileInfo(path).fileName()); !table.isEmpty())
                found += matches(source, table);
            for (const QString& text : found)
                texts.insert(text, path);
        }
    }
    // A domain or an empty answer is no text.
    texts.remove(QString());
    return texts;
}

struct Table {
    QMap<QString, QStringList> translations;
    QStringList faults;
};

Table readTable(const QString& language)
{
    Table table;
    QFile file(QStringLiteral(VUPUGE_SOURCE_DIRECTORY "/resources/translations/vupuge_%1.ts")
                   .arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    QString source;
    QStringList forms;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == QLatin1String("source")) {
            source = reader.readElementText();
            forms.clear();
        } else if (reader.isStartElement() && reader.name() == QLatin1String("translation")) {
            if (reader.attributes().hasAttribute("type"))
                table.faults += source;
        } else if (reader.isStartElement() && reader.name() == QLatin1String("numerusform")) {
            forms += reader.readElementText();
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            forms += reader.text().toString();
        } else if (reader.isEndElement() && reader.name() == QLatin1String("message")) {
            table.translations.insert(source, forms);
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return table;
}

// The places for arguments, with the numbers that a translation may give to those without.
QStringList places(const QString& text)
{
    static const QRegularExpression place(QStringLiteral("%(?:\\d\\$)?(?:lu|ld|@|Ln|\\d)"));
    QStringList all;
    for (auto found = place.globalMatch(text); found.hasNext();)
        all += found.next().captured().remove(QRegularExpression(QStringLiteral("\\d\\$")));
    all.sort();
    return all;
}

class TranslationsTest : public testing::Test {
protected:
    ~TranslationsTest() override
    {
        installTranslations(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    static QString counted(int number)
    {
        return QCoreApplication::translate("Vupuge", "%Ln notes were imported.", nullptr, number);
    }
};

} // namespace

TEST_F(TranslationsTest, NoTextLacksATranslation)
{
    const QMap<QString, QString> texts = textsOfSources();
    EXPECT_GT(texts.size(), 150);
    for (const QString& language : languages()) {
        const Table table = readTable(language);
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            EXPECT_TRUE(table.translations.contains(text.key()))
                << qPrintable(language) << ": \"" << qPrintable(text.key()) << "\" of "
                << qPrintable(text.value());
        }
    }
}

TEST_F(TranslationsTest, NoTranslationIsEmptyOrUnfinishedOrLacksAPlaceForAnArgument)
{
    for (const QString& language : languages()) {
        const Table table = readTable(language);
        EXPECT_THAT(table.faults, IsEmpty()) << qPrintable(language);
        for (auto entry = table.translations.begin(); entry != table.translations.end(); ++entry) {
            EXPECT_FALSE(entry->isEmpty())
                << qPrintable(language) << ": " << qPrintable(entry.key());
            for (const QString& form : *entry)
                EXPECT_EQ(places(form), places(entry.key()))
                    << qPrintable(language) << ": " << qPrintable(form);
        }
    }
}

TEST_F(TranslationsTest, NoTableHoldsATextThatNothingShows)
{
    const QStringList used = textsOfSources().keys();
    for (const QString& language : languages()) {
        QStringList unused;
        for (const QString& text : readTable(language).translations.keys()) {
            if (!used.contains(text))
                unused += text;
        }
        EXPECT_THAT(unused, IsEmpty()) << qPrintable(language);
    }
}

TEST_F(TranslationsTest, AccessKeysOfATranslationAreThoseOfItsText)
{
    for (const QString& language : languages()) {
        const Table table = readTable(language);
        for (auto entry = table.translations.begin(); entry != table.translations.end(); ++entry) {
            static const QRegularExpression key(QStringLiteral("&\\w"));
            EXPECT_EQ(entry->first().count(key), entry.key().count(key))
                << qPrintable(language) << ": " << qPrintable(entry.key());
        }
    }
}

TEST_F(TranslationsTest, TextsAppearInTheInstalledLanguage)
{
    installTranslations(QLocale(QLocale::German, QLocale::Austria));
    EXPECT_EQ(platform::localizedString("Preparing..."), "Vorbereitung …");
    installTranslations(QLocale(QLocale::Japanese));
    EXPECT_EQ(platform::localizedString("Preparing..."), "準備しています…");
    installTranslations(QLocale(QLocale::Chinese, QLocale::China));
    EXPECT_EQ(platform::localizedString("Preparing..."), "正在准备…");
}

TEST_F(TranslationsTest, ALanguageWithoutTablesIsShownInEnglish)
{
    installTranslations(QLocale(QLocale::Finnish));
    EXPECT_EQ(platform::localizedString("Preparing..."), "Preparing...");
    EXPECT_EQ(counted(1), "1 note was imported.");
}

TEST_F(TranslationsTest, PluralsFollowTheLanguagesRules)
{
    EXPECT_EQ(counted(0), "0 notes were imported.");
    EXPECT_EQ(counted(1), "1 note was imported.");
    installTranslations(QLocale(QLocale::German));
    EXPECT_EQ(counted(1), "1 Notiz wurde importiert.");
    EXPECT_EQ(counted(2), "2 Notizen wurden importiert.");
    installTranslations(QLocale(QLocale::French));
    EXPECT_EQ(counted(0), "0 note a été importée.");
    EXPECT_EQ(counted(2), "2 notes ont été importées.");
    installTranslations(QLocale(QLocale::Japanese));
    EXPECT_EQ(counted(1), "1 件のノートを読み込みました。");
}
