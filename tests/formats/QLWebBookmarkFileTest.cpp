// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFile.h"

#include "foundation/StringCleaningBMExtensions.h"
#include "platform/propertylist/PropertyList.h"
#include "support/RandomText.h"

#include <atomic>
#include <stdexcept>
#include <thread>

namespace {

using namespace Qt::StringLiterals;

QLWebBookmarkFile::Pointer bookmark(const QString& name, const QString& url)
{
    return QLWebBookmarkFile::bookmarkWithName(
        name, platform::Url::fromString(url).value_or(platform::Url()));
}

platform::Url urlFrom(const QString& text)
{
    return platform::Url::fromString(text).value_or(platform::Url());
}

QString extensionFor(const QString& url)
{
    return QLWebBookmarkFile::fileExtensionForURL(urlFrom(url));
}

TEST(WebBookmarkTest, TheSchemeTellsTheExtension)
{
    EXPECT_EQ(extensionFor(u"http://a.example/"_s), u"webloc"_s);
    EXPECT_EQ(extensionFor(u"https://a.example/"_s), u"webloc"_s);
    EXPECT_EQ(extensionFor(u"FTP://a.example/"_s), u"ftploc"_s);
    EXPECT_EQ(extensionFor(u"ftps://a.example/"_s), u"ftploc"_s);
    EXPECT_EQ(extensionFor(u"mailto:me@a.example"_s), u"mailloc"_s);
    EXPECT_EQ(extensionFor(u"afp://a.example/"_s), u"afploc"_s);
    EXPECT_EQ(extensionFor(u"file:///tmp"_s), u"fileloc"_s);
    EXPECT_EQ(extensionFor(u"news:comp.lang"_s), u"newsloc"_s);
    EXPECT_EQ(extensionFor(u"vnc://a.example/"_s), u"inetloc"_s);
    EXPECT_EQ(extensionFor(u"x-http:a"_s), u"inetloc"_s);
    EXPECT_EQ(extensionFor(QString()), u"inetloc"_s);
}

TEST(WebBookmarkTest, ListsItsExtensionsAndPasteboardTypesInOrder)
{
    EXPECT_EQ(QLWebBookmarkFile::bookmarkFileTypes(),
              QStringList({u"webloc"_s, u"ftploc"_s, u"mailloc"_s, u"afploc"_s, u"fileloc"_s, u"newsloc"_s,
                           u"inetloc"_s, u"url"_s}));
    EXPECT_EQ(QLWebBookmarkFile::bookmarksPasteboardTypes(),
              QStringList({u"WebURLsWithTitlesPboardType"_s, u"OWDictionaryBookmarkPasteboardType"_s,
                           u"Apple URL pasteboard type"_s, u"NSStringPboardType"_s}));
}

TEST(WebBookmarkTest, WithoutANameItAnswersItsHost)
{
    EXPECT_EQ(bookmark(QString(), u"http://a.example/b"_s)->name(), u"a.example"_s);
    EXPECT_EQ(bookmark(u"Name"_s, u"http://a.example/b"_s)->name(), u"Name"_s);
    EXPECT_EQ(bookmark(QString(), u"mailto:me@a.example"_s)->name(), QString());
}

TEST(WebBookmarkTest, ANameIsKeptWithoutLineEndsAndTabs)
{
    EXPECT_EQ(bookmark(u"\tA\tname\nof\r\ntwo "_s, QString())->name(), u"A name of  two"_s);
}

TEST(WebBookmarkTest, ACopyHasNameAndUrlAlone)
{
    const auto original = bookmark(u"Name"_s, u"http://a.example/"_s);
    original->setUndoManager(std::make_shared<platform::UndoManager>());
    original->setFileURL(QUrl(u"file:///tmp/a.webloc"_s));
    const auto copy = original->copy();
    EXPECT_EQ(copy->name(), u"Name"_s);
    EXPECT_EQ(copy->URL(), original->URL());
    EXPECT_EQ(copy->undoManager(), nullptr);
    EXPECT_EQ(copy->fileURL(), QUrl());
    EXPECT_EQ(bookmark(QString(), u"http://a.example/"_s)->copy()->fileData(),
              bookmark(QString(), u"http://a.example/"_s)->fileData());
}

TEST(WebBookmarkTest, BothSettersCanBeUndoneAndDoneAgain)
{
    const auto manager = std::make_shared<platform::UndoManager>();
    const auto file = bookmark(u"One"_s, u"http://one.example/"_s);
    file->setUndoManager(manager);
    EXPECT_EQ(file->undoManager(), manager);
    file->setName(u"Two"_s);
    file->setURL(QUrl(u"http://two.example/"_s));
    manager->undo();
    EXPECT_EQ(file->URL(), QUrl(u"http://one.example/"_s));
    EXPECT_EQ(file->name(), u"Two"_s);
    manager->undo();
    EXPECT_EQ(file->name(), u"One"_s);
    manager->redo();
    EXPECT_EQ(file->name(), u"Two"_s);
    manager->redo();
    EXPECT_EQ(file->URL(), QUrl(u"http://two.example/"_s));
}

TEST(WebBookmarkTest, UndoingTheFirstNameLeavesNone)
{
    const auto manager = std::make_shared<platform::UndoManager>();
    const auto file = bookmark(QString(), u"http://a.example/"_s);
    const auto before = file->fileData();
    file->setUndoManager(manager);
    file->setName(u"Name"_s);
    manager->undo();
    EXPECT_EQ(file->fileData(), before);
}

TEST(WebBookmarkTest, SettingWhatIsSetAlreadyDoesNothing)
{
    const auto manager = std::make_shared<platform::UndoManager>();
    const auto file = bookmark(u"Name"_s, u"http://a.example/"_s);
    file->setUndoManager(manager);
    int changes = 0;
    file->addObserver(u"name"_s, [&](const QString&) { ++changes; });
    file->addObserver(u"URL"_s, [&](const QString&) { ++changes; });
    file->setName(u"Name"_s);
    file->setURL(QUrl(u"http://a.example/"_s));
    EXPECT_FALSE(manager->canUndo());
    EXPECT_EQ(changes, 0);
}

TEST(WebBookmarkTest, AManagerMayOutliveTheBookmark)
{
    const auto manager = std::make_shared<platform::UndoManager>();
    {
        const auto file = bookmark(u"One"_s, QString());
        file->setUndoManager(manager);
        file->setName(u"Two"_s);
    }
    manager->undo();
    EXPECT_FALSE(manager->canUndo());
}

TEST(WebBookmarkTest, ObserversOfIconAndPreviewAreToldOfANewUrl)
{
    EXPECT_EQ(QLWebBookmarkFile::keyPathsForValuesAffectingIconImage(), QSet<QString>{u"URL"_s});
    EXPECT_EQ(QLWebBookmarkFile::keyPathsForValuesAffectingCanPreviewBookmark(), QSet<QString>{u"URL"_s});
    const auto file = bookmark(u"Name"_s, u"http://a.example/"_s);
    QStringList told;
    const auto tell = [&](const QString& key) { told += key; };
    for (const QString& key : {u"name"_s, u"URL"_s, u"iconImage"_s, u"canPreviewBookmark"_s})
        file->addObserver(key, tell);
    file->setURL(QUrl(u"mailto:me@a.example"_s));
    told.sort();
    EXPECT_EQ(told, QStringList({u"URL"_s, u"canPreviewBookmark"_s, u"iconImage"_s}));
    told.clear();
    file->setName(u"Other"_s);
    EXPECT_EQ(told, QStringList{u"name"_s});
}

TEST(WebBookmarkTest, AnAddressStaysAsItWasWritten)
{
    for (const QString& text : {u"notes://showNote?identifier=A-B"_s, u"message://%3CId@x%3E"_s,
                                u"HTTP://A.Example/%7Euser/%c3%a9"_s, u"http://a..b/"_s}) {
        const auto file = bookmark(u"Name"_s, text);
        EXPECT_EQ(file->URL().absoluteString(), text);
        const auto list = platform::propertyListFromData(file->fileData().value());
        EXPECT_EQ(list->toMap().value(u"URL"_s), QVariant(text));
        EXPECT_EQ(file->copy()->URL().absoluteString(), text);
    }
}

TEST(WebBookmarkTest, TheFileUrlIsSetWholeForOtherThreads)
{
    const auto file = bookmark(u"Name"_s, QString());
    const QUrl one(u"file:///one/"_s + QString(200, u'1'));
    const QUrl two(u"file:///two/"_s + QString(200, u'2'));
    file->setFileURL(one);
    std::atomic<bool> goesOn = true;
    std::thread setter([&] {
        while (goesOn) {
            file->setFileURL(two);
            file->setFileURL(one);
        }
    });
    for (int count = 0; count < 2000; ++count) {
        const QUrl seen = file->fileURL();
        EXPECT_TRUE(seen == one || seen == two);
    }
    goesOn = false;
    setter.join();
    EXPECT_EQ(file->fileURL(), one);
}

TEST(WebBookmarkTest, AnObserverMayRemoveItself)
{
    const auto file = bookmark(u"One"_s, QString());
    int changes = 0;
    int number = 0;
    number = file->addObserver(u"name"_s, [&](const QString&) {
        ++changes;
        file->removeObserver(number);
    });
    file->setName(u"Two"_s);
    file->setName(u"Three"_s);
    EXPECT_EQ(changes, 1);
}

TEST(WebBookmarkTest, TheIconIsThatOfItsKindOfFile)
{
    const platform::FileTypeIcon icon = bookmark(QString(), u"http://a.example/"_s)->iconImage();
    EXPECT_EQ(icon.width, 96);
    EXPECT_EQ(icon.height, 96);
    EXPECT_TRUE(icon.names.contains(u"text-html"_s));
    EXPECT_EQ(icon.names.last(), u"unknown"_s);
    EXPECT_EQ(platform::iconForFileType(u"pdf", 1, 1).names.first(), u"application-pdf"_s);
    EXPECT_EQ(platform::iconForFileType(u"", 1, 1).names, QStringList{u"unknown"_s});
}

TEST(WebBookmarkTest, OnlyWebPagesCanBePreviewed)
{
    EXPECT_TRUE(bookmark(QString(), u"http://a.example/"_s)->canPreviewBookmark());
    EXPECT_TRUE(bookmark(QString(), u"https://a.example/"_s)->canPreviewBookmark());
    EXPECT_FALSE(bookmark(QString(), u"httpx://a.example/"_s)->canPreviewBookmark());
    // Exactly so: no other part of the class asks for small letters.
    EXPECT_FALSE(bookmark(QString(), u"HTTP://a.example/"_s)->canPreviewBookmark());
    EXPECT_FALSE(bookmark(QString(), u"file:///tmp"_s)->canPreviewBookmark());
    EXPECT_FALSE(bookmark(QString(), QString())->canPreviewBookmark());
}

TEST(WebBookmarkTest, AnEmptyNameIsNotValid)
{
    platform::Error error;
    QString name;
    EXPECT_FALSE(bookmark(QString(), QString())->validateName(name, &error));
    EXPECT_EQ(error, platform::Error(u"QLWebBookmarkErrorDomain"_s, 10001, u"Bookmark name must not be empty."_s));
    name = u"Name"_s;
    EXPECT_TRUE(bookmark(QString(), QString())->validateName(name));
    EXPECT_EQ(name, u"Name"_s);
}

TEST(WebBookmarkTest, AMissingUrlIsNotValid)
{
    platform::Error error;
    platform::Url url;
    EXPECT_FALSE(bookmark(QString(), QString())->validateURL(url, &error));
    EXPECT_EQ(error, platform::Error(u"QLWebBookmarkErrorDomain"_s, 10001, u"Bookmark URL must not be empty."_s));
    EXPECT_FALSE(bookmark(QString(), QString())->validateURL(url));
}

TEST(WebBookmarkTest, AWebAddressWithoutAPathIsGivenOne)
{
    const auto validated = [](const QString& text) {
        auto url = platform::Url::fromString(text).value_or(platform::Url());
        EXPECT_TRUE(bookmark(QString(), QString())->validateURL(url));
        return url.absoluteString();
    };
    EXPECT_EQ(validated(u"http://a.example"_s), u"http://a.example/"_s);
    EXPECT_EQ(validated(u"https://a.example:8443"_s), u"https://a.example:8443/"_s);
    EXPECT_EQ(validated(u"http://a.example/"_s), u"http://a.example/"_s);
    EXPECT_EQ(validated(u"http://a.example/b"_s), u"http://a.example/b"_s);
    EXPECT_EQ(validated(u"HTTP://A.Example"_s), u"HTTP://A.Example/"_s);
    // Appended to the whole text, whatever it ends with.
    EXPECT_EQ(validated(u"http://a.example?b=c"_s), u"http://a.example?b=c/"_s);
    EXPECT_EQ(validated(u"http://a.example#b"_s), u"http://a.example#b/"_s);
    EXPECT_EQ(validated(u"httpx://a.example"_s), u"httpx://a.example/"_s);
    EXPECT_EQ(validated(u"ftp://a.example"_s), u"ftp://a.example"_s);
    EXPECT_EQ(validated(u"mailto:me@a.example"_s), u"mailto:me@a.example"_s);
}

TEST(WebBookmarkTest, SuggestsAFileNameFromTheName)
{
    EXPECT_EQ(bookmark(u"Caf\u00e9: a/b"_s, u"http://a.example/"_s)->suggestedFilename(), u"Cafe\u0301- a-b.webloc"_s);
    EXPECT_EQ(bookmark(QString(), u"http://a.example/b.html"_s)->suggestedFilename(), u"a.example.webloc"_s);
    EXPECT_EQ(bookmark(u"https://x"_s, u"ftp://a.example/"_s)->suggestedFilename(), u"https---x.ftploc"_s);
    EXPECT_EQ(bookmark(QString(300, u'n'), u"http://a.example/"_s)->suggestedFilename(), QString(248, u'n') + u".webloc"_s);
}

TEST(WebBookmarkTest, SuggestsAFileNameFromTheAddressWhenTheNameIsOne)
{
    const auto suggestion = [](const QString& url) { return bookmark(u"HTTP://some.name/"_s, url)->suggestedFilename(); };
    EXPECT_EQ(suggestion(u"mailto:me@a.example"_s), u"me@a.example.mailloc"_s);
    EXPECT_EQ(suggestion(u"http://a.example/dir/page%20one.html"_s), u"page one.webloc"_s);
    EXPECT_EQ(suggestion(u"http://a.example/dir/"_s), u"dir.webloc"_s);
    EXPECT_EQ(suggestion(u"http://a.example/"_s), u"a.example-.webloc"_s);
    EXPECT_EQ(suggestion(u"http://a.example"_s), u"a.example.webloc"_s);
    EXPECT_EQ(suggestion(u"https://a.example/b?c=d"_s), u"a.example-b?c=d.webloc"_s);
    EXPECT_EQ(suggestion(u"MAILTO:me@a.example"_s), u"me@a.mailloc"_s);
    EXPECT_EQ(suggestion(u"notes://showNote"_s), u"showNote.inetloc"_s);
    EXPECT_EQ(suggestion(u"file:///a/bc.txt"_s), u"bc.fileloc"_s);
    // A last part of one character is too short to be a name.
    EXPECT_EQ(suggestion(u"http://a.example/b/c.html"_s), u"a.example-b-c.html.webloc"_s);
    EXPECT_EQ(suggestion(u"http://a.example/b/cd.html"_s), u"cd.webloc"_s);
    EXPECT_EQ(suggestion(u"a:b"_s), u"-inetloc"_s);
    EXPECT_EQ(suggestion(QString()), u"-inetloc"_s);
}

TEST(WebBookmarkTest, ANameWhoseExtensionIsTooLongToKeepThrows)
{
    const auto file = bookmark(u"a."_s + QString(300, u'e') + u'\u2028', u"http://a.example/"_s);
    EXPECT_THROW(static_cast<void>(file->suggestedFilename()), std::out_of_range);
}

class WebBookmarkPropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    test::RandomText m_random{GetParam()};
};

TEST_P(WebBookmarkPropertyTest, AnyNameGivesAFileNameWithinTheLimit)
{
    for (int count = 0; count < 1000; ++count) {
        const auto file = bookmark(m_random.next(200), u"http://a.example/"_s);
        const QString suggestion = file->suggestedFilename();
        // A name that a NUL begins has no file-system text.
        EXPECT_EQ(suggestion.isEmpty(), file->name().startsWith(QChar(0)));
        EXPECT_LE(suggestion.normalized(QString::NormalizationForm_C).size(), 255);
        EXPECT_FALSE(suggestion.contains(u'/') || suggestion.startsWith(u'.'));
        EXPECT_FALSE(file->name().contains(u'\n') || file->name().contains(u'\t') || file->name().contains(u'\r'));
        EXPECT_TRUE(file->fileData().has_value());
    }
}

TEST_P(WebBookmarkPropertyTest, AnyAddressHasAnExtensionAFileNameAndAnAnswer)
{
    const QStringList types = QLWebBookmarkFile::bookmarkFileTypes();
    const QString beginnings[] = {u"http://a.example/"_s, u"ftp:"_s, u"mailto:"_s, u"x://"_s,
                                  u""_s};
    for (int count = 0; count < 2000; ++count) {
        const auto url =
            platform::Url::fromLooseString(beginnings[m_random.number(0, 4)] + m_random.next(40));
        if (!url)
            continue;
        const auto file = QLWebBookmarkFile::bookmarkWithName(u"http://name"_s, *url);
        EXPECT_TRUE(types.contains(QLWebBookmarkFile::fileExtensionForURL(*url)));
        EXPECT_EQ(file->iconImage().width, 96);
        EXPECT_FALSE(file->canPreviewBookmark() && !url->scheme().startsWith(u"http"_s));
        platform::Url validated = *url;
        EXPECT_TRUE(file->validateURL(validated));
        EXPECT_TRUE(validated.absoluteString().startsWith(url->absoluteString()));
        EXPECT_LE(validated.absoluteString().size(), url->absoluteString().size() + 1);
        try {
            const QString name = file->suggestedFilename();
            EXPECT_FALSE(name.contains(u'/') || name.startsWith(u'.'));
        } catch (const std::out_of_range&) {
            FAIL() << "only an extension over 254 units raises";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, WebBookmarkPropertyTest, ::testing::Values(13U, 20130415U));

} // namespace
