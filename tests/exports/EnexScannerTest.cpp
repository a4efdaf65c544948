// SPDX-License-Identifier: MIT
#include "exports/EnexScanner.h"

#include "exports/EnexDocuments.h"
#include "platform/xml/XMLParser.h"

#include <QDirIterator>

#include <random>

using platform::InputStream;

namespace {

using Outcome = EnexScanner::Outcome;

// Bytes that arrive a few at a time.
class Trickle : public InputStream {
public:
    Trickle(QByteArray data, qint64 step)
        : m_data(std::move(data))
        , m_step(step)
    {
    }
    bool open(platform::Error*) override { return true; }
    qint64 read(char* buffer, qint64 maximumLength, platform::Error*) override
    {
        const qint64 length = std::min({m_step, maximumLength, m_data.size() - m_position});
        std::memcpy(buffer, m_data.constData() + m_position, static_cast<std::size_t>(length));
        m_position += length;
        return length;
    }

private:
    QByteArray m_data;
    qint64 m_step;
    qint64 m_position = 0;
};

struct Found {
    Outcome outcome;
    quint64 notes;
    // Of each note, as the document has it.
    QByteArrayList texts;
};

Found scan(const QByteArray& data, qint64 step = 1 << 20)
{
    Trickle stream(data, step);
    EnexScanner scanner(stream);
    QByteArrayList texts;
    scanner.setNoteFound(
        [&](qint64 start, qint64 end) { texts += data.sliced(start, end - start); });
    const Outcome outcome = scanner.scan();
    return {outcome, scanner.noteCount(), texts};
}

// How many notes the parser finds; none where it refuses the document.
std::optional<quint64> parse(const QByteArray& data)
{
    struct Counter : platform::XMLParserDelegate {
        void parserDidEndElement(platform::XMLParser&, const QString& name) override
        {
            notes += name == QLatin1String("note") ? 1 : 0;
        }
        quint64 notes = 0;
    };
    const auto stream = InputStream::inputStreamWithData(data);
    platform::XMLParser parser(*stream);
    Counter counter;
    parser.setDelegate(&counter);
    return parser.parse() ? std::optional(counter.notes) : std::nullopt;
}

// Nothing that the scanner claims to know may be otherwise for the parser.
void expectAgreement(const QByteArray& data)
{
    const Found found = scan(data);
    if (found.outcome != Outcome::Known)
        return;
    const std::optional<quint64> parsed = parse(data);
    ASSERT_TRUE(parsed) << data.toStdString();
    ASSERT_EQ(found.notes, *parsed) << data.toStdString();
}

TEST(EnexScannerTest, NotesAreFoundWhereTheyStand)
{
    const QByteArray first = test::note("a");
    const QByteArray second = "<note  x='>'>\n</note >";
    const Found found = scan(test::document("\n  " + first + "\n" + second + "<note/>"));
    EXPECT_EQ(found.outcome, Outcome::Known);
    EXPECT_EQ(found.notes, 3u);
    EXPECT_EQ(found.texts, QByteArrayList({first, second, "<note/>"}));
}

TEST(EnexScannerTest, WhatLooksLikeANoteInTextIsNone)
{
    const QByteArray disguised =
        "<!-- <note></note> - --><title>&lt;note>&#60;/note></title>"
        "<content><![CDATA[<note></note>]] ]]]]><![CDATA[></note><note>]]></content>";
    const Found found =
        scan(test::document("<note a='</note>' b=\"&lt;note>\">" + disguised + "</note>"));
    // A "<" in an attribute is no XML; without it all is known.
    EXPECT_EQ(found.outcome, Outcome::Unknown);
    const Found known = scan(test::document("<note b=\"&lt;note>\">" + disguised + "</note>"));
    EXPECT_EQ(known.outcome, Outcome::Known);
    EXPECT_EQ(known.notes, 1u);
}

TEST(EnexScannerTest, TheHeadersAttributesAreRead)
{
    Trickle stream(test::document(""), 7);
    EnexScanner scanner(stream);
    EXPECT_EQ(scanner.scan(), Outcome::Known);
    EXPECT_EQ(scanner.application(), "Evernote");
    EXPECT_EQ(scanner.version(), "10.104.3");
    Trickle odd("<en-export version='&lt;1&amp;lt;&quot;\xC3\xA4'/>", 100);
    EnexScanner oddScanner(odd);
    EXPECT_EQ(oddScanner.scan(), Outcome::Known);
    EXPECT_EQ(oddScanner.version(), QString::fromUtf8("<1&lt;\"ä"));
    EXPECT_TRUE(oddScanner.application().isEmpty());
}

TEST(EnexScannerTest, TheUsualIsKnown)
{
    for (const QByteArray& data : {
             QByteArray("<en-export/>"),
             QByteArray("\xEF\xBB\xBF<en-export></en-export>\n\n"),
             QByteArray("<?xml version='1.0'?><en-export><note/></en-export><!-- x -->"),
             QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\" ?>\n<a/>"),
             QByteArray("<!DOCTYPE en-export><en-export/>"),
             QByteArray(
                 "<!-- x --><!DOCTYPE a SYSTEM 'b.dtd' ><!-- y --><a b='c' d = \"e\" ></a >"),
             QByteArray("<a>&#x10FFFF;&#9;&#xD7FF;&apos;]] ]></a>").replace("]]>", "]] >"),
             "<a>" + QString::fromUtf8("äöü 日本語 😀 \u0085").toUtf8() + "</a>",
         }) {
        EXPECT_EQ(scan(data).outcome, Outcome::Known) << data.toStdString();
        EXPECT_TRUE(parse(data)) << data.toStdString();
    }
}

TEST(EnexScannerTest, WhateverIsOutOfItsBoundsIsUnknown)
{
    for (const QByteArray& data : {
             QByteArray(),
             QByteArray(" "),
             QByteArray("text"),
             QByteArray("<a>"),
             QByteArray("<a></b>"),
             QByteArray("<a></a"),
             QByteArray("<a/><b/>"),
             QByteArray("<a/>text"),
             QByteArray("text<a/>"),
             QByteArray("<a><b></a></b>"),
             QByteArray("<a b='1' b='2'/>"),
             QByteArray("<a b=c/>"),
             QByteArray("<a b/>"),
             QByteArray("<a b='&x;'/>"),
             QByteArray("<a b='1'c='2'/>"),
             QByteArray("< a/>"),
             QByteArray("<a>&nbsp;</a>"),
             QByteArray("<a>&#0;</a>"),
             QByteArray("<a>&#xD800;</a>"),
             QByteArray("<a>&#x110000;</a>"),
             QByteArray("<a>&amp</a>"),
             QByteArray("<a>R&D</a>"),
             QByteArray("<a>]]></a>"),
             QByteArray("<a><![CDATA[</a>"),
             QByteArray("<a>\x01</a>"),
             QByteArray("<a>\xC3</a>"),
             QByteArray("<a>\xC0\x80</a>"),
             QByteArray("<a>\xFF</a>"),
             QByteArray("<a>\xED\xA0\x80</a>"),
             QByteArray("<a>\xEF\xBF\xBE</a>"),
             QByteArray("<a>\xF4\x90\x80\x80</a>"),
             QByteArray("<a><![CDATA[\xE2\x82]]></a>"),
             QByteArray("<a><!-- -- --></a>"),
             QByteArray("<a><!-- x ---></a>"),
             QByteArray("<a><!-- x"),
             QByteArray("<a><?pi?></a>"),
             QByteArray("<a><!x></a>"),
             QByteArray("\n<?xml version='1.0'?><a/>"),
             QByteArray("<?xml version='1.1'?><a/>"),
             QByteArray("<?xml version='1.0' encoding='iso-8859-1'?><a/>"),
             QByteArray("<?xml version='1.0' encoding='utf-16'?><a/>"),
             QByteArray("<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"),
             QByteArray("<!DOCTYPE a><!DOCTYPE a><a/>"),
             QByteArray("\xFF\xFE<\0a\0/\0>\0", 10),
             // Notes that others hold, or that hold the others.
             QByteArray("<a><note><note/></note></a>"),
             QByteArray("<a><b><note/></b></a>"),
             QByteArray("<note/>"),
             QByteArray("<x:note/>"),
             QByteArray("<\xC3\xA4/>"),
             "<a b='" + QByteArray(20000, 'x') + "'/>",
             QByteArray("<a>").repeated(300) + QByteArray("</a>").repeated(300),
         })
        EXPECT_EQ(scan(data).outcome, Outcome::Unknown) << data.left(100).toStdString();
}

TEST(EnexScannerTest, HowTheBytesArriveMakesNoDifference)
{
    const QByteArray data = test::document(
        test::note("a &amp; b", QString::fromUtf8("日本語 ]]]]").toUtf8(), "<tag>&#228;</tag>") +
        "<!-- x ]] y -->" + test::note("c") + "<note/>");
    const Found whole = scan(data);
    ASSERT_EQ(whole.outcome, Outcome::Known);
    for (const qint64 step : {1, 2, 3, 5, 7, 11, 64}) {
        const Found found = scan(data, step);
        EXPECT_EQ(found.outcome, Outcome::Known) << step;
        EXPECT_EQ(found.texts, whole.texts) << step;
    }
}

TEST(EnexScannerTest, WhatIsLongerThanTheWindowIsStillKnown)
{
    const QByteArray data(3 * ByteWindow::capacity / 2, 'x');
    const QByteArray big =
        test::note("a", data, "<resource><data encoding=\"base64\">" + data + "</data></resource>");
    const Found found = scan(test::document(big + test::note("b")));
    EXPECT_EQ(found.outcome, Outcome::Known);
    EXPECT_EQ(found.texts.value(0), big);
    EXPECT_EQ(found.notes, 2u);
}

TEST(EnexScannerTest, AStreamThatFailsIsUnreadable)
{
    struct Failing : InputStream {
        bool open(platform::Error*) override { return true; }
        qint64 read(char*, qint64, platform::Error* error) override
        {
            platform::setError(error, {QStringLiteral("Own"), 5});
            return -1;
        }
    };
    Failing stream;
    EnexScanner scanner(stream);
    EXPECT_EQ(scanner.scan(), Outcome::Unreadable);
    EXPECT_EQ(scanner.error().code(), 5);
}

TEST(EnexScannerTest, WhatItKnowsTheParserFindsAsWellHoweverTheFileIsDamaged)
{
    const QByteArray original =
        test::document(test::note("a &amp; b", "x <b>y</b> ]] z",
                                  "<tag>t</tag><resource><data "
                                  "encoding=\"base64\">QUJD\nREVG</data></resource>") +
                       "<!-- c --><note x='y'/>" + test::note(QString::fromUtf8("ä日😀").toUtf8()));
    ASSERT_EQ(scan(original).outcome, Outcome::Known);
    const QByteArray pieces = "<>&;]![CDATA-/?'\"= \n\x01\xC3\xA4\xFF"
                              "noteab#x0";
    std::mt19937 random(20240907);
    const auto number = [&random](qsizetype below) {
        return std::uniform_int_distribution<qsizetype>(0, below - 1)(random);
    };
    quint64 known = 0;
    for (int round = 0; round < 10000; ++round) {
        QByteArray data = original;
        for (qsizetype change = number(3); change >= 0; --change) {
            const qsizetype place = number(data.size());
            switch (number(4)) {
            case 0:
                data[place] = pieces[number(pieces.size())];
                break;
            case 1:
                data.insert(place, pieces[number(pieces.size())]);
                break;
            case 2:
                data.remove(place, 1 + number(12));
                break;
            default:
                data.insert(place, data.mid(number(data.size()), number(40)));
                break;
            }
        }
        expectAgreement(data);
        known += scan(data).outcome == Outcome::Known ? 1 : 0;
    }
    // It would be of little use if it gave up at every change.
    EXPECT_GT(known, 1000u);
}

TEST(EnexScannerTest, NearlyAllRealFilesAreKnownAndAgreeWithTheParser)
{
    const QString corpus = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + "/corpus";
    if (!qEnvironmentVariableIsSet("VUPUGE_SHARED_DIRECTORY") || !QDir(corpus).exists())
        GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with real exports";
    int files = 0;
    int known = 0;
    for (QDirIterator found(corpus, {"*.enex"}, QDir::Files, QDirIterator::Subdirectories);
         found.hasNext();) {
        QFile file(found.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray data = file.readAll();
        expectAgreement(data);
        ++files;
        known += scan(data).outcome == Outcome::Known ? 1 : 0;
    }
    EXPECT_GT(files, 70);
    EXPECT_GE(known, files - 4);
}

} // namespace
