// SPDX-License-Identifier: MIT
#include "foundation/FileManagerPlacesBMExtensions.h"

#include "foundation/CloudFolders.h"
#include "platform/core/StandardDirectories.h"
#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/files/TrashFolders.h"
#include "support/RandomText.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStorageInfo>

#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

QUrl fileUrl(const QString& path) { return QUrl::fromLocalFile(path); }

void write(const QString& path, const QByteArray& bytes)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(IsURLInTrashTest, TheUsersTrashAndThatOfEveryVolume)
{
    const QString user = QString::number(::getuid());
    EXPECT_TRUE(isURLInTrash(fileUrl(platform::StandardDirectories::applicationSupport() + u"/Trash/files/a"_s)));
    EXPECT_TRUE(isURLInTrash(fileUrl(u"/.Trash-"_s + user + u"/files/a"_s)));
    EXPECT_TRUE(isURLInTrash(fileUrl(u"/.Trash/"_s + user + u"/files/a"_s)));
    EXPECT_TRUE(isURLInTrash(fileUrl(u"/proc/.Trash-"_s + user + u"/files/a"_s)));
    EXPECT_FALSE(isURLInTrash(fileUrl(u"/home/someone/.Trash/a"_s)));
    EXPECT_FALSE(isURLInTrash(fileUrl(u"/"_s)));
    EXPECT_FALSE(isURLInTrash(QUrl()));
}

TEST(IsURLInTrashTest, ASiblingWhoseNameBeginsLikeTheTrashCountsToo)
{
    const QString data = platform::StandardDirectories::applicationSupport();
    EXPECT_TRUE(isURLInTrash(fileUrl(data + u"/Trashcan/a"_s)));
    EXPECT_TRUE(isURLInTrash(fileUrl(data + u"/Trash"_s)));
    EXPECT_FALSE(isURLInTrash(fileUrl(data + u"/Tras"_s)));
}

TEST(IsURLInTrashTest, IsThePlainBeginningOfThePath)
{
    test::RandomText random(28);
    for (int count = 0; count < 1000; ++count) {
        const QString rest = random.next(20).remove(QChar(0));
        const QString trash = platform::StandardDirectories::applicationSupport() + u"/Trash"_s;
        EXPECT_TRUE(isURLInTrash(fileUrl(trash + rest)) || !rest.isValidUtf16());
        EXPECT_FALSE(isURLInTrash(fileUrl(u"/x"_s + rest)));
    }
}

TEST(TrashFoldersTest, EachIsNamedOnceAndTheUsersComesFirst)
{
    QStringList folders = platform::trashFolders();
    EXPECT_EQ(folders.first(), platform::StandardDirectories::applicationSupport() + u"/Trash"_s);
    EXPECT_EQ(folders.removeDuplicates(), 0);
}

class CloudFoldersTest : public ::testing::Test {
protected:
    [[nodiscard]] QStringList folders() const { return cloudFolders(users(), home()); }
    [[nodiscard]] QString users() const { return m_folder.filePath("Users/me"); }
    [[nodiscard]] QString home() const { return m_folder.filePath("home"); }

    void writeInformation(const QByteArray& json) const { write(home() + u"/.dropbox/info.json"_s, json); }

    test::ScratchFolder m_folder;
};

TEST_F(CloudFoldersTest, AreNoneWhereNothingIsInstalled) { EXPECT_EQ(folders(), QStringList()); }

TEST_F(CloudFoldersTest, ComeInTheirOrder)
{
    write(users() + u"/Google Drive/file"_s, "x");
    writeInformation(R"({"personal": {"path": "/home/me/Dropbox", "host": 1}, "business": {"path": "/home/me/Work"}})");
    EXPECT_EQ(folders(),
              QStringList({users() + u"/Google Drive"_s, u"/home/me/Work"_s, u"/home/me/Dropbox"_s}));
}

TEST_F(CloudFoldersTest, InformationThatIsDamagedOrEmptyContributesNothing)
{
    for (const char* json : {"", "{", "[]", "null", "\"personal\"", "{\"personal\": []}", "{\"personal\": {}}",
                             "{\"personal\": {\"path\": 7}}", "{\"personal\": {\"path\": \"\"}}", "\xFF\xFE"}) {
        writeInformation(json);
        EXPECT_EQ(folders(), QStringList()) << json;
    }
}

TEST_F(CloudFoldersTest, AFolderLiesInACloudFolderAlsoThroughALink)
{
    const QString cloud = m_folder.filePath("Dropbox");
    ASSERT_TRUE(QDir().mkpath(cloud + u"/Documents"_s));
    ASSERT_TRUE(QDir().mkpath(cloud + u"Old/Documents"_s));
    ASSERT_TRUE(QFile::link(cloud + u"/Documents"_s, m_folder.filePath("Documents")));
    EXPECT_TRUE(liesInCloudFolder(m_folder.filePath("Documents"), {cloud}));
    EXPECT_TRUE(liesInCloudFolder(cloud, {cloud}));
    EXPECT_FALSE(liesInCloudFolder(cloud + u"Old/Documents"_s, {cloud}));
    EXPECT_FALSE(liesInCloudFolder(cloud + u"/Nothing"_s, {cloud}));
    EXPECT_FALSE(liesInCloudFolder(m_folder.path(), {cloud, m_folder.filePath("nothing")}));
}

TEST(CloudLibrariesTest, AreToldFromTheUsersHome)
{
    const QString home = QDir::homePath();
    EXPECT_EQ(prohibitedFolderURLsForCloudLibraries(), QList<QUrl>());
    EXPECT_FALSE(isUbiquityEnabledForDesktopAndDocumentsFolders());
    write(home + u"/.dropbox/info.json"_s, "{\"personal\": {\"path\": \"" + home.toUtf8() + "/Dropbox\"}}");
    EXPECT_EQ(prohibitedFolderURLsForCloudLibraries(), QList<QUrl>{fileUrl(home + u"/Dropbox"_s)});

    ASSERT_TRUE(QDir().mkpath(home + u"/Dropbox/Desktop"_s));
    EXPECT_FALSE(isUbiquityEnabledForDesktopAndDocumentsFolders());
    ASSERT_TRUE(QFile::link(home + u"/Dropbox/Desktop"_s, home + u"/Desktop"_s));
    EXPECT_TRUE(isUbiquityEnabledForDesktopAndDocumentsFolders());

    ASSERT_TRUE(QFile::remove(home + u"/Desktop"_s));
    EXPECT_FALSE(isUbiquityEnabledForDesktopAndDocumentsFolders());
    ASSERT_TRUE(
        QFile::link(home + u"/Dropbox/Desktop"_s, platform::StandardDirectories::documents()));
    EXPECT_TRUE(isUbiquityEnabledForDesktopAndDocumentsFolders());
    ASSERT_TRUE(QFile::remove(platform::StandardDirectories::documents()));
    ASSERT_TRUE(QDir(home + u"/.dropbox"_s).removeRecursively());
    ASSERT_TRUE(QDir(home + u"/Dropbox"_s).removeRecursively());
}

class TemporaryDirectoryTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
    }
    void TearDown() override { qunsetenv("TMPDIR"); }

    [[nodiscard]] QString expectedPath() const { return m_folder.filePath(QCoreApplication::applicationName()); }

    test::ScratchFolder m_folder;
    QStringList m_log;
    platform::SystemLogObserver m_observer{[this](const QString& message) { m_log += message; }};
};

TEST_F(TemporaryDirectoryTest, IsMadeAndThenFoundAgain)
{
    EXPECT_EQ(temporaryDirectoryForApplication(), expectedPath());
    EXPECT_TRUE(QFileInfo(expectedPath()).isDir());
    EXPECT_EQ(temporaryDirectoryForApplication(), expectedPath());
    EXPECT_EQ(m_log, QStringList());
}

TEST_F(TemporaryDirectoryTest, AFileInItsPlaceIsToldInTheLog)
{
    write(expectedPath(), "x");
    EXPECT_EQ(temporaryDirectoryForApplication(), std::nullopt);
    EXPECT_EQ(m_log, QStringList{u"Failed to create directory \""_s + expectedPath()
                                 + u"\" because a file already exists with the same name."_s});
}

TEST_F(TemporaryDirectoryTest, ALinkInItsPlaceIsNotFollowed)
{
    const test::ScratchFolder elsewhere;
    ASSERT_TRUE(QFile::link(elsewhere.path(), expectedPath()));
    EXPECT_EQ(temporaryDirectoryForApplication(), std::nullopt);
    EXPECT_EQ(m_log.size(), 1);
}

TEST_F(TemporaryDirectoryTest, AFailureToMakeItIsToldInTheLog)
{
    // A name that no file system takes.
    const QString name = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(QString(300, u'n'));
    EXPECT_EQ(temporaryDirectoryForApplication(), std::nullopt);
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log.first().startsWith(u"Failed to create directory \""_s + expectedPath() + u"\": Error Domain="_s));
    QCoreApplication::setApplicationName(name);
}

TEST_F(TemporaryDirectoryTest, WithoutAPrivateTemporaryFolderThereIsNone)
{
    qunsetenv("TMPDIR");
    const QByteArray cache = qgetenv("XDG_CACHE_HOME");
    qputenv("XDG_CACHE_HOME", QFile::encodeName(m_folder.write(u"file"_s, "x")));
    EXPECT_EQ(temporaryDirectoryForApplication(), std::nullopt);
    qputenv("XDG_CACHE_HOME", cache);
    EXPECT_EQ(m_log.size(), 1);
}

TEST(GetFreeDiskspaceTest, IsThatOfTheDocumentsFolder)
{
    platform::Error error;
    ASSERT_TRUE(QDir().mkpath(platform::StandardDirectories::documents()));
    const auto space = getFreeDiskspace(&error);
    ASSERT_TRUE(space.has_value());
    EXPECT_TRUE(error.isNull());
    const QStorageInfo storage(platform::StandardDirectories::documents());
    // Others write to the same file system meanwhile.
    EXPECT_NEAR(double(*space), double(storage.bytesAvailable()), 2e9);
    ASSERT_TRUE(QDir().rmdir(platform::StandardDirectories::documents()));
}

TEST(GetFreeDiskspaceTest, WithoutADocumentsFolderThereIsAnError)
{
    ASSERT_FALSE(QFileInfo::exists(platform::StandardDirectories::documents()));
    platform::Error error;
    EXPECT_EQ(getFreeDiskspace(&error), std::nullopt);
    EXPECT_EQ(error.code(), platform::FileReadNoSuchFileError);
    EXPECT_EQ(getFreeDiskspace(), std::nullopt);
}

} // namespace
