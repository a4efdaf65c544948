// SPDX-License-Identifier: MIT
// Bookmark files go to programs that share no code with ours, and come from them.
#include "formats/QLWebBookmarkFile.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

using namespace Qt::StringLiterals;

QUrl fileUrl(const QString& path)
{
    return QUrl::fromLocalFile(path);
}

struct Bookmark {
    QString url;
    QString name; // empty: none is set
};

// What readers stumble over: escapes, ampersands, letters beyond ASCII and beyond the Basic
// Multilingual Plane, addresses between programs, and nothing at all.
const Bookmark bookmarks[] = {
    {u"http://a.example/?b&c=%C3%A9"_s, u"Caf\u00e9 \u65e5\u672c & <notes>"_s},
    {u"http://a.example/"_s, u"\U0001F600 e\u0301"_s},
    {u"http://a.example/"_s, u""_s},
    {u"message://%3CId@x%3E"_s, u"A message"_s},
    {u"notes://showNote?identifier=A-B"_s, u"\"quoted\" 'name' \\ %41"_s},
    {u""_s, u"No address"_s},
};

class WebBookmarkReadersTest : public ::testing::Test {
protected:
    [[nodiscard]] QString write(const Bookmark& bookmark) const
    {
        const QString path = m_folder.filePath("written.webloc");
        const auto url = platform::Url::fromString(bookmark.url).value_or(platform::Url());
        EXPECT_TRUE(QLWebBookmarkFile::bookmarkWithName(bookmark.name, url)
                        ->writeToFileAtURL(fileUrl(path)));
        return path;
    }

    static QByteArray output(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardOutput();
    }

    static void expectToRead(const QString& path, const Bookmark& expected)
    {
        const auto bookmark = QLWebBookmarkFile::bookmarkWithFileAtURL(fileUrl(path));
        EXPECT_EQ(bookmark->URL().absoluteString(), expected.url) << qPrintable(path);
        const QString name =
            expected.name.isEmpty() ? QFileInfo(path).completeBaseName() : expected.name;
        EXPECT_EQ(bookmark->name(), name) << qPrintable(path);
    }

    test::ScratchFolder m_folder;
};

#ifdef PLIST_READER
TEST_F(WebBookmarkReadersTest, PythonReadsWhatWeWrite)
{
    for (const Bookmark& bookmark : bookmarks) {
        const QByteArray json =
            output(QStringLiteral(PLIST_READER),
                   {u"-B"_s, QStringLiteral(PLIST_READER_SCRIPT), write(bookmark)});
        QJsonObject expected{{u"URL"_s, bookmark.url}};
        if (!bookmark.name.isEmpty())
            expected.insert(u"public.url-name"_s, bookmark.name);
        EXPECT_EQ(QJsonDocument::fromJson(json).object(), expected) << json.constData();
    }
}

TEST_F(WebBookmarkReadersTest, WeReadWhatPythonWrites)
{
    const QString script =
        u"import plistlib, sys\n"
        "path, form, url, name = sys.argv[1:]\n"
        "bookmark = {'URL': url, **({'public.url-name': name} if name else {})}\n"
        "with open(path, 'wb') as file:\n"
        "    plistlib.dump(bookmark, file, fmt=getattr(plistlib, 'FMT_' + form))\n"_s;
    const QString path = m_folder.filePath("python.webloc");
    for (const QString& form : {u"BINARY"_s, u"XML"_s}) {
        for (const Bookmark& bookmark : bookmarks) {
            output(QStringLiteral(PLIST_READER),
                   {u"-B"_s, u"-c"_s, script, path, form, bookmark.url, bookmark.name});
            expectToRead(path, bookmark);
        }
    }
}
#else
TEST_F(WebBookmarkReadersTest, PythonReadsAndWrites)
{
    GTEST_SKIP() << "there is no python3";
}
#endif

#ifdef WEBLOC_READER
TEST_F(WebBookmarkReadersTest, GnustepReadsWhatWeWrite)
{
    for (const Bookmark& bookmark : bookmarks) {
        const QByteArray lines = output(QStringLiteral(WEBLOC_READER), {write(bookmark)});
        EXPECT_EQ(QString::fromUtf8(lines), bookmark.url + u'\n' + bookmark.name + u'\n');
    }
}

TEST_F(WebBookmarkReadersTest, WeReadWhatGnustepWrites)
{
    const QString path = m_folder.filePath("gnustep.webloc");
    for (const QString& form : {u"binary"_s, u"xml"_s, u"text"_s}) {
        for (const Bookmark& bookmark : bookmarks) {
            // GNUstep's XML spells what lies beyond the Basic Multilingual Plane in a way that
            // it cannot read itself.
            if (form == u"xml"_s && bookmark.name.contains(u"\U0001F600"_s))
                continue;
            output(QStringLiteral(WEBLOC_READER),
                   {u"--write"_s, form, path, bookmark.url, bookmark.name});
            expectToRead(path, bookmark);
        }
    }
}
#else
TEST_F(WebBookmarkReadersTest, GnustepReadsAndWrites)
{
    GTEST_SKIP() << "gobjc and GNUstep are not installed";
}
#endif

TEST_F(WebBookmarkReadersTest, FilesMadeByHandAreReadInEveryForm)
{
    const QDir folder(QStringLiteral(VUPUGE_SOURCE_DIRECTORY "/tests/formats/bookmarks"));
    const Bookmark named{u"http://a.example/caf%C3%A9?b&c"_s,
                         u"Caf\u00e9 \u65e5\u672c \U0001F600"_s};
    const std::map<QString, Bookmark> expected{
        {u"binary.webloc"_s, named},
        {u"xml.webloc"_s, named},
        {u"xml-crlf-and-mark.webloc"_s, named},
        {u"text.webloc"_s, named},
        {u"binary-address-alone.inetloc"_s, {u"notes://showNote?identifier=A-B"_s, u""_s}},
        {u"text-address-alone.ftploc"_s, {u"ftp://a.example/b"_s, u""_s}},
        {u"mark.url"_s, {u"https://a.example/b?c=d#e"_s, u""_s}},
        {u"latin1-path.url"_s, {u"http://a.example/b"_s, u""_s}},
    };
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_EQ(names.size(), qsizetype(expected.size()));
    for (const QString& name : names) {
        ASSERT_TRUE(expected.contains(name)) << qPrintable(name);
        expectToRead(folder.filePath(name), expected.at(name));
    }
}

TEST(WebBookmarkSamplesTest, FilesOfOtherProgramsAreRead)
{
    const QDir samples(QStringLiteral(VUPUGE_SHARED_DIRECTORY "/samples/links"));
    if (!samples.exists())
        GTEST_SKIP() << "there are no samples here";
    int count = 0;
    for (const QFileInfo& file : samples.entryInfoList({u"*.webloc"_s}, QDir::Files)) {
        const auto bookmark = QLWebBookmarkFile::bookmarkWithFileAtURL(fileUrl(file.filePath()));
        // One of them is a form to be filled in, whose address is empty.
        EXPECT_EQ(bookmark->URL().scheme().startsWith(u"http"_s),
                  !file.fileName().contains(u"template"_s))
            << qPrintable(file.fileName());
        EXPECT_EQ(bookmark->name(), file.completeBaseName());
        ++count;
    }
    EXPECT_GE(count, 6);
    // The companion file that some file systems keep beside it is no property list.
    for (const QFileInfo& file :
         samples.entryInfoList({u"._*.webloc"_s}, QDir::Files | QDir::Hidden))
        EXPECT_EQ(QLWebBookmarkFile::bookmarkWithFileAtURL(fileUrl(file.filePath()))->URL(),
                  QUrl());
}

} // namespace
