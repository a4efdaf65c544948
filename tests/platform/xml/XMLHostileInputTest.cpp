// SPDX-License-Identifier: MIT
#include "platform/xml/XMLDocument.h"
#include "platform/xml/XMLParser.h"
#include "platform/xml/XMLParserError.h"

#include "ParserEvents.h"
#include "support/ScratchFolder.h"

#include <chrono>

#include <sys/resource.h>

namespace {

using platform::Error;
using platform::InputStream;
using platform::XMLAttributes;
using platform::XMLDocument;
using platform::XMLElement;
using platform::XMLParser;
using Tidy = XMLDocument::Tidy;

// A document that is made while it is read: a head, a filling so many times, a tail.
class MadeStream : public InputStream {
public:
    MadeStream(QByteArray head, QByteArray filling, qint64 count, QByteArray tail)
        : m_filling(std::move(filling))
        , m_tail(std::move(tail))
        , m_part(std::move(head))
        , m_left(count)
    {
    }

    bool open(Error*) override { return true; }

    qint64 read(char* buffer, qint64 maximumLength, Error*) override
    {
        qint64 written = 0;
        while (written < maximumLength) {
            if (m_position == m_part.size()) {
                if (m_left < 0)
                    break;
                m_part = m_left-- > 0 ? m_filling : m_tail;
                m_position = 0;
                continue;
            }
            const qint64 count =
                std::min<qint64>(maximumLength - written, m_part.size() - m_position);
            memcpy(buffer + written, m_part.constData() + m_position,
                   static_cast<std::size_t>(count));
            m_position += count;
            written += count;
        }
        return written;
    }

private:
    QByteArray m_filling;
    QByteArray m_tail;
    QByteArray m_part;
    qint64 m_position = 0;
    qint64 m_left;
};

class CountingDelegate : public platform::XMLParserDelegate {
public:
    void parserDidStartElement(XMLParser&, const QString&, const XMLAttributes&) override
    {
        ++elements;
    }
    void parserFoundCharacters(XMLParser&, QUtf8StringView text) override
    {
        characters += text.size();
    }
    void parserFoundCData(XMLParser&, QByteArrayView utf8) override
    {
        cData += utf8.size();
        longestCData = std::max(longestCData, utf8.size());
        checksum += std::count(utf8.begin(), utf8.end(), ']');
    }
    qint64 elements = 0;
    qint64 characters = 0;
    qint64 cData = 0;
    qsizetype longestCData = 0;
    qint64 checksum = 0;
};

struct Outcome {
    Error error;
    CountingDelegate counts;
};

Outcome outcomeOf(InputStream& stream)
{
    Outcome outcome;
    XMLParser parser(stream);
    parser.setDelegate(&outcome.counts);
    const bool succeeded = parser.parse();
    outcome.error = parser.parserError();
    EXPECT_EQ(succeeded, outcome.error.isNull());
    return outcome;
}

Outcome outcomeOf(const QByteArray& data)
{
    const auto stream = InputStream::inputStreamWithData(data);
    return outcomeOf(*stream);
}

// In kilobytes. The address sanitizer keeps freed memory for a while, so there is nothing to see
// then.
long peakMemory()
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#endif
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

constexpr qint64 megabyte = 1024 * 1024;

const QByteArray base64Line =
    QByteArray("QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVphYmNkZWZnaGlqa2xtbm9wcXJzdHV2d3h5ejAxMjM0\n");

TEST(XMLHostileInputTest, ReadsHugeTextInBoundedMemory)
{
    const qint64 lines = 300 * megabyte / base64Line.size();
    const long before = peakMemory();
    MadeStream stream("<a><data>", base64Line, lines, "</data></a>");
    const Outcome outcome = outcomeOf(stream);
    EXPECT_TRUE(outcome.error.isNull()) << outcome.error.localizedDescription().toStdString();
    EXPECT_EQ(outcome.counts.characters, lines * base64Line.size());
    EXPECT_LT(peakMemory() - before, 4 * 1024);
}

TEST(XMLHostileInputTest, ReadsOneHugeLineInBoundedMemory)
{
    const long before = peakMemory();
    MadeStream stream("<a>", QByteArray(1000, 'A'), 100000, "</a>");
    const Outcome outcome = outcomeOf(stream);
    EXPECT_TRUE(outcome.error.isNull());
    EXPECT_EQ(outcome.counts.characters, 100000000);
    EXPECT_LT(peakMemory() - before, 4 * 1024);
}

TEST(XMLHostileInputTest, ReadsHugeCDataInBoundedMemory)
{
    const QByteArray filling = "<div>]] ] é ]]&gt; \r\n" + QByteArray(200, 'x') + "</div>";
    const qint64 count = 200 * megabyte / filling.size();
    const long before = peakMemory();
    MadeStream stream("<a><![CDATA[", filling, count, "]]]]></a>");
    const Outcome outcome = outcomeOf(stream);
    EXPECT_TRUE(outcome.error.isNull()) << outcome.error.localizedDescription().toStdString();
    // Each line break of two characters is one when read.
    EXPECT_EQ(outcome.counts.cData, count * (filling.size() - 1) + 2);
    EXPECT_EQ(outcome.counts.checksum, count * 5 + 2);
    EXPECT_LE(outcome.counts.longestCData, megabyte + 64);
    EXPECT_LT(peakMemory() - before, 12 * 1024);
}

TEST(XMLHostileInputTest, RefusesLongCDataOnlyWhereItCannotBeSplit)
{
    MadeStream latin("<?xml version='1.0' encoding='ISO-8859-1'?><a><![CDATA[",
                     QByteArray(1000, '\xE9'), 20000, "]]></a>");
    EXPECT_THAT(outcomeOf(latin).error.localizedDescription().toStdString(),
                ::testing::HasSubstr("CData section too big"));
    MadeStream shorter("<?xml version='1.0' encoding='ISO-8859-1'?><a><![CDATA[",
                       QByteArray(1000, '\xE9'), 4000, "]]></a>");
    const Outcome outcome = outcomeOf(shorter);
    EXPECT_TRUE(outcome.error.isNull());
    EXPECT_EQ(outcome.counts.cData, 8000000);
}

TEST(XMLHostileInputTest, RefusesHugeAttributes)
{
    MadeStream stream("<a><b x='", QByteArray(1000, 'x'), 100000, "'/></a>");
    const long before = peakMemory();
    const Outcome outcome = outcomeOf(stream);
    EXPECT_FALSE(outcome.error.isNull());
    EXPECT_EQ(outcome.counts.elements, 1);
    EXPECT_LT(peakMemory() - before, 64 * 1024);
}

TEST(XMLHostileInputTest, RefusesDeepNesting)
{
    const Outcome outcome = outcomeOf(QByteArray("<a>").repeated(100000));
    EXPECT_FALSE(outcome.error.isNull());
    EXPECT_LE(outcome.counts.elements, 257);
    const Outcome allowed =
        outcomeOf(QByteArray("<a>").repeated(250) + QByteArray("</a>").repeated(250));
    EXPECT_TRUE(allowed.error.isNull());
}

TEST(XMLHostileInputTest, ReadsManyElements)
{
    MadeStream stream("<a>", "<b/>", 1000000, "</a>");
    const Outcome outcome = outcomeOf(stream);
    EXPECT_TRUE(outcome.error.isNull());
    EXPECT_EQ(outcome.counts.elements, 1000001);
}

TEST(XMLHostileInputTest, HoldsNamesInBoundedMemory)
{
    QByteArray document = "<a>";
    for (int index = 0; index < 100000; ++index)
        document += "<n" + QByteArray::number(index) + QByteArray(300, 'n') + "/>";
    const Outcome outcome = outcomeOf(document + "</a>");
    EXPECT_FALSE(outcome.error.isNull());
}

QByteArray billionLaughs()
{
    QByteArray document = "<!DOCTYPE a [<!ENTITY l0 'lol'>";
    for (int index = 1; index < 10; ++index) {
        const QByteArray before = "&l" + QByteArray::number(index - 1) + ';';
        document += "<!ENTITY l" + QByteArray::number(index) + " '" + before.repeated(10) + "'>";
    }
    return document + "]><a x='&l9;'>1&l9;2</a>";
}

QByteArray quadraticBlowup()
{
    return "<!DOCTYPE a [<!ENTITY e '" + QByteArray(100000, 'x') + "'>]><a>1" +
           QByteArray("&e;").repeated(20000) + "2</a>";
}

TEST(XMLHostileInputTest, EntityBombsAreDuds)
{
    EXPECT_EQ(outcomeOf(billionLaughs()).counts.characters, 2);
    EXPECT_EQ(outcomeOf(quadraticBlowup()).counts.characters, 2);
    EXPECT_TRUE(outcomeOf(quadraticBlowup()).error.isNull());
    for (const QByteArray& data : {billionLaughs(), quadraticBlowup()}) {
        const auto document = XMLDocument::fromData(data, Tidy::Yes);
        ASSERT_TRUE(document);
        EXPECT_EQ(document->rootElement().stringValue(), QStringLiteral("12"));
    }
}

TEST(XMLHostileInputTest, ParameterEntityBombsAreDuds)
{
    QByteArray document =
        "<!DOCTYPE a [<!ENTITY % p0 '" + QByteArray("<!ENTITY x \"y\">").repeated(1000) + "'>";
    for (int index = 1; index < 10; ++index) {
        const QByteArray before = "%p" + QByteArray::number(index - 1) + ';';
        document += "<!ENTITY % p" + QByteArray::number(index) + " '&#37;" +
                    before.mid(1).repeated(10) + "'>";
    }
    document += "%p9;]><a>1&x;2</a>";
    EXPECT_EQ(outcomeOf(document).counts.characters, 2);
    EXPECT_TRUE(XMLDocument::fromData(document, Tidy::Yes));
}

TEST(XMLHostileInputTest, CommentsAndInstructionsInTheSubsetAreHarmless)
{
    const QByteArray document =
        "<!DOCTYPE a [<!-- c --><?p i?><!ELEMENT a ANY><!NOTATION n SYSTEM 'x'>"
        "<!ENTITY u SYSTEM 'x' NDATA n><!ATTLIST a b NOTATION (n) #IMPLIED>]><a>1</a>";
    EXPECT_EQ(outcomeOf(document).counts.characters, 1);
    const auto tree = XMLDocument::fromData(document, Tidy::No);
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->rootElement().xmlString(), QStringLiteral("<a>1</a>"));
}

TEST(XMLHostileInputTest, ManyDeclarationsStayBounded)
{
    QByteArray document = "<!DOCTYPE a [";
    for (int index = 0; index < 100000; ++index)
        document += "<!ENTITY e" + QByteArray::number(index) + " 'text'>";
    EXPECT_TRUE(outcomeOf(document + "]><a>&e1;</a>").error.isNull());
}

TEST(XMLHostileInputTest, DefaultAttributesDoNotGrow)
{
    const QByteArray document = "<!DOCTYPE a [<!ATTLIST b x CDATA '" + QByteArray(1000000, 'x') +
                                "'>]><a>" + QByteArray("<b/>").repeated(10000) + "</a>";
    const long before = peakMemory();
    EXPECT_EQ(outcomeOf(document).counts.elements, 10001);
    const auto tree = XMLDocument::fromData(document, Tidy::No);
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->rootElement().firstChild()->toElement()->attribute(u"x"), std::nullopt);
    EXPECT_LT(peakMemory() - before, 40 * 1024);
}

TEST(XMLHostileInputTest, ExternalEntitiesAndDtdsAreNotRead)
{
    const test::ScratchFolder folder;
    const QByteArray secret = folder.write(QStringLiteral("secret.txt"), "SECRET").toUtf8();
    const QByteArray dtd =
        folder
            .write(QStringLiteral("a.dtd"), "<!ENTITY inDtd 'SECRET'><!ATTLIST a d CDATA 'SECRET'>")
            .toUtf8();
    const QByteArray document =
        "<!DOCTYPE a SYSTEM 'file://" + dtd + "' [<!ENTITY e SYSTEM 'file://" + secret +
        "'><!ENTITY % p SYSTEM 'file://" + dtd + "'>%p;]><a x='&inDtd;'>1&e;&inDtd;2</a>";
    const test::Parsed events = test::parsed(document);
    EXPECT_TRUE(events.succeeded);
    EXPECT_EQ(events.lines.first(2),
              QStringList({QStringLiteral("start a x=[]"), QStringLiteral("text 12")}));
    const auto strict = XMLDocument::fromData(document, Tidy::No);
    ASSERT_TRUE(strict);
    EXPECT_EQ(strict->rootElement().xmlString(), QStringLiteral("<a x=\"\">12</a>"));
    const auto tidy = XMLDocument::fromData(document, Tidy::Yes);
    ASSERT_TRUE(tidy);
    EXPECT_FALSE(tidy->rootElement().xmlString().contains(QStringLiteral("SECRET")));
}

TEST(XMLHostileInputTest, DeepTreesAreRefusedAndDeepOnesBelowTheLimitWork)
{
    for (const char* levels : {"<x>", "<div>", "<b>"}) {
        const QByteArray name = QByteArray(levels).mid(1).chopped(1);
        const QByteArray start = QByteArray(levels).repeated(100000);
        const QByteArray end = QByteArray("</" + name + ">").repeated(100000);
        Error error;
        EXPECT_FALSE(XMLDocument::fromData(start + "x" + end, Tidy::Yes, &error));
        EXPECT_EQ(error.code(), static_cast<int>(platform::XMLParserErrorCode::LimitExceeded));
        EXPECT_FALSE(XMLDocument::fromData(start + "x", Tidy::Yes, &error));
        EXPECT_THAT(error.localizedDescription().toStdString(),
                    ::testing::HasSubstr("within more than 2048"));
        EXPECT_FALSE(XMLDocument::fromData("<p>x<br>y</i>" + start + "x" + end, Tidy::Yes, &error));
        EXPECT_THAT(error.localizedDescription().toStdString(),
                    ::testing::HasSubstr("within more than 2048"));
    }
    const QByteArray deep =
        QByteArray("<div>").repeated(2000) + "x" + QByteArray("</div>").repeated(2000);
    const auto document = XMLDocument::fromData(deep, Tidy::Yes);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().xmlData(), deep);
    XMLElement note = XMLElement::create(QStringLiteral("en-note"));
    EXPECT_TRUE(note.addChild(document->rootElement()));
    EXPECT_EQ(note.stringValue(), QStringLiteral("x"));
    const auto repaired = XMLDocument::fromData(deep.chopped(6), Tidy::Yes);
    ASSERT_TRUE(repaired);
    EXPECT_EQ(repaired->rootElement().xmlData(), deep);
}

TEST(XMLHostileInputTest, ManyUnclosedUnknownElementsAreQuick)
{
    const QByteArray data = "<n>" + QByteArray("<todo>x").repeated(2000) + "<br></n>";
    const auto document = XMLDocument::fromData(data, Tidy::Yes);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().childCount(), 4001);
}

TEST(XMLHostileInputTest, LargeTreesAreReadAndRepairedQuickly)
{
    const auto start = std::chrono::steady_clock::now();
    const QByteArray attribute = "<n><img src='" + QByteArray(12000000, 'A') + "'/>";
    EXPECT_TRUE(XMLDocument::fromData(attribute + "</n>", Tidy::No));
    EXPECT_TRUE(XMLDocument::fromData(attribute + "<br></n>", Tidy::Yes));
    EXPECT_TRUE(
        XMLDocument::fromData("<n><![CDATA[" + QByteArray(20000000, 'A') + "]]></n>", Tidy::No));
    const QByteArray many = "<n>" + QByteArray("<p>a<b>c</b></p>").repeated(200000);
    EXPECT_TRUE(XMLDocument::fromData(many + "</n>", Tidy::Yes));
    EXPECT_TRUE(XMLDocument::fromData(many, Tidy::Yes));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(XMLHostileInputTest, RandomDamageNeverBreaksTheReaders)
{
    const QByteArray note =
        "<?xml version='1.0'?><!DOCTYPE n SYSTEM 'x' [<!ENTITY e 'f'><!ATTLIST n a CDATA 'd'>]>"
        "<n b='c&amp;&e;'><!-- d --><?e f?><g/><![CDATA[h]]>&nbsp;&#233;i<br></br></n>";
    quint32 random = 1;
    for (int round = 0; round < 20000; ++round) {
        QByteArray damaged = note;
        for (int change = 0; change < 1 + round % 4; ++change) {
            random = random * 1664525 + 1013904223;
            const qsizetype place = (random >> 8) % damaged.size();
            const char replacement = "<>&;/!?-[]'\"= a\0\xC3\xFF"[(random >> 24) % 19];
            if (random & 0x80)
                damaged[place] = replacement;
            else if (random & 0x40)
                damaged.insert(place, replacement);
            else
                damaged.remove(place, 1 + (random >> 4) % 8);
        }
        static_cast<void>(test::parsed(damaged));
        if (const auto document = XMLDocument::fromData(damaged, Tidy::Yes)) {
            const QByteArray markup = document->rootElement().xmlData();
            Error error;
            const auto again = XMLDocument::fromData(markup, Tidy::No, &error);
            ASSERT_TRUE(again) << damaged.constData() << "\n" << markup.constData();
            ASSERT_EQ(again->rootElement().xmlData(), markup);
        }
    }
}

} // namespace
