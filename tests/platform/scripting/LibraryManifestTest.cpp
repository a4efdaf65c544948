// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryManifest.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/LaidOutFiles.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace manifest = platform::manifest;
using platform::Error;
using platform::LibraryManifest;
using Code = platform::QuilleryLibraryErrorCode;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class LibraryManifestTest : public ::testing::Test {
protected:
    LibraryManifestTest()
    {
        m_files.addFolder(text("Notebook"));
        m_files.addItem(text("Notebook"), text("Note.rtfd"));
        m_files.addItem(text("Notebook"), text("Page.webarchive"));
    }

    std::optional<LibraryManifest> read()
    {
        m_files.writeManifest();
        return LibraryManifest::read(m_files.manifestPath(), &m_error);
    }

    void expectRefusal(Code code)
    {
        EXPECT_FALSE(read());
        EXPECT_EQ(m_error.domain(), text(platform::quilleryLibraryErrorDomain));
        EXPECT_EQ(m_error.code(), static_cast<qint64>(code)) << qPrintable(m_error.description());
        EXPECT_TRUE(m_error.hasLocalizedDescription());
    }

    void setPath(const QString& path)
    {
        m_files.setItemValue(text("item-Notebook/Note.rtfd"), manifest::absoluteFilenameKey, path);
    }

    test::ScratchFolder m_scratch;
    test::LaidOutFiles m_files{m_scratch.filePath("Evernote")};
    Error m_error;
};

TEST_F(LibraryManifestTest, ReadsFoldersWithTheirItemsInTheFoldersOrder)
{
    auto folder = m_files.folders().value(text("folder-Notebook")).toMap();
    folder[manifest::itemsKey] = QVariantList{text("gone"), text("item-Notebook/Page.webarchive")};
    m_files.folders()[text("folder-Notebook")] = folder;
    m_files.addFolder(text("Empty"));
    auto read = this->read();
    ASSERT_TRUE(read) << qPrintable(m_error.description());
    ASSERT_EQ(read->folders().size(), 2u);
    EXPECT_EQ(read->folders()[0].identifier, text("folder-Empty"));
    ASSERT_EQ(read->folders()[1].items.size(), 2u);
    EXPECT_EQ(read->folders()[1].items[0].sourceFile, text("Notebook/Page.webarchive"));
    EXPECT_EQ(read->folders()[1].items[1].sourceFile, text("Notebook/Note.rtfd"));
    EXPECT_TRUE(read->removesFilesFolder());
    EXPECT_EQ(read->otherValues().value(manifest::exporterVersionKey).toInt(), 353);
}

TEST_F(LibraryManifestTest, ReadsTheBinaryFormToo)
{
    m_files.writeManifest();
    const auto list = platform::readPropertyList(m_files.manifestPath());
    ASSERT_TRUE(
        platform::writePropertyList(m_files.manifestPath(), *list, platform::PropertyListFormat::Binary));
    auto read = LibraryManifest::read(m_files.manifestPath(), &m_error);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->folders()[0].items.size(), 2u);
}

TEST_F(LibraryManifestTest, AFolderThatIsReachedThroughALinkIsStillTheFilesFolder)
{
    ASSERT_EQ(symlink(qPrintable(m_scratch.path()), qPrintable(m_scratch.filePath("link"))), 0);
    test::LaidOutFiles files(m_scratch.filePath("link/Other"));
    files.addFolder(text("Notebook"));
    files.addItem(text("Notebook"), text("Note.rtfd"));
    files.writeManifest();
    auto read = LibraryManifest::read(files.manifestPath(), &m_error);
    ASSERT_TRUE(read) << qPrintable(m_error.description());
    EXPECT_EQ(read->filesFolder(), QFileInfo(m_scratch.filePath("Other")).canonicalFilePath());
}

TEST_F(LibraryManifestTest, WhatIsNoManifestIsRefused)
{
    for (const QString& path : {m_scratch.filePath("none.qllibxml"), m_scratch.path(), QString(), text("/"),
                                m_scratch.write(text("Some.txt"), "text"), text("/none/Evernote.qllibxml")}) {
        EXPECT_FALSE(LibraryManifest::read(path, &m_error)) << qPrintable(path);
        EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::NotAManifest));
    }
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("<plist"), QByteArray("bplist00\xff\xff"),
          QByteArray("<?xml version=\"1.0\"?><plist><dict><key>a</key></dict></plist>")}) {
        const QString path = m_scratch.write(text("Bad.qllibxml"), bytes);
        EXPECT_FALSE(LibraryManifest::read(path, &m_error)) << bytes.constData();
    }
}

TEST_F(LibraryManifestTest, ValuesOfTheWrongTypeAreRefused)
{
    const QVariantMap folders = m_files.folders();
    const QVariantMap items = m_files.items();
    const auto entities = [&](const QVariant& folderValues, const QVariant& itemValues) {
        return QVariantMap{{manifest::folderEntity, folderValues}, {manifest::itemEntity, itemValues}};
    };
    QVariantMap withoutPath = items;
    withoutPath[text("x")] = QVariantMap{{manifest::folderKey, text("folder-Notebook")}};
    QVariantMap withoutFolder = items;
    withoutFolder[text("x")] = QVariantMap{{manifest::absoluteFilenameKey, text("/x")}};
    for (const QVariant& value :
         QVariantList{text("text"), 7, QVariantList(), entities(text("text"), items),
                      entities(folders, QVariantList()),
                      entities(QVariantMap{{text("x"), text("text")}}, QVariantMap()),
                      entities(folders, QVariantMap{{text("x"), 1}}), entities(folders, withoutPath),
                      entities(folders, withoutFolder), entities(QVariantMap(), items)}) {
        m_files.top()[manifest::entitiesKey] = value;
        expectRefusal(Code::MalformedManifest);
    }
    m_files.top().remove(manifest::entitiesKey);
    m_files.top()[manifest::removeFileOnCompletionKey] = 7;
    expectRefusal(Code::UnsafeManifest);
}

TEST_F(LibraryManifestTest, ADeepManifestIsRefused)
{
    const int depth = 100000;
    const QByteArray bytes = "<?xml version=\"1.0\"?><plist version=\"1.0\">"
                             + QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth)
                             + "</plist>";
    EXPECT_FALSE(LibraryManifest::read(m_scratch.write(text("Deep.qllibxml"), bytes), &m_error));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::UnreadableManifest));
}

TEST_F(LibraryManifestTest, OnlyTheFolderThatHoldsTheManifestMayBeRemoved)
{
    m_scratch.write(text("precious/file"), "x");
    for (const QString& path : {m_scratch.path(), m_scratch.filePath("precious"), text("/"), QString(),
                                m_files.path() + text("/Notebook"), m_files.path() + text("/../precious")}) {
        m_files.top()[manifest::removeFileOnCompletionKey] = path;
        expectRefusal(Code::UnsafeManifest);
    }
    m_files.top().remove(manifest::removeFileOnCompletionKey);
    const auto read = this->read();
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->removesFilesFolder());
}

TEST_F(LibraryManifestTest, APathOutsideTheFilesFolderIsRefused)
{
    const QString outside = m_scratch.write(text("outside"), "x");
    m_scratch.write(text("Evernote2/file"), "x");
    for (const QString& path :
         {outside, m_files.path() + text("/../outside"), text("/etc/passwd"), QString(), text("/"),
          text("outside"), m_files.path(), m_files.path() + text("/Notebook/../../outside"),
          m_files.path() + text("/./Notebook/Note.rtfd"), m_scratch.filePath("Evernote2/file"),
          m_files.path() + text("/Notebook/"), m_files.path() + text("/Notebook/."),
          m_files.path() + text("/Notebook//Note.rtfd"), text("/none/Note.rtfd")}) {
        setPath(path);
        expectRefusal(Code::UnsafeManifest);
    }
}

TEST_F(LibraryManifestTest, LinksThatLeadOutAreRefused)
{
    m_scratch.write(text("outside/file"), "x");
    const auto link = [&](const QString& target, const QString& name) {
        ASSERT_EQ(symlink(qPrintable(target), qPrintable(m_files.path() + text("/Notebook/") + name)), 0);
    };
    link(m_scratch.filePath("outside/file"), text("link"));
    setPath(m_files.path() + text("/Notebook/link"));
    expectRefusal(Code::UnsafeManifest);
    link(m_scratch.filePath("outside"), text("folder"));
    setPath(m_files.path() + text("/Notebook/folder/file"));
    expectRefusal(Code::UnsafeManifest);
    ASSERT_EQ(mkfifo(qPrintable(m_files.path() + text("/Notebook/pipe")), 0600), 0);
    setPath(m_files.path() + text("/Notebook/pipe"));
    expectRefusal(Code::UnsafeManifest);
}

TEST_F(LibraryManifestTest, APackageMayHoldLinksToItselfOnly)
{
    const QString link = m_files.path() + text("/Notebook/Note.rtfd/images/link");
    const auto isAccepted = [&](const char* target) {
        ::unlink(qPrintable(link));
        EXPECT_EQ(symlink(target, qPrintable(link)), 0);
        return read().has_value();
    };
    EXPECT_TRUE(isAccepted("image.png"));
    EXPECT_TRUE(isAccepted("../TXT.rtf"));
    EXPECT_TRUE(isAccepted("nowhere"));
    EXPECT_FALSE(isAccepted("../../Page.webarchive"));
    EXPECT_FALSE(isAccepted("/etc/passwd"));
    EXPECT_FALSE(isAccepted("x/../../../.."));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::UnsafeManifest));
}

TEST_F(LibraryManifestTest, AFileThatIsNamedTwiceOrInsideAnotherItemIsRefused)
{
    setPath(m_files.path() + text("/Notebook/Page.webarchive"));
    expectRefusal(Code::MalformedManifest);
    setPath(m_files.path() + text("/Notebook"));
    expectRefusal(Code::MalformedManifest);
    setPath(m_files.manifestPath());
    expectRefusal(Code::MalformedManifest);
}

TEST_F(LibraryManifestTest, AMissingFileConcernsItsItemOnly)
{
    setPath(m_files.path() + text("/Notebook/Gone.rtfd"));
    auto read = this->read();
    ASSERT_TRUE(read) << qPrintable(m_error.description());
    EXPECT_TRUE(read->folders()[0].items[0].error);
    EXPECT_FALSE(read->folders()[0].items[1].error);
    setPath(m_files.path() + text("/Gone/Note.rtfd"));
    read = this->read();
    ASSERT_TRUE(read) << qPrintable(m_error.description());
    EXPECT_TRUE(read->folders()[0].items[0].error);
}

} // namespace
