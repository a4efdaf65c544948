// SPDX-License-Identifier: MIT
// The bodies of real notes: none may fail, and no visible word of them may get lost.
#include "platform/htmlimport/HtmlImportSupport.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace {

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

class HtmlCorpusTest : public testing::Test {
protected:
    void SetUp() override
    {
        const QString corpus = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + s("/corpus");
        if (!qEnvironmentVariableIsSet("VUPUGE_SHARED_DIRECTORY") || !QDir(corpus).exists())
            GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with real exports";
        const QRegularExpression content(s("<content>\\s*<!\\[CDATA\\[(.*?)\\]\\]>\\s*</content>"),
                                         QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpression prologue(s("<\\?xml[^>]*>|<!DOCTYPE[^>]*>"));
        QDirIterator files(corpus, {s("*.enex")}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            auto matches = content.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext())
                m_bodies.push_back(matches.next().captured(1).remove(prologue));
        }
        ASSERT_GT(m_bodies.size(), 50);
    }

    QStringList m_bodies;
};

QString withoutBlanks(QString text)
{
    return text.remove(QRegularExpression(s("[\\s\\x{200B}]+")));
}

TEST_F(HtmlCorpusTest, NoVisibleWordIsLost)
{
    const QRegularExpression hides(
        s("display: ?none|visibility: ?hidden|<style|text-transform|<svg|<object"));
    const QRegularExpression tags(s("<[^>]*>"));
    int compared = 0;
    for (const QString& body : m_bodies) {
        const auto text = test::import((s("<html><body>") + body + s("</body></html>")).toUtf8());
        if (body.contains(hides))
            continue;
        const QString found = withoutBlanks(text.string());
        QString visible = body;
        for (const QString& word :
             visible.replace(tags, s(" "))
                 .split(QRegularExpression(s("[\\s]+")), Qt::SkipEmptyParts)) {
            if (word.contains(u'&') || word.contains(u'<') || word.contains(u'>'))
                continue;
            EXPECT_TRUE(found.contains(withoutBlanks(word))) << qPrintable(word);
            ++compared;
        }
    }
    EXPECT_GT(compared, 1000);
}

// Cut off anywhere, a note goes through the repair; what stood before the cut is still there.
TEST_F(HtmlCorpusTest, TruncatedNotesKeepWhatTheyHave)
{
    for (const QString& body : m_bodies) {
        const QByteArray page = (s("<html><body>") + body).toUtf8().left(20000);
        for (qsizetype length = 1; length < page.size(); length += 997)
            (void)test::import(page.left(length));
    }
}

} // namespace
