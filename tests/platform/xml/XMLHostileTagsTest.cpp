// SPDX-License-Identifier: MIT
#include "platform/xml/XMLDocument.h"
#include "platform/xml/XMLParser.h"
#include "platform/xml/XMLParserError.h"

#include <QStringEncoder>

namespace {

using platform::Error;
using platform::XMLDocument;
using platform::XMLParserErrorCode;
using Tidy = XMLDocument::Tidy;

Error failureOf(const QByteArray& data)
{
    const auto stream = platform::InputStream::inputStreamWithData(data);
    platform::XMLParser parser(*stream);
    EXPECT_FALSE(parser.parse());
    return parser.parserError();
}

TEST(XMLHostileTagsTest, RefusesTagsWithTooManyAttributes)
{
    QByteArray tag = "<a><b";
    for (int index = 0; index < 200000; ++index)
        tag += " a" + QByteArray::number(index) + "=''";
    const Error failure = failureOf(tag + "/></a>");
    EXPECT_EQ(failure.code(), static_cast<int>(XMLParserErrorCode::LimitExceeded));
    EXPECT_THAT(failure.localizedDescription().toStdString(),
                ::testing::HasSubstr("more than 1000 attributes"));
    Error error;
    EXPECT_FALSE(XMLDocument::fromData(tag + "/></a>", Tidy::Yes, &error));
}

// Enough to keep the library busy for minutes, were they not found before it sees them.
QByteArray tagOfManyAttributes()
{
    QByteArray tag = "<b";
    for (int index = 0; index < 300000; ++index)
        tag += " a" + QByteArray::number(index) + "=''";
    return tag + "/>";
}

TEST(XMLHostileTagsTest, NothingHidesTheAttributesOfATag)
{
    const QByteArray tag = tagOfManyAttributes();
    for (const char* head :
         {"<!DOCTYPE a [<!ENTITY e '<![CDATA['>]><a>", "<!DOCTYPE a [<!ENTITY e \"<!--\">]><a>",
          "<!DOCTYPE a SYSTEM '<![CDATA[' [<!NOTATION n SYSTEM \"<?x\">]><a>",
          "<!DOCTYPE a [<!-- ' --><?x ' ?>]><!-- \" --><a>", "<a><![CDATA[']]>", "<a b='>\"'>"}) {
        EXPECT_EQ(failureOf(head + tag + "</a>").code(),
                  static_cast<int>(XMLParserErrorCode::LimitExceeded))
            << head;
        Error error;
        EXPECT_FALSE(XMLDocument::fromData(head + tag + "</a>", Tidy::Yes, &error)) << head;
    }
}

TEST(XMLHostileTagsTest, AttributesOfATagAreCountedInUtf16)
{
    const QString document =
        QStringLiteral("<a>") + QString::fromLatin1(tagOfManyAttributes()) + QStringLiteral("</a>");
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray data = encoder.encode(document);
        EXPECT_EQ(failureOf(data).code(), static_cast<int>(XMLParserErrorCode::LimitExceeded));
        Error error;
        EXPECT_FALSE(XMLDocument::fromData(data, Tidy::Yes, &error));
    }
}

TEST(XMLHostileTagsTest, EncodingsThatHideMarkupAreRefused)
{
    const auto hidden = [](const QByteArray& markup) {
        return QByteArray(markup)
            .replace('<', "+ADw-")
            .replace('\'', "+ACc-")
            .replace('=', "+AD0-");
    };
    for (const QByteArray& document :
         {"<?xml version='1.0' encoding='UTF-7'?>" + hidden("<a>" + tagOfManyAttributes() + "</a>"),
          "<?xml version='1.0' encoding='ISO-2022-JP'?><a>\x1B$B<![CDATA[ \x1B(B" +
              tagOfManyAttributes() + "</a>",
          QByteArray("<?xml version='1.0' encoding='hz'?><a/>"),
          // "<?xml version='1.0' encoding='IBM037'?><a/>" in EBCDIC
          QByteArray::fromHex("4c6fa7949340a58599a28996957e7df14bf07d408595839684899587"
                              "7e7dc9c2d4f0f3f77d6f6e4c81616e")}) {
        EXPECT_EQ(failureOf(document).code(),
                  static_cast<int>(XMLParserErrorCode::UnsupportedEncoding))
            << document.first(60).constData();
    }
    Error error;
    EXPECT_FALSE(XMLDocument::fromData("<?xml version='1.0' encoding='UTF-7'?>" +
                                           hidden("<a>" + tagOfManyAttributes() + "</a>"),
                                       Tidy::No, &error));
    EXPECT_EQ(error.code(), static_cast<int>(XMLParserErrorCode::UnsupportedEncoding));
    EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("UTF-7")));
    // A second name, or a declaration without an end, hides nothing either.
    for (const char* head :
         {"<?xml version='1.0' encoding='UTF-8' encoding='UTF-7'?>",
          "<?xml version='1.0' encoding='UTF-7' ", "<?xml encoding='UTF-7' encoding='UTF-8'?>"}) {
        EXPECT_FALSE(XMLDocument::fromData(head + hidden("<a>" + tagOfManyAttributes() + "</a>"),
                                           Tidy::No, &error));
        EXPECT_EQ(error.code(), static_cast<int>(XMLParserErrorCode::UnsupportedEncoding)) << head;
    }
}

TEST(XMLHostileTagsTest, AttributesOfATagAreCountedBeforeARepairToo)
{
    const QByteArray tag = tagOfManyAttributes();
    for (const QByteArray& head : QByteArrayList{"<? ", "<!x \"", "<!-- ", "<![CDATA[",
                                                 "<p a=\"><br>", "<br>", "< ", "<!--> ", "</"}) {
        Error error;
        static_cast<void>(
            XMLDocument::fromData(head + "<en-note>" + tag + "x</en-note>", Tidy::Yes, &error));
    }
    QByteArray bare = "<br><p";
    for (int index = 0; index < 300000; ++index)
        bare += " b" + QByteArray::number(index);
    Error error;
    EXPECT_FALSE(XMLDocument::fromData(bare + ">x", Tidy::Yes, &error));
}

TEST(XMLHostileTagsTest, AMalformedDocumentOfManyEndTagsIsRepairedInTimeThatGrowsWithIt)
{
    Error error;
    static_cast<void>(
        XMLDocument::fromData(QByteArray("<a></a>").repeated(1000000) + "<b", Tidy::Yes, &error));
    static_cast<void>(
        XMLDocument::fromData(QByteArray("<!x>").repeated(1000000) + "<b", Tidy::Yes, &error));
}

} // namespace
