// SPDX-License-Identifier: MIT
// Other people's readers print what they find in our property lists.
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"

#include <plist/plist.h>

#include <QProcess>
#include <QStandardPaths>

namespace {

using platform::PropertyListFormat;

// Sorted JSON, with what JSON lacks spelled out.
constexpr const char* pythonScript = R"(
import datetime, json, plistlib, sys
def plain(value):
    if isinstance(value, dict): return {key: plain(item) for key, item in value.items()}
    if isinstance(value, list): return [plain(item) for item in value]
    if isinstance(value, bytes): return 'data ' + value.hex()
    if isinstance(value, plistlib.UID): return 'uid %d' % value.data
    if isinstance(value, datetime.datetime): return 'date ' + value.isoformat()
    return value
with open(sys.argv[1], 'rb') as file:
    sys.stdout.buffer.write(json.dumps(plain(plistlib.load(file)), sort_keys=True, ensure_ascii=True).encode())
)";

QString python() { return QStandardPaths::findExecutable(QStringLiteral("python3")); }

QByteArray printedByPython(const QByteArray& data)
{
    const test::ScratchFolder scratch;
    const QString path = scratch.write(QStringLiteral("file.plist"), data);
    QProcess process;
    process.start(python(), {QStringLiteral("-c"), QString::fromLatin1(pythonScript), path});
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

QVariantMap everyKindOfValue()
{
    return {
        {QStringLiteral("array"), QVariantList{1, QVariantList{}, QVariantMap{}}},
        {QStringLiteral("big"), qulonglong(18446744073709551615u)},
        {QStringLiteral("data"), QByteArray::fromHex("00ff10")},
        {QStringLiteral("date"), QDateTime(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC)},
        {QStringLiteral("false"), false},
        {QStringLiteral("float"), 0.25f},
        {QStringLiteral("long"), qlonglong(-9223372036854775807)},
        {QStringLiteral("minus"), -5},
        {QStringLiteral("real"), 0.1},
        {QStringLiteral("text"), QString::fromUtf8("<&>\"' \xC3\xA4 \xF0\x9F\x8E\x89 \r\n")},
        {QStringLiteral("true"), true},
    };
}

constexpr const char* everyKindInJson =
    R"({"array": [1, [], {}], "big": 18446744073709551615, "data": "data 00ff10", "date": "date 2013-04-12T09:30:15", )"
    R"("false": false, "float": 0.25, "long": -9223372036854775807, "minus": -5, "real": 0.1, )"
    R"("text": "<&>\"' \u00e4 \ud83c\udf89 \r\n", "true": true})";

TEST(IndependentReadersTest, PythonReadsBothFormatsAlike)
{
    if (python().isEmpty())
        GTEST_SKIP() << "there is no python3";
    for (const auto format : {PropertyListFormat::Xml, PropertyListFormat::Binary}) {
        const auto data = platform::propertyListData(everyKindOfValue(), format);
        ASSERT_TRUE(data);
        EXPECT_EQ(printedByPython(*data), everyKindInJson);
    }
}

TEST(IndependentReadersTest, PythonReadsTextsThatHadToBeRepaired)
{
    if (python().isEmpty())
        GTEST_SKIP() << "there is no python3";
    const QString text = QStringLiteral("a\u0001") + QChar(0xD83D);
    const auto xml = platform::propertyListData(QVariantList{text}, PropertyListFormat::Xml);
    EXPECT_EQ(printedByPython(*xml), R"(["a\ufffd\ufffd"])");
    const auto binary = platform::propertyListData(QVariantList{text}, PropertyListFormat::Binary);
    EXPECT_EQ(printedByPython(*binary), R"(["a\u0001\ufffd"])");
}

TEST(IndependentReadersTest, PythonReadsAKeyedArchive)
{
    if (python().isEmpty())
        GTEST_SKIP() << "there is no python3";
    using platform::ArchiveValue;
    const auto list =
        ArchiveValue::array({ArchiveValue::string(QStringLiteral("a")), ArchiveValue::floating(0.5f)});
    EXPECT_EQ(
        printedByPython(*platform::KeyedArchiver::archivedDataWithRootObject(list)),
        R"({"$archiver": "NSKeyedArchiver", "$objects": ["$null", {"$class": "uid 4", "NS.objects": ["uid 2", "uid 3"]}, )"
        R"("a", 0.5, {"$classes": ["NSArray", "NSObject"], "$classname": "NSArray"}], "$top": {"root": "uid 1"}, )"
        R"("$version": 100000})");
}

// What the library made of our bytes, written by it and read by us.
template<typename Read, typename Write>
QVariant throughLibrary(const QByteArray& data, Read readBytes, Write writeBytes)
{
    plist_t list = nullptr;
    readBytes(data.constData(), uint32_t(data.size()), &list);
    EXPECT_TRUE(list);
    char* bytes = nullptr;
    uint32_t size = 0;
    writeBytes(list, &bytes, &size);
    const auto back = platform::propertyListFromData(QByteArray(bytes, qsizetype(size)));
    free(bytes);
    plist_free(list);
    return back.value_or(QVariant());
}

TEST(IndependentReadersTest, LibplistReadsOurFormatsAndWeReadItsOwn)
{
    QVariantMap map = everyKindOfValue();
    // It knows no number beyond 63 bits and no carriage returns in XML.
    map.remove(QStringLiteral("big"));
    map.insert(QStringLiteral("text"), QString::fromUtf8("<&>\"' \xC3\xA4 \xF0\x9F\x8E\x89 \n"));
    const QByteArray binary =
        platform::propertyListData(map, PropertyListFormat::Binary).value_or(QByteArray());
    EXPECT_EQ(throughLibrary(binary, plist_from_bin, plist_to_bin), QVariant(map));
    const QByteArray xml = platform::propertyListData(map, PropertyListFormat::Xml).value_or(QByteArray());
    EXPECT_EQ(throughLibrary(xml, plist_from_xml, plist_to_bin), QVariant(map));
}

} // namespace
