// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"

namespace {

using platform::PropertyListFormat;

QByteArray written(const QVariant& value)
{
    return platform::propertyListData(value, PropertyListFormat::Xml).value_or(QByteArray());
}

std::optional<QVariant> read(const QByteArray& contents)
{
    return platform::propertyListFromData("<?xml version=\"1.0\"?><plist version=\"1.0\">" + contents
                                          + "</plist>");
}

TEST(XmlPropertyListTest, IsTheStandardDocument)
{
    const QVariantMap map{{QStringLiteral("b"), QVariantList{-1, true, QByteArray("data"), 1.5}},
                          {QStringLiteral("a"), QDateTime(QDate(2018, 3, 9), QTime(0, 0), Qt::UTC)}};
    EXPECT_EQ(written(map), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\""
                            " \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                            "<plist version=\"1.0\">\n"
                            "\t<dict>\n"
                            "\t\t<key>a</key>\n"
                            "\t\t<date>2018-03-09T00:00:00Z</date>\n"
                            "\t\t<key>b</key>\n"
                            "\t\t<array>\n"
                            "\t\t\t<integer>-1</integer>\n"
                            "\t\t\t<true/>\n"
                            "\t\t\t<data>\nZGF0YQ==\n</data>\n"
                            "\t\t\t<real>1.5</real>\n"
                            "\t\t</array>\n"
                            "\t</dict>\n"
                            "</plist>\n");
}

TEST(XmlPropertyListTest, ReplacesWhatXmlForbids)
{
    const QString text =
        QStringLiteral("a\u0001\u001f\ufffe\uffff\u007f\u0085") + QChar(u'\0') + QStringLiteral("\tz");
    const QString kept = QStringLiteral("a\ufffd\ufffd\ufffd\ufffd\u007f\u0085\ufffd\tz");
    const auto back = platform::propertyListFromData(written(text));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->toString(), kept);
    EXPECT_TRUE(written(QVariantMap{{QStringLiteral("a\u0001"), 1}}).contains("<key>a\xEF\xBF\xBD</key>"));
    EXPECT_TRUE(
        written(QVariantMap{{QStringLiteral("a\u0001"), 1}, {QStringLiteral("a\u0002"), 1}}).isEmpty());
}

TEST(XmlPropertyListTest, HoldsWholeSecondsRoundedDown)
{
    const QDateTime date(QDate(2018, 3, 9), QTime(1, 2, 3, 999), Qt::UTC);
    EXPECT_TRUE(written(date).contains("<date>2018-03-09T01:02:03Z</date>"));
    EXPECT_TRUE(written(QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC)).isEmpty());
    EXPECT_TRUE(written(QDateTime(QDate(-1, 1, 1), QTime(0, 0), Qt::UTC)).isEmpty());
}

TEST(XmlPropertyListTest, DatesOutsideTheYearsOneTo9999AreAnError)
{
    const QDateTime first(QDate(1, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime last(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC);
    for (const QDateTime& date : {first, last}) {
        EXPECT_TRUE(platform::xmlPropertyListHoldsDate(date));
        EXPECT_TRUE(platform::propertyListData(date, platform::PropertyListFormat::Xml));
    }
    // The last is still the year 1 where it is written, but not in UTC.
    const QDateTime shifted(QDate(1, 1, 1), QTime(0, 0), Qt::OffsetFromUTC, 3600);
    for (const QDateTime& date : {first.addSecs(-1), last.addSecs(1), QDateTime(), shifted}) {
        EXPECT_FALSE(platform::xmlPropertyListHoldsDate(date));
        EXPECT_FALSE(platform::propertyListData(date, platform::PropertyListFormat::Xml));
    }
}

TEST(XmlPropertyListTest, ReadsNumbersAsOthersWriteThem)
{
    EXPECT_EQ(read("<integer> +12 </integer>"), QVariant(12));
    EXPECT_EQ(read("<integer>0xFF</integer>"), QVariant(255));
    EXPECT_EQ(read("<integer>-9223372036854775808</integer>"),
              QVariant(std::numeric_limits<qlonglong>::min()));
    EXPECT_EQ(read("<real>1e3</real>"), QVariant(1000.0));
    EXPECT_EQ(read("<real>-infinity</real>"), QVariant(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ(read("<integer>010</integer>"), QVariant(10));
}

TEST(XmlPropertyListTest, RefusesDamage)
{
    const char* const damaged[] = {
        "<integer></integer>",
        "<integer>1x</integer>",
        "<integer>--1</integer>",
        "<integer>18446744073709551616</integer>",
        "<integer>-9223372036854775809</integer>",
        "<real>one</real>",
        "<date>yesterday</date>",
        "<date>2018-13-09T00:00:00Z</date>",
        "<data>a*b</data>",
        "<true>1</true>",
        "<unknown/>",
        "<string><b/></string>",
        "<dict><key>a</key></dict>",
        "<dict><string>a</string></dict>",
        "<dict><key>a</key><key>b</key></dict>",
        "<key>a</key>",
        "<array><key>a</key></array>",
        "<array>text</array>",
        "<true/><true/>",
        "<array>",
        "<string>\x01</string>",
        "<string>\xFF</string>",
        "<string>&undeclared;</string>",
        "",
    };
    for (const char* contents : damaged)
        EXPECT_FALSE(read(contents)) << contents;
}

TEST(XmlPropertyListTest, ReadsOtherEncodings)
{
    const QString document =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>\u00e4</string></plist>");
    const auto bytes = QByteArray(reinterpret_cast<const char*>(document.utf16()), document.size() * 2);
    EXPECT_EQ(platform::propertyListFromData("\xFF\xFE" + bytes), QVariant(QStringLiteral("\u00e4")));
    EXPECT_EQ(platform::propertyListFromData("\xEF\xBB\xBF\n<plist><string>\xC3\xA4</string></plist>"),
              QVariant(QStringLiteral("\u00e4")));
    EXPECT_EQ(platform::propertyListFromData(
                  "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><plist><string>\xE4</string></plist>"),
              QVariant(QStringLiteral("\u00e4")));
}

TEST(XmlPropertyListTest, RefusesEntitiesOfItsOwn)
{
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\">";
    for (char name = 'b'; name < 'k'; ++name) {
        const QByteArray inner = QByteArray("&") + char(name - 1) + ';';
        bomb += QByteArray("<!ENTITY ") + name + " \"" + inner.repeated(10) + "\">";
    }
    bomb += "]><plist><string>&j;</string></plist>";
    EXPECT_FALSE(platform::propertyListFromData(bomb));
    EXPECT_FALSE(platform::propertyListFromData(
        "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>"
        "<plist><string>&a;</string></plist>"));
}

TEST(XmlPropertyListTest, RefusesADepthBomb)
{
    const int depth = 1'000'000;
    const QByteArray open = QByteArray("<array>").repeated(depth);
    EXPECT_FALSE(platform::propertyListFromData("<plist>" + open));
    EXPECT_FALSE(platform::propertyListFromData("<plist>" + open + QByteArray("</array>").repeated(depth)
                                                + "</plist>"));
}

TEST(XmlPropertyListTest, EveryTruncationIsAnError)
{
    const QByteArray whole =
        written(QVariantMap{{QStringLiteral("a"), QVariantList{1, QByteArray("abc"), QStringLiteral("t")}}});
    const qsizetype end = whole.lastIndexOf("</plist>") + 8;
    for (qsizetype size = 0; size < end; ++size)
        EXPECT_FALSE(platform::propertyListFromData(whole.first(size))) << size;
}

} // namespace
