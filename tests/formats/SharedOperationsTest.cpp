// SPDX-License-Identifier: MIT
// Runs the example of every shared operation and compares what it gives with docs/shared-operations.md.
// UPDATE_EXPECTED=1 writes the table anew, and fails.
#include "formats/QLWebBookmarkFile.h"
#include "formats/SharedOperationsTable.h"
#include "foundation/ArrayBMExtensions.h"
#include "foundation/FileManagerAliasesBMExtensions.h"
#include "foundation/FileManagerItemsBMExtensions.h"
#include "foundation/FileManagerKindsBMExtensions.h"
#include "foundation/FileManagerPlacesBMExtensions.h"
#include "foundation/FileManagerSizesBMExtensions.h"
#include "foundation/OperationQueueQLExtensions.h"
#include "foundation/OutputStreamBMExtensions.h"
#include "foundation/StringBMExtensions.h"
#include "foundation/StringCleaningBMExtensions.h"
#include "foundation/StringComparingBMExtensions.h"
#include "foundation/StringEscapingBMExtensions.h"
#include "foundation/StringPathsBMExtensions.h"
#include "foundation/StringPhrasesBMExtensions.h"
#include "foundation/StringProgressQLExtensions.h"
#include "foundation/StringQLExtensions.h"
#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QFile>

namespace {

using namespace Qt::StringLiterals;
using platform::CharacterSet;
using platform::StringEncoding;
using test::shown;

const QString introduction = uR"(# The shared operations

What the importer shares with the notes application: strings, files, collections, bookmarks. Each operation has one
example, which the tests run; a table that does not show what the examples give fails them. The headers tell each
operation's rules, units and errors.

Examples that need files find these in a folder, where `path(name)` and `url(name)` point:

| Item | What it is |
|---|---|
| `Plan.txt` | a file of 12 bytes |
| `Plan.qlnote` | a package with files of 100 and 20 bytes |
| `Folder` | a folder |
| `link` | a symbolic link to `Plan.txt` |
| `page.webloc` | a bookmark file with the name Page and the address http://a.example/ |
| `page.url` | a shortcut to http://b.example/ |

`bookmark` begins as a bookmark with the name Page and the address http://a.example/; `name` is empty, `address` is
http://a.example, `shapes` are a shape and a circle, the pasteboard is one that the examples share. `flag`, `queue`,
`log` and `operation` are what their names say.
)"_s;

struct Shape {
    virtual ~Shape() = default;
};
struct Circle : Shape {};

#define EXAMPLE(name, ...) m_table.addExample(QStringLiteral(#name), QStringLiteral(#__VA_ARGS__), shown((__VA_ARGS__)))

class SharedOperationsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_folder.write(u"Plan.txt"_s, "twelve bytes");
        m_folder.write(u"Plan.qlnote/TXT.rtf"_s, QByteArray(100, 'x'));
        m_folder.write(u"Plan.qlnote/NoteAttributes"_s, QByteArray(20, 'x'));
        ASSERT_TRUE(QDir().mkpath(path("Folder")));
        ASSERT_TRUE(QFile::link(u"Plan.txt"_s, path("link")));
        ASSERT_TRUE(newBookmark()->writeToFileAtURL(url("page.webloc")));
        m_folder.write(u"page.url"_s, "[InternetShortcut]\r\nURL=http://b.example/\r\n");
        ASSERT_TRUE(QDir().mkpath(platform::StandardDirectories::documents()));
    }
    void TearDown() override
    {
        QDir().rmdir(platform::StandardDirectories::documents());
        platform::UserDefaults::standard().clearOverrides();
    }

    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(name); }
    [[nodiscard]] QUrl url(const char* name) const { return QUrl::fromLocalFile(path(name)); }
    [[nodiscard]] static QLWebBookmarkFile::Pointer newBookmark()
    {
        return QLWebBookmarkFile::bookmarkWithName(u"Page"_s, QUrl(u"http://a.example/"_s));
    }

    void addStrings();
    void addNames();
    void addFiles();
    void addPlaces();
    void addCollections();
    void addBookmarkFields();
    void addBookmarkFiles();
    void addBookmarkPasteboards();

    test::ScratchFolder m_folder;
    test::SharedOperationsTable m_table;
};

void SharedOperationsTest::addStrings()
{
    m_table.addHeader(u"foundation/StringCleaningBMExtensions.h"_s);
    EXAMPLE(stringByRemovingNewlinesAndTabs, stringByRemovingNewlinesAndTabs(u"\ta\tb\r\nc "_s));
    EXAMPLE(stringByRemovingNewlines, stringByRemovingNewlines(u" a\nb\r"_s));
    EXAMPLE(stringByTrimmingWhitespace, stringByTrimmingWhitespace(u"\n a b\t\n"_s));
    EXAMPLE(stringByRemovingCharactersInSet,
            stringByRemovingCharactersInSet(u"a-b+c"_s, CharacterSet::charactersInString(u"-+"_s)));
    EXAMPLE(stringByRemovingControlAndIllegalCharacters,
            stringByRemovingControlAndIllegalCharacters(u"a\u00adb\uffffc"_s));
    EXAMPLE(stringByStandardizingNewlines, stringByStandardizingNewlines(u"a\r\n\rb\n\rc"_s));

    m_table.addHeader(u"foundation/StringComparingBMExtensions.h"_s);
    EXAMPLE(startsWith, startsWith(u"Evernote"_s, u"EVER"_s));
    EXAMPLE(endsWith, endsWith(u"note.HTML"_s, u".html"_s));
    EXAMPLE(containsString, containsString(u"Evernote"_s, u"NOTE"_s));
    EXAMPLE(isCaseInsensitiveEqualToString, isCaseInsensitiveEqualToString(u"Stra\u00dfe"_s, u"STRASSE"_s));

    m_table.addHeader(u"foundation/StringEscapingBMExtensions.h"_s);
    EXAMPLE(stringByEscapingBackslashes, stringByEscapingBackslashes(u"a\\b"_s));
    EXAMPLE(stringByEscapingQuotes, stringByEscapingQuotes(u"it's \"so\""_s));
    EXAMPLE(percentEncodedURLString, percentEncodedURLString(u"http://a.example/caf\u00e9 x%41"_s));

    m_table.addHeader(u"foundation/StringPhrasesBMExtensions.h"_s);
    EXAMPLE(stringWithCString, stringWithCString("caf\xE9", StringEncoding::IsoLatin1, 4));
    EXAMPLE(stringWithQuantity, stringWithQuantity(0, u"note"_s, u"notes"_s));
    EXAMPLE(stringForTimeInterval, stringForTimeInterval(5400));

    m_table.addHeader(u"foundation/StringProgressQLExtensions.h"_s);
    EXAMPLE(stringForBytesCompleted, stringForBytesCompleted(1'200'000, 3'000'000'000));
    EXAMPLE(stringForDataRate, stringForDataRate(1'200'000));
}

void SharedOperationsTest::addNames()
{
    m_table.addHeader(u"foundation/StringBMExtensions.h"_s);
    EXAMPLE(stringSanitizedForFileName, stringSanitizedForFileName(u"  ..a/b:c~d  "_s));
    EXAMPLE(makeFilenameUniqueInDirectoryAtURL, makeFilenameUniqueInDirectoryAtURL(u"Plan.txt"_s, url(".")));

    m_table.addHeader(u"foundation/StringPathsBMExtensions.h"_s);
    EXAMPLE(fileSystemRepresentationString, fileSystemRepresentationString(u"Caf\u00e9"_s));
    EXAMPLE(fileDisplayName, fileDisplayName(path("Plan.txt")));

    m_table.addHeader(u"foundation/StringQLExtensions.h"_s);
    EXAMPLE(generateFilename, generateFilename(u"Buy milk. Then eggs"_s));
    EXAMPLE(isEncryptedFile, isEncryptedFile(u"a.qlencryptnote"_s));
    EXAMPLE(tagNamesFromSpotlightComments, tagNamesFromSpotlightComments(u"red big_box ver1.2"_s));
    platform::UserDefaults::standard().setOverride(u"QLPrefixExportedTags"_s, true);
    EXAMPLE(commentsFromSpotlightComments,
            commentsFromSpotlightComments(u"hello ###begin_tags###@work@###end_tags###"_s));
}

void SharedOperationsTest::addFiles()
{
    bool flag = false;
    m_table.addHeader(u"foundation/FileManagerItemsBMExtensions.h"_s);
    EXAMPLE(isDirectoryAtPath, isDirectoryAtPath(path("Plan.qlnote")));
    EXAMPLE(isHiddenFileAtPath, isHiddenFileAtPath(u".profile"_s));
    EXAMPLE(isSymbolicLinkAtPath, isSymbolicLinkAtPath(path("link")));
    EXAMPLE(itemIsBusyAtPath, itemIsBusyAtPath(path("Plan.txt")));

    m_table.addHeader(u"foundation/FileManagerAliasesBMExtensions.h"_s);
    EXAMPLE(isAlias, isAlias(&flag, url("link")) && flag);
    EXAMPLE(isAliasAtURL, isAliasAtURL(url("Plan.txt")));
    EXAMPLE(originalURLForAliasAtURL, originalURLForAliasAtURL(url("link"))->fileName());

    m_table.addHeader(u"foundation/FileManagerKindsBMExtensions.h"_s);
    EXAMPLE(kindStringForExtension, kindStringForExtension(u"pdf"_s));

    m_table.addHeader(u"foundation/FileManagerSizesBMExtensions.h"_s);
    EXAMPLE(sizeOfFileAtURLOutError, sizeOfFileAtURLOutError(url("nothing")));
    EXAMPLE(sizeOfFileAtURL, sizeOfFileAtURL(url("Plan.qlnote")));
}

void SharedOperationsTest::addPlaces()
{
    m_table.addHeader(u"foundation/FileManagerPlacesBMExtensions.h"_s);
    EXAMPLE(isURLInTrash, isURLInTrash(url("Plan.txt")));
    EXAMPLE(isUbiquityEnabledForDesktopAndDocumentsFolders, isUbiquityEnabledForDesktopAndDocumentsFolders());
    EXAMPLE(prohibitedFolderURLsForCloudLibraries, prohibitedFolderURLsForCloudLibraries().size());
    EXAMPLE(temporaryDirectoryForApplication, isDirectoryAtPath(temporaryDirectoryForApplication().value()));
    EXAMPLE(getFreeDiskspace, getFreeDiskspace() > 0U);
}

void SharedOperationsTest::addCollections()
{
    const QList<std::shared_ptr<Shape>> shapes{std::make_shared<Shape>(), std::make_shared<Circle>()};
    m_table.addHeader(u"foundation/ArrayBMExtensions.h"_s);
    EXAMPLE(arrayByRemovingObjectsFromArray,
            arrayByRemovingObjectsFromArray(QStringList{u"a"_s, u"b"_s, u"a"_s, u"c"_s}, {u"a"_s}));
    EXAMPLE(objectsOfKindOfClass, objectsOfKindOfClass<Circle>(shapes).size());
    EXAMPLE(arrayOfUniqueStrings, arrayOfUniqueStrings({u"b"_s, u"a"_s, u"b"_s, u"c"_s, u"a"_s}));

    platform::OutputStream log(path("log"), platform::OutputStream::Mode::Append);
    ASSERT_TRUE(log.open());
    m_table.addHeader(u"foundation/OutputStreamBMExtensions.h"_s);
    EXAMPLE(writeLogLine, writeLogLine(&log, u"Started"_s));

    platform::OperationQueue queue;
    bool flag = false;
    const auto operation = std::make_shared<platform::BlockOperation>([] {});
    m_table.addHeader(u"foundation/OperationQueueQLExtensions.h"_s);
    EXAMPLE(addOperationAndWaitUntilFinished,
            addOperationAndWaitUntilFinished(queue, operation), operation->isFinished());
    EXAMPLE(addOperationWithBlockAndWaitUntilFinished,
            addOperationWithBlockAndWaitUntilFinished(queue, [&] { flag = true; }), flag);
}

void SharedOperationsTest::addBookmarkFields()
{
    auto bookmark = newBookmark();
    m_table.addHeader(u"formats/QLWebBookmarkFile.h"_s);
    EXAMPLE(bookmarkWithName, QLWebBookmarkFile::bookmarkWithName(QString(), QUrl(u"http://a.example/b"_s))->name());
    EXAMPLE(fileExtensionForURL, QLWebBookmarkFile::fileExtensionForURL(QUrl(u"FTP://a.example/"_s)));
    EXAMPLE(bookmarkFileTypes, QLWebBookmarkFile::bookmarkFileTypes());
    EXAMPLE(keyPathsForValuesAffectingIconImage, QLWebBookmarkFile::keyPathsForValuesAffectingIconImage());
    EXAMPLE(keyPathsForValuesAffectingCanPreviewBookmark,
            QLWebBookmarkFile::keyPathsForValuesAffectingCanPreviewBookmark());
    EXAMPLE(copy, bookmark->copy()->name());
    EXAMPLE(name, bookmark->name());
    EXAMPLE(setName, bookmark->setName(u"A\tname\n"_s), bookmark->name());
    EXAMPLE(URL, bookmark->URL());
    EXAMPLE(setURL, bookmark->setURL(QUrl(u"https://b.example/"_s)), bookmark->URL());
    bookmark = newBookmark();
    EXAMPLE(setUndoManager, bookmark->setUndoManager(std::make_shared<platform::UndoManager>()),
            bookmark->undoManager()->canUndo());
    EXAMPLE(undoManager, bookmark->setName(u"Other"_s), bookmark->undoManager()->undo(), bookmark->name());
    EXAMPLE(fileURL, bookmark->fileURL().isEmpty());
    EXAMPLE(setFileURL, bookmark->setFileURL(url("page.webloc")), bookmark->fileURL().fileName());
    bool flag = false;
    EXAMPLE(addObserver, bookmark->addObserver(u"iconImage"_s, [&](const QString&) { flag = true; }));
    EXAMPLE(removeObserver, bookmark->removeObserver(1), bookmark->setURL(QUrl()), flag);
    bookmark = newBookmark();
    EXAMPLE(iconImage, bookmark->iconImage().names);
    EXAMPLE(suggestedFilename, bookmark->suggestedFilename());
    EXAMPLE(canPreviewBookmark, bookmark->canPreviewBookmark());
    QString name;
    platform::Url address = QUrl(u"http://a.example"_s);
    EXAMPLE(validateName, bookmark->validateName(name));
    EXAMPLE(validateURL, bookmark->validateURL(address) ? address : QUrl());
}

void SharedOperationsTest::addBookmarkFiles()
{
    auto bookmark = newBookmark();
    EXAMPLE(bookmarkWithFileAtURL, QLWebBookmarkFile::bookmarkWithFileAtURL(url("page.webloc"))->URL());
    EXAMPLE(fileData, platform::propertyListFromData(bookmark->fileData().value()));
    EXAMPLE(writeToFileAtURL, bookmark->writeToFileAtURL(url("new.webloc")));
    EXAMPLE(readWeblocFile, bookmark->readWeblocFile(url("nothing.webloc")));
    EXAMPLE(readURLFile, bookmark->readURLFile(url("page.url")), bookmark->URL());
}

void SharedOperationsTest::addBookmarkPasteboards()
{
    const auto bookmark = newBookmark();
    platform::Pasteboard pasteboard;
    EXAMPLE(bookmarksPasteboardTypes, QLWebBookmarkFile::bookmarksPasteboardTypes());
    EXAMPLE(writeBookmarkFiles, QLWebBookmarkFile::writeBookmarkFiles({bookmark}, pasteboard));
    EXAMPLE(canInitWithPasteboard, QLWebBookmarkFile::canInitWithPasteboard(pasteboard));
    EXAMPLE(bookmarksWithPasteboard, QLWebBookmarkFile::bookmarksWithPasteboard(pasteboard).first()->name());
}

TEST_F(SharedOperationsTest, TheTableShowsWhatTheExamplesGiveAndHoldsEveryOperation)
{
    addStrings();
    addNames();
    addFiles();
    addPlaces();
    addCollections();
    addBookmarkFields();
    addBookmarkFiles();
    addBookmarkPasteboards();

    const QDir source(QStringLiteral(VUPUGE_SOURCE_DIRECTORY));
    QStringList headers{u"formats/QLWebBookmarkFile.h"_s};
    for (const QString& name : QDir(source.filePath(u"foundation"_s)).entryList({u"*BMExtensions.h"_s, u"*QLExtensions.h"_s}))
        headers += u"foundation/"_s + name;
    for (const QString& header : headers) {
        const QSet<QString> declared = test::declaredOperations(test::readFile(source.filePath(header)));
        EXPECT_EQ(shown(m_table.operations(header)), shown(declared)) << qPrintable(header);
    }
    EXPECT_EQ(m_table.headers().size(), headers.size());
    EXPECT_EQ(m_table.operationsWithoutExample(), QStringList());

    const QString document = source.filePath(u"docs/shared-operations.md"_s);
    const QString table = m_table.markdown(introduction);
    if (qEnvironmentVariableIntValue("UPDATE_EXPECTED") == 1) {
        QFile file(document);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(table.toUtf8());
        FAIL() << "docs/shared-operations.md was written anew";
    }
    const QStringList expected = table.split(u'\n');
    const QStringList found = QString::fromUtf8(test::readFile(document)).split(u'\n');
    for (qsizetype line = 0; line < std::max(expected.size(), found.size()); ++line)
        EXPECT_EQ(expected.value(line).toStdString(), found.value(line).toStdString());
}

} // namespace
