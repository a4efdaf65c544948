// SPDX-License-Identifier: MIT
#include "platform/files/ResourceValues.h"

#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include "support/ScratchFolder.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::ResourceValues;

QDateTime date(const char* text) { return QDateTime::fromString(QString::fromUtf8(text), Qt::ISODateWithMs); }

class ResourceValuesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (setxattr(qPrintable(m_path), "user.test", "", 0, 0) != 0)
            GTEST_SKIP() << "the file system keeps no attributes";
    }

    [[nodiscard]] std::optional<QByteArray> attribute(const char* name) const
    {
        QByteArray value(65536, '\0');
        const ssize_t length
            = getxattr(qPrintable(m_path), name, value.data(), static_cast<size_t>(value.size()));
        return length < 0 ? std::nullopt : std::optional(value.first(length));
    }

    [[nodiscard]] QVariant listAttribute(const char* name) const
    {
        const auto value = attribute(name);
        EXPECT_TRUE(value && value->startsWith("bplist00")) << name;
        return platform::propertyListFromData(value.value_or(QByteArray())).value_or(QVariant());
    }

    void set(const ResourceValues& values)
    {
        EXPECT_TRUE(platform::setResourceValues(m_path, values, &m_error))
            << qPrintable(m_error.description());
    }

    [[nodiscard]] ResourceValues get() { return platform::resourceValues(m_path, &m_error).value(); }

    test::ScratchFolder m_scratch;
    QString m_path = m_scratch.write(QStringLiteral("file"), "text");
    Error m_error;
};

TEST_F(ResourceValuesTest, EveryValueIsReadAsItWasSet)
{
    ResourceValues values;
    values.creationDate = date("2001-02-03T04:05:06.789Z");
    values.contentModificationDate = date("2013-04-12T09:30:15.250Z");
    values.hasHiddenExtension = true;
    values.tagNames = QStringList{QString::fromUtf8("caf\u00e9"), QStringLiteral("to do")};
    values.comment = QString::fromUtf8("A comment\n\U0001f600");
    values.originUrl = QStringLiteral("https://example.org/?a=b");
    set(values);
    const ResourceValues read = get();
    EXPECT_EQ(read.creationDate, values.creationDate);
    EXPECT_EQ(read.contentModificationDate, values.contentModificationDate);
    EXPECT_EQ(read.hasHiddenExtension, true);
    EXPECT_EQ(read.tagNames, values.tagNames);
    EXPECT_EQ(read.comment, values.comment);
    EXPECT_EQ(read.originUrl, values.originUrl);
    EXPECT_EQ(test::readFile(m_path), "text");
}

TEST_F(ResourceValuesTest, BothFormsOfEachValueAreWritten)
{
    ResourceValues values;
    values.tagNames = QStringList{QStringLiteral("one"), QStringLiteral("two")};
    values.comment = QStringLiteral("comment");
    values.originUrl = QStringLiteral("https://example.org/");
    set(values);
    EXPECT_EQ(listAttribute("user.com.apple.metadata:_kMDItemUserTags"),
              QVariant(QVariantList{QStringLiteral("one\n0"), QStringLiteral("two\n0")}));
    EXPECT_EQ(attribute("user.xdg.tags"), "one,two");
    EXPECT_EQ(listAttribute("user.com.apple.metadata:kMDItemFinderComment"),
              QVariant(QStringLiteral("comment")));
    EXPECT_EQ(attribute("user.xdg.comment"), "comment");
    EXPECT_EQ(listAttribute("user.com.apple.metadata:kMDItemWhereFroms"),
              QVariant(QVariantList{QStringLiteral("https://example.org/")}));
    EXPECT_EQ(attribute("user.xdg.origin.url"), "https://example.org/");
}

TEST_F(ResourceValuesTest, EmptyValuesRemoveWhatTheFileHas)
{
    ResourceValues values;
    values.tagNames = QStringList{QStringLiteral("one")};
    values.comment = QStringLiteral("comment");
    values.originUrl = QStringLiteral("https://example.org/");
    set(values);
    values.tagNames = QStringList();
    values.comment = QString();
    values.originUrl = QString();
    set(values);
    set(values);
    EXPECT_FALSE(get().tagNames);
    EXPECT_FALSE(get().comment);
    EXPECT_FALSE(get().originUrl);
    EXPECT_FALSE(attribute("user.xdg.tags"));
}

TEST_F(ResourceValuesTest, TheHiddenExtensionIsOneBitAndTheOthersStay)
{
    QByteArray info(32, '\x11');
    ASSERT_EQ(setxattr(qPrintable(m_path), "user.com.apple.FinderInfo", info.constData(), 32, 0), 0);
    ResourceValues values;
    values.hasHiddenExtension = false;
    set(values);
    info[9] = '\x01';
    EXPECT_EQ(attribute("user.com.apple.FinderInfo"), info);
    EXPECT_EQ(get().hasHiddenExtension, false);
    values.hasHiddenExtension = true;
    set(values);
    info[9] = '\x11';
    EXPECT_EQ(attribute("user.com.apple.FinderInfo"), info);
}

TEST_F(ResourceValuesTest, AnExtensionThatIsNotHiddenNeedsNoAttribute)
{
    ResourceValues values;
    values.hasHiddenExtension = false;
    set(values);
    EXPECT_FALSE(attribute("user.com.apple.FinderInfo"));
    EXPECT_FALSE(get().hasHiddenExtension);
    values.hasHiddenExtension = true;
    set(values);
    EXPECT_EQ(attribute("user.com.apple.FinderInfo"),
              QByteArray("\0\0\0\0\0\0\0\0\0\x10", 10) + QByteArray(22, '\0'));
}

TEST_F(ResourceValuesTest, DatesBefore1970AndFarAheadAreKept)
{
    for (const char* text : {"1969-12-31T23:59:59.999Z", "1904-01-01T00:00:00.001Z",
                             "2400-02-29T12:00:00.500Z", "1970-01-01T00:00:00.000Z"}) {
        ResourceValues values;
        values.creationDate = date(text);
        values.contentModificationDate = date(text);
        set(values);
        EXPECT_EQ(get().creationDate, values.creationDate) << text;
        EXPECT_EQ(get().contentModificationDate, values.contentModificationDate) << text;
    }
}

TEST_F(ResourceValuesTest, ADateThatTheFileSystemCannotHoldIsReportedAndTheOthersAreSet)
{
    ResourceValues values;
    values.creationDate = date("9000-01-01T00:00:00.000Z");
    values.contentModificationDate = date("9000-01-01T00:00:00.000Z");
    values.comment = QStringLiteral("comment");
    if (platform::setResourceValues(m_path, values, &m_error))
        GTEST_SKIP() << "this file system holds dates that far ahead";
    EXPECT_TRUE(m_error.localizedDescription().contains(m_path));
    EXPECT_EQ(get().creationDate, values.creationDate);
    EXPECT_EQ(get().comment, values.comment);
}

TEST_F(ResourceValuesTest, AnInvalidDateIsAnErrorAndTheOthersAreSet)
{
    ResourceValues values;
    values.creationDate = QDateTime();
    values.contentModificationDate = QDateTime();
    values.comment = QStringLiteral("comment");
    EXPECT_FALSE(platform::setResourceValues(m_path, values, &m_error));
    EXPECT_EQ(get().comment, QStringLiteral("comment"));
}

TEST_F(ResourceValuesTest, AValueTooLargeIsReportedAndTheOthersAreSet)
{
    ResourceValues values;
    values.comment = QString(100000, QLatin1Char('x'));
    values.hasHiddenExtension = true;
    values.contentModificationDate = date("2013-04-12T09:30:15.000Z");
    EXPECT_FALSE(platform::setResourceValues(m_path, values, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(QStringLiteral("too large")))
        << qPrintable(m_error.description());
    EXPECT_EQ(get().hasHiddenExtension, true);
    EXPECT_EQ(get().contentModificationDate, values.contentModificationDate);
    EXPECT_FALSE(get().comment);
}

TEST_F(ResourceValuesTest, AFileSystemWithoutAttributesIsReported)
{
    ResourceValues values;
    values.hasHiddenExtension = true;
    // The process file system belongs to nobody and keeps nothing.
    EXPECT_FALSE(platform::setResourceValues(QStringLiteral("/proc/self/status"), values, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(QStringLiteral("/proc/self/status")));
}

TEST_F(ResourceValuesTest, TheFileSystemsOwnDatesAreReadWhereNoneWereSet)
{
    const ResourceValues values = get();
    ASSERT_TRUE(values.contentModificationDate);
    EXPECT_LT(std::abs(values.contentModificationDate->secsTo(QDateTime::currentDateTimeUtc())), 60);
    if (values.creationDate) {
        EXPECT_LT(std::abs(values.creationDate->secsTo(QDateTime::currentDateTimeUtc())), 60);
    }
    EXPECT_FALSE(values.tagNames);
    EXPECT_FALSE(values.comment);
}

TEST_F(ResourceValuesTest, ReadsWhatTheDesktopWroteAndIgnoresWhatIsNoPropertyList)
{
    ASSERT_EQ(setxattr(qPrintable(m_path), "user.xdg.tags", "a,b", 3, 0), 0);
    ASSERT_EQ(setxattr(qPrintable(m_path), "user.xdg.comment", "c", 1, 0), 0);
    ASSERT_EQ(setxattr(qPrintable(m_path), "user.com.apple.metadata:_kMDItemUserTags", "bplist00\xff", 9, 0),
              0);
    EXPECT_EQ(get().tagNames, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(get().comment, QStringLiteral("c"));
}

TEST_F(ResourceValuesTest, FoldersHaveValuesAndLinksHaveNone)
{
    ResourceValues values;
    values.tagNames = QStringList{QStringLiteral("one")};
    EXPECT_TRUE(platform::setResourceValues(m_scratch.path(), values));
    EXPECT_EQ(platform::resourceValues(m_scratch.path())->tagNames, values.tagNames);
    ASSERT_EQ(symlink(qPrintable(m_path), qPrintable(m_scratch.filePath("link"))), 0);
    EXPECT_FALSE(platform::setResourceValues(m_scratch.filePath("link"), values, &m_error));
    EXPECT_FALSE(get().tagNames);
    EXPECT_FALSE(platform::resourceValues(m_scratch.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
}

} // namespace
