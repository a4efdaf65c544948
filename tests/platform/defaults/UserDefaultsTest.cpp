// SPDX-License-Identifier: MIT
#include "platform/defaults/UserDefaultsHold.h"

#include "platform/core/StandardDirectories.h"
#include "platform/core/SystemLog.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"
#include "support/ScratchFolder.h"

#include <QRectF>

#include <limits>
#include <thread>

namespace {

using platform::PropertyListFormat;
using platform::UserDefaults;

class UserDefaultsTest : public ::testing::Test {
protected:
    void writeDomain(const char* name, const QVariantMap& values,
                     PropertyListFormat format = PropertyListFormat::Xml)
    {
        ASSERT_TRUE(platform::writePropertyList(pathOf(name), values, format));
    }

    [[nodiscard]] QString pathOf(const char* name) const
    {
        return m_scratch.filePath(QStringLiteral("%1.plist").arg(QLatin1String(name)));
    }

    [[nodiscard]] QVariantMap domain(const char* name) const
    {
        return platform::readPropertyList(pathOf(name)).value_or(QVariant()).toMap();
    }

    static QString key(const char* name) { return QString::fromLatin1(name); }

    test::ScratchFolder m_scratch;
    UserDefaults m_defaults{QStringLiteral("own"), m_scratch.path()};
};

TEST_F(UserDefaultsTest, WithoutAnyFileEverythingIsUnset)
{
    EXPECT_FALSE(m_defaults.objectForKey(key("a")).isValid());
    EXPECT_FALSE(m_defaults.boolForKey(key("a")));
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 0);
    EXPECT_EQ(m_defaults.floatForKey(key("a")), 0.0f);
    EXPECT_EQ(m_defaults.doubleForKey(key("a")), 0.0);
    EXPECT_FALSE(m_defaults.stringForKey(key("a")));
    EXPECT_FALSE(m_defaults.dataForKey(key("a")));
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

TEST_F(UserDefaultsTest, SearchesOverridesOwnDomainSuitesAndRegisteredDefaultsInThisOrder)
{
    const QStringList places{QStringLiteral("override"), QStringLiteral("own"), QStringLiteral("first"),
                             QStringLiteral("second"), QStringLiteral("registered")};
    // The value named after a place is found there and in every place behind it.
    const auto valuesOf = [&](qsizetype place) {
        QVariantMap values;
        for (qsizetype position = 0; position <= place; ++position)
            values.insert(places[position], places[place]);
        return values;
    };
    writeDomain("own", valuesOf(1));
    writeDomain("first", valuesOf(2), PropertyListFormat::Binary);
    writeDomain("second", valuesOf(3));
    m_defaults.registerDefaults(valuesOf(4));
    m_defaults.setOverride(places[0], places[0]);
    m_defaults.addSuiteNamed(QStringLiteral("first"));
    m_defaults.addSuiteNamed(QStringLiteral("second"));
    m_defaults.addSuiteNamed(QStringLiteral("first"));
    for (const QString& place : places)
        EXPECT_EQ(m_defaults.stringForKey(place), place);
    m_defaults.clearOverrides();
    EXPECT_EQ(m_defaults.stringForKey(places[0]), places[1]);
}

TEST_F(UserDefaultsTest, SuitesAreFilesOfTheFolderAlone)
{
    const test::ScratchFolder elsewhere;
    ASSERT_TRUE(platform::writePropertyList(elsewhere.filePath("other.plist"), QVariantMap{{key("a"), 1}},
                                            PropertyListFormat::Xml));
    m_defaults.addSuiteNamed(elsewhere.filePath("other"));
    m_defaults.addSuiteNamed(QString());
    EXPECT_FALSE(m_defaults.objectForKey(key("a")).isValid());
}

TEST_F(UserDefaultsTest, ReadsBooleansAsThePlatformDoes)
{
    for (const QVariant& value : {QVariant(true), QVariant(1), QVariant(-1), QVariant(0.5), QVariant(0.5f)}) {
        m_defaults.setOverride(key("a"), value);
        EXPECT_TRUE(m_defaults.boolForKey(key("a"))) << value.typeName();
    }
    for (const char* text : {"YES", "yes", "Y", "true", "T", "1", "  1", "+7", "-3", "001", "2 apples"}) {
        m_defaults.setOverride(key("a"), QString::fromLatin1(text));
        EXPECT_TRUE(m_defaults.boolForKey(key("a"))) << text;
    }
    for (const QVariant& value : {QVariant(false), QVariant(0), QVariant(0.0), QVariant(QByteArray("1")),
                                  QVariant(QVariantList{1})}) {
        m_defaults.setOverride(key("a"), value);
        EXPECT_FALSE(m_defaults.boolForKey(key("a"))) << value.typeName();
    }
    for (const char* text : {"NO", "no", "false", "0", "000", "", " ", "on", "x1", "-"}) {
        m_defaults.setOverride(key("a"), QString::fromLatin1(text));
        EXPECT_FALSE(m_defaults.boolForKey(key("a"))) << text;
    }
}

TEST_F(UserDefaultsTest, ReadsIntegers)
{
    const std::pair<QVariant, qint64> cases[] = {
        {-12, -12},
        {true, 1},
        {2.9, 2},
        {-2.9f, -2},
        {1e300, std::numeric_limits<qint64>::max()},
        {qulonglong(18446744073709551615u), std::numeric_limits<qint64>::max()},
        {QStringLiteral(" 42 apples"), 42},
        {QStringLiteral("-7"), -7},
        {QStringLiteral("apples"), 0},
        {QStringLiteral("99999999999999999999"), std::numeric_limits<qint64>::max()},
        {QByteArray("3"), 0},
        {qlonglong(9007199254740993), 9007199254740993},
    };
    for (const auto& [value, expected] : cases) {
        m_defaults.setOverride(key("a"), value);
        EXPECT_EQ(m_defaults.integerForKey(key("a")), expected) << qPrintable(value.toString());
    }
}

TEST_F(UserDefaultsTest, ReadsReals)
{
    const std::pair<QVariant, double> cases[] = {{0.1, 0.1},
                                                 {3, 3.0},
                                                 {true, 1.0},
                                                 {QStringLiteral(" 1.5e2x"), 150.0},
                                                 {QStringLiteral("-.5"), -0.5},
                                                 {QStringLiteral("x"), 0.0},
                                                 {QVariantMap{}, 0.0}};
    for (const auto& [value, expected] : cases) {
        m_defaults.setOverride(key("a"), value);
        EXPECT_EQ(m_defaults.doubleForKey(key("a")), expected);
        EXPECT_EQ(m_defaults.floatForKey(key("a")), float(expected));
    }
}

TEST_F(UserDefaultsTest, ReadsTextsAndNumbersAsText)
{
    const std::pair<QVariant, const char*> cases[] = {{QStringLiteral("text"), "text"},
                                                      {QString(), ""},
                                                      {12, "12"},
                                                      {-5, "-5"},
                                                      {12.0, "12"},
                                                      {0.1, "0.1"},
                                                      {0.1f, "0.1"},
                                                      {true, "1"},
                                                      {false, "0"}};
    for (const auto& [value, expected] : cases) {
        m_defaults.setOverride(key("a"), value);
        EXPECT_EQ(m_defaults.stringForKey(key("a")), QString::fromLatin1(expected));
    }
    m_defaults.setOverride(key("a"), QByteArray("data"));
    EXPECT_FALSE(m_defaults.stringForKey(key("a")));
    EXPECT_EQ(m_defaults.dataForKey(key("a")), QByteArray("data"));
    m_defaults.setOverride(key("a"), QStringLiteral("text"));
    EXPECT_FALSE(m_defaults.dataForKey(key("a")));
}

TEST_F(UserDefaultsTest, AnOverrideIsNeverWritten)
{
    m_defaults.setOverride(key("a"), 1);
    ASSERT_TRUE(m_defaults.setObject(key("b"), 2));
    EXPECT_EQ(domain("own"), (QVariantMap{{key("b"), 2}}));
    m_defaults.setOverride(key("a"), QVariant());
    EXPECT_FALSE(m_defaults.objectForKey(key("a")).isValid());
}

TEST_F(UserDefaultsTest, WritesTheOwnDomainAndKeepsItsOtherKeys)
{
    writeDomain("own", {{key("kept"), QStringLiteral("x")}}, PropertyListFormat::Binary);
    writeDomain("suite", {{key("a"), 1}});
    m_defaults.addSuiteNamed(QStringLiteral("suite"));
    ASSERT_TRUE(m_defaults.setObject(key("a"), QVariantList{1, QStringLiteral("two")}));
    EXPECT_EQ(domain("own").value(key("kept")), QVariant(QStringLiteral("x")));
    EXPECT_EQ(m_defaults.objectForKey(key("a")), (QVariantList{1, QStringLiteral("two")}));
    EXPECT_EQ(domain("suite"), (QVariantMap{{key("a"), 1}}));
    ASSERT_TRUE(m_defaults.removeObject(key("a")));
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 1);
    EXPECT_TRUE(m_defaults.removeObject(key("none")));
    EXPECT_EQ(m_scratch.tree(), (QStringList{QStringLiteral("own.plist"), QStringLiteral("suite.plist")}));
}

TEST_F(UserDefaultsTest, RefusesValuesThatPropertyListsDoNotHave)
{
    platform::Error error;
    EXPECT_FALSE(m_defaults.setObject(key("a"), QRectF(0, 0, 1, 1), &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::WriteInvalid));
    EXPECT_FALSE(m_defaults.objectForKey(key("a")).isValid());
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

TEST_F(UserDefaultsTest, MakesTheFolderWhenItWrites)
{
    UserDefaults defaults(QStringLiteral("own"), m_scratch.filePath("not/yet"));
    EXPECT_TRUE(defaults.setObject(key("a"), 1));
    EXPECT_EQ(defaults.integerForKey(key("a")), 1);
    m_scratch.write(QStringLiteral("file"), "text");
    UserDefaults impossible(QStringLiteral("own"), m_scratch.filePath("file/below"));
    platform::Error error;
    EXPECT_FALSE(impossible.setObject(key("a"), 1, &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::FileWrite));
}

TEST_F(UserDefaultsTest, SeesFilesThatChangeAppearAndGo)
{
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 0);
    writeDomain("own", {{key("a"), 1}});
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 1);
    writeDomain("own", {{key("a"), 2}});
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 2);
    ASSERT_TRUE(QFile::remove(pathOf("own")));
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 0);
}

TEST_F(UserDefaultsTest, HeldFilesAreLookedAtOnce)
{
    m_defaults.addSuiteNamed(QStringLiteral("suite"));
    writeDomain("own", {{key("a"), 1}});
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 1);
    writeDomain("own", {{key("a"), 2}});
    {
        const platform::UserDefaultsHold hold(m_defaults);
        // Not as it was when it was last looked at before.
        EXPECT_EQ(m_defaults.integerForKey(key("a")), 2);
        EXPECT_EQ(m_defaults.integerForKey(key("b")), 0);
        writeDomain("own", {{key("a"), 3}});
        writeDomain("suite", {{key("b"), 3}});
        {
            const platform::UserDefaultsHold inner(m_defaults);
            EXPECT_EQ(m_defaults.integerForKey(key("a")), 2);
        }
        EXPECT_EQ(m_defaults.integerForKey(key("a")), 2);
        EXPECT_EQ(m_defaults.integerForKey(key("b")), 0);
        m_defaults.setOverride(key("a"), 4);
        EXPECT_EQ(m_defaults.integerForKey(key("a")), 4);
        m_defaults.clearOverrides();
    }
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 3);
    EXPECT_EQ(m_defaults.integerForKey(key("b")), 3);
}

TEST_F(UserDefaultsTest, WhatIsWrittenWhileFilesAreHeldIsSeenAndLosesNothing)
{
    writeDomain("own", {{key("a"), 1}});
    const platform::UserDefaultsHold hold(m_defaults);
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 1);
    writeDomain("own", {{key("a"), 1}, {key("others"), 2}});
    ASSERT_TRUE(m_defaults.setObject(key("a"), 3));
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 3);
    EXPECT_EQ(domain("own").value(key("others")).toInt(), 2);
    writeDomain("own", {{key("a"), 5}});
    m_defaults.synchronize();
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 5);
}

TEST_F(UserDefaultsTest, SynchronizeReadsAFileThatLooksUnchanged)
{
    writeDomain("own", {{key("a"), 1}});
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 1);
    const QDateTime modified = QFileInfo(pathOf("own")).lastModified();
    QByteArray bytes = m_scratch.read(QStringLiteral("own.plist"));
    m_scratch.write(QStringLiteral("own.plist"), bytes.replace("<integer>1<", "<integer>2<"));
    QFile file(pathOf("own"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    file.close();
    m_defaults.synchronize();
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 2);
}

TEST_F(UserDefaultsTest, ADamagedFileCountsAsEmptyAndIsReportedOnce)
{
    QStringList messages;
    const platform::SystemLogObserver observer([&](const QString& message) { messages += message; });
    m_scratch.write(QStringLiteral("own.plist"), "<?xml version=\"1.0\"?><plist><dict>");
    m_scratch.write(QStringLiteral("suite.plist"), "(a, list)");
    m_defaults.addSuiteNamed(QStringLiteral("suite"));
    m_defaults.registerDefaults({{key("a"), 7}});
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 7);
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 7);
    m_defaults.synchronize();
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 7);
    ASSERT_EQ(messages.size(), 2);
    EXPECT_TRUE(messages[0].contains(pathOf("own"))) << qPrintable(messages[0]);
    EXPECT_TRUE(messages[1].contains(pathOf("suite"))) << qPrintable(messages[1]);
}

TEST_F(UserDefaultsTest, WhoReceivesTheReportMayLookUpASetting)
{
    m_scratch.write(QStringLiteral("own.plist"), "{");
    int reports = 0;
    const platform::SystemLogObserver observer([&](const QString&) {
        ++reports;
        EXPECT_FALSE(m_defaults.boolForKey(key("ExportDebug")));
    });
    EXPECT_EQ(m_defaults.integerForKey(key("a")), 0);
    EXPECT_EQ(reports, 1);
}

TEST_F(UserDefaultsTest, ADamagedFileIsKeptBesideWhenSettingsAreWritten)
{
    m_scratch.write(QStringLiteral("own.plist"), "{ a = 1; b = }");
    ASSERT_TRUE(m_defaults.setObject(key("c"), 3));
    EXPECT_EQ(domain("own"), (QVariantMap{{key("c"), 3}}));
    EXPECT_EQ(m_scratch.read(QStringLiteral("own.plist.damaged")), "{ a = 1; b = }");
}

TEST_F(UserDefaultsTest, ReadsHandWrittenTextFiles)
{
    m_scratch.write(QStringLiteral("own.plist"), "{ ExportDebug = YES; DefaultNoteFontSize = \"13.5\"; }");
    EXPECT_TRUE(m_defaults.boolForKey(key("ExportDebug")));
    EXPECT_EQ(m_defaults.floatForKey(key("DefaultNoteFontSize")), 13.5f);
}

TEST_F(UserDefaultsTest, ManyThreadsMayReadAndWrite)
{
    writeDomain("suite", {{key("constant"), 5}});
    m_defaults.addSuiteNamed(QStringLiteral("suite"));
    std::vector<std::thread> readers;
    std::atomic<int> wrong = 0;
    for (int reader = 0; reader < 3; ++reader) {
        readers.emplace_back([&] {
            for (int round = 0; round < 300; ++round)
                wrong += m_defaults.integerForKey(key("constant")) != 5;
        });
    }
    for (int round = 1; round <= 30; ++round)
        EXPECT_TRUE(m_defaults.setObject(key("count"), round));
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(m_defaults.integerForKey(key("count")), 30);
}

TEST(StandardUserDefaultsTest, LiveInTheConfigurationDirectory)
{
    UserDefaults& defaults = UserDefaults::standard();
    EXPECT_EQ(&defaults, &UserDefaults::standard());
    ASSERT_TRUE(defaults.setObject(QStringLiteral("a"), 1));
    const QString path =
        platform::StandardDirectories::preferences() + QStringLiteral("/com.brightmoor.Vupuge.plist");
    EXPECT_EQ(platform::readPropertyList(path), QVariant(QVariantMap{{QStringLiteral("a"), 1}}));
    EXPECT_TRUE(defaults.removeObject(QStringLiteral("a")));
}

} // namespace
