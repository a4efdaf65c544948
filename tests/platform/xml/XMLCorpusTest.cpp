// SPDX-License-Identifier: MIT
#include "platform/xml/XMLDocument.h"

#include "ParserEvents.h"
#include "support/ScratchFolder.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace {

using platform::Error;
using platform::XMLAttributes;
using platform::XMLDocument;
using platform::XMLParser;

// The bodies of the notes of an export.
class BodyCollector : public platform::XMLParserDelegate {
public:
    void parserDidStartElement(XMLParser&, const QString& name, const XMLAttributes&) override
    {
        m_inContent = name == u"content";
        if (m_inContent)
            bodies.emplace_back();
    }
    void parserFoundCData(XMLParser&, QByteArrayView utf8) override
    {
        if (m_inContent)
            bodies.back().append(utf8);
    }
    std::vector<QByteArray> bodies;

private:
    bool m_inContent = false;
};

std::vector<QByteArray> bodiesOf(const QByteArray& data)
{
    const auto stream = platform::InputStream::inputStreamWithData(data);
    XMLParser parser(*stream);
    BodyCollector collector;
    parser.setDelegate(&collector);
    static_cast<void>(parser.parse());
    return collector.bodies;
}

// The words of a body by its angle brackets alone.
QString wordsOfMarkup(const QByteArray& body)
{
    QString text = QString::fromUtf8(body);
    text.remove(QStringLiteral("<![CDATA["));
    text.remove(QRegularExpression(QStringLiteral("<[!?][^>]*>")));
    text.remove(QRegularExpression(QStringLiteral("</?[a-zA-Z][^>]*>")));
    text.replace(QStringLiteral("&nbsp;"), QStringLiteral("\u00A0"));
    text.replace(QStringLiteral("&lt;"), QStringLiteral("<"));
    text.replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    text.replace(QStringLiteral("&quot;"), QStringLiteral("\""));
    text.replace(QStringLiteral("&apos;"), QStringLiteral("'"));
    text.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
    return text.remove(QRegularExpression(QStringLiteral("\\s+")));
}

class XMLCorpusTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const QString shared = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY");
        m_folder = shared + QStringLiteral("/corpus");
        if (shared.isEmpty() || !QFileInfo(m_folder).isDir())
            GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with real exports";
    }

    QStringList files() const
    {
        QStringList result;
        QDirIterator iterator(m_folder, {QStringLiteral("*.enex")}, QDir::Files,
                              QDirIterator::Subdirectories);
        while (iterator.hasNext())
            result += iterator.next();
        return result;
    }

    QString m_folder;
};

TEST_F(XMLCorpusTest, RealExportsReadAlikeInChunksOfOneByte)
{
    int good = 0;
    for (const QString& path : files()) {
        SCOPED_TRACE(path.toStdString());
        const test::Parsed result = test::parsed(test::readFile(path));
        good += result.succeeded ? 1 : 0;
        EXPECT_THAT(result.succeeded ? "at line"
                                     : result.error.localizedDescription().toStdString(),
                    ::testing::HasSubstr("at line"));
    }
    // Two are malformed outside their notes' bodies.
    EXPECT_EQ(good, files().size() - 2);
}

TEST_F(XMLCorpusTest, RealBodiesKeepTheirText)
{
    int bodies = 0;
    int repairs = 0;
    int refusals = 0;
    for (const QString& path : files()) {
        for (const QByteArray& body : bodiesOf(test::readFile(path))) {
            SCOPED_TRACE(path.toStdString());
            ++bodies;
            Error error;
            const auto document = XMLDocument::fromData(body, XMLDocument::Tidy::Yes, &error);
            if (!document) {
                ++refusals;
                EXPECT_EQ(wordsOfMarkup(body), QString())
                    << error.localizedDescription().toStdString();
                continue;
            }
            repairs += document->wasRepaired() ? 1 : 0;
            EXPECT_TRUE(document->rootElementNamed(u"en-note"));
            EXPECT_EQ(document->rootElement().stringValue().remove(
                          QRegularExpression(QStringLiteral("\\s+"))),
                      wordsOfMarkup(body));
            const auto again = XMLDocument::fromData(document->rootElement().xmlData(),
                                                     XMLDocument::Tidy::No, &error);
            ASSERT_TRUE(again) << error.localizedDescription().toStdString();
            EXPECT_EQ(again->rootElement().xmlData(), document->rootElement().xmlData());
        }
    }
    EXPECT_EQ(bodies, 95);
    // One of them ends in an unclosed CDATA section.
    EXPECT_EQ(repairs, 3);
    // An empty one.
    EXPECT_EQ(refusals, 1);
}

} // namespace
