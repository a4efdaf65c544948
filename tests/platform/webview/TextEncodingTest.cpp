// SPDX-License-Identifier: MIT
#include "platform/webview/TextEncoding.h"

namespace {

using platform::decodeDocument;
using platform::decodeStyleSheet;
using platform::MarkupKind;

QString encodingOf(const QByteArray& bytes, const char* charset = "", const char* surrounding = "",
                   MarkupKind kind = MarkupKind::Html)
{
    return decodeDocument(bytes, kind, QString::fromLatin1(charset), QString::fromLatin1(surrounding))
        .encoding;
}

TEST(TextEncodingTest, TheMarkTheHeaderTheDocumentAndTheSurroundingsTellInThisOrder)
{
    const QByteArray meta = "<meta charset=koi8-r>\xC1";
    EXPECT_EQ(encodingOf("\xEF\xBB\xBF" + meta, "big5", "shift_jis"), QStringLiteral("utf-8"));
    EXPECT_EQ(encodingOf(meta, "big5", "shift_jis"), QStringLiteral("big5"));
    EXPECT_EQ(encodingOf(meta, "", "shift_jis"), QStringLiteral("koi8-r"));
    EXPECT_EQ(encodingOf("\xC1", "", "shift_jis"), QStringLiteral("shift_jis"));
    EXPECT_EQ(encodingOf("\xC1"), QStringLiteral("windows-1252"));
    EXPECT_EQ(encodingOf("\xC3\xA9"), QStringLiteral("utf-8"));
}

TEST(TextEncodingTest, ReadsBothFormsOfMeta)
{
    EXPECT_EQ(encodingOf("<META http-equiv='Content-Type' content='text/html; charset=GB2312'>\xB0"),
              QStringLiteral("gb18030"));
    EXPECT_EQ(encodingOf("<!-- <meta charset=koi8-r> --><meta charset='latin1'>\xB0"),
              QStringLiteral("windows-1252"));
    EXPECT_EQ(encodingOf("<meta content='charset=koi8-r'>\xB0"), QStringLiteral("windows-1252"));
    EXPECT_EQ(encodingOf(QByteArray(1024, ' ') + "<meta charset=koi8-r>\xB0"),
              QStringLiteral("windows-1252"));
}

TEST(TextEncodingTest, EncodingsThatCannotBeAreNotBelieved)
{
    EXPECT_EQ(encodingOf("<meta charset=utf-16>x"), QStringLiteral("utf-8"));
    EXPECT_EQ(encodingOf("x", "utf-7"), QStringLiteral("utf-8"));
    EXPECT_EQ(encodingOf("x", "x-nonsense"), QStringLiteral("utf-8"));
}

TEST(TextEncodingTest, BecomesUtf8WithoutAMark)
{
    const QByteArray wide("\xFF\xFE<\0b\0>\0\xE9\0", 10);
    EXPECT_EQ(decodeDocument(wide, MarkupKind::Html, {}, {}).utf8, QByteArray("<b>\xC3\xA9"));
    EXPECT_EQ(decodeDocument("a\xFF"
                             "b",
                             MarkupKind::Html, QStringLiteral("utf-8"), {})
                  .utf8,
              QByteArray("a\xEF\xBF\xBD"
                         "b"));
    EXPECT_EQ(decodeDocument("\x83\x5C", MarkupKind::Html, QStringLiteral("x-sjis"), {}).utf8,
              QStringLiteral("\u30BD").toUtf8());
}

TEST(TextEncodingTest, XmlDeclaresItsEncoding)
{
    EXPECT_EQ(encodingOf("<?xml version='1.0' encoding='ISO-8859-2'?><a/>", "", "", MarkupKind::Xml),
              QStringLiteral("iso-8859-2"));
    EXPECT_EQ(encodingOf("<?xml version='1.0'?><a/>", "", "koi8-r", MarkupKind::Xml),
              QStringLiteral("utf-8"));
    EXPECT_EQ(encodingOf("<?xml encoding=", "", "", MarkupKind::Xml), QStringLiteral("utf-8"));
}

TEST(TextEncodingTest, AStyleSheetFollowsItsOwnRuleThenWhoRefersToIt)
{
    const QString koi = QStringLiteral("koi8-r");
    EXPECT_EQ(decodeStyleSheet("@charset \"big5\";", {}, koi).encoding, QStringLiteral("big5"));
    EXPECT_EQ(decodeStyleSheet("@charset \"big5\";", QStringLiteral("latin1"), koi).encoding,
              QStringLiteral("windows-1252"));
    EXPECT_EQ(decodeStyleSheet("p{}", {}, koi).encoding, koi);
    EXPECT_EQ(decodeStyleSheet("p{}", {}, {}).encoding, QStringLiteral("utf-8"));
}

} // namespace
