// SPDX-License-Identifier: MIT
#include "tools/CommandFixture.h"

#include <QCryptographicHash>
#include <QRegularExpression>

#include <sys/resource.h>

namespace {

using test::CommandResult;
using test::text;

// Bytes of address space: a program with a few threads, and some copies of the largest note of these tests.
constexpr rlim_t addressSpace = rlim_t(2) << 30;

class HostileInputTest : public test::CommandTest {
protected:
    [[nodiscard]] CommandResult runWithinBounds(const QString& path) const
    {
        return run({text("--files-folder"), text("out"), text("--report"), text("report.json"), path}, [] {
#ifndef __SANITIZE_ADDRESS__
            const rlimit limit = {addressSpace, addressSpace};
            setrlimit(RLIMIT_AS, &limit);
#endif
        });
    }

    // A note that is nothing but one attachment.
    static QByteArray attachment(const QByteArray& fileName)
    {
        const QByteArray hash = QCryptographicHash::hash("%PDF", QCryptographicHash::Md5).toHex();
        return note("Title", "<en-note><en-media type=\"application/pdf\" hash=\"" + hash + "\"/></en-note>",
                    "<resource><data encoding=\"base64\">JVBERg==</data><mime>application/pdf</mime>"
                    "<resource-attributes><file-name>"
                        + fileName + "</file-name></resource-attributes></resource>");
    }

    // Every item lies where its record says, within the notebook's folder.
    void expectItemsWithin(const QString& notebook) const
    {
        for (const QVariant& item : entities(path("out"), "Item")) {
            const QString itemPath = item.toMap().value(text("absoluteFilename")).toString();
            EXPECT_EQ(QFileInfo(itemPath).canonicalPath(), notebook);
        }
    }
};

TEST_F(HostileInputTest, AnAttachmentsNameCannotLeaveTheNotebooksFolder)
{
    const QList<QByteArray> names = {"../../x", "/etc/passwd", "a/b", ".", "..", "...", QByteArray(300, 'n'),
                                     QByteArray(300, 'n') + ".pdf", "", " ", "../Evernote.qllibxml"};
    m_folder.write(text("x"), "outside");
    for (const QByteArray& name : names) {
        const QString path = file("A.enex", attachment(name));
        const CommandResult result = runWithinBounds(path);
        EXPECT_EQ(result.status, 0) << name.constData();
        const qsizetype items = entities(this->path("out"), "Item").size();
        const qsizetype skipped = report().value(text("skipped")).toArray().size();
        EXPECT_EQ(items + skipped, 1) << name.constData();
        expectItemsWithin(QFileInfo(this->path("out/Evernote/A")).canonicalFilePath());
        // Nothing stands beside the notebook but the manifest, beside the files folder but the log.
        constexpr QDir::Filters everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
        EXPECT_EQ(QDir(this->path("out")).entryList(everything).size(), 2) << name.constData();
        EXPECT_EQ(QDir(this->path("out/Evernote")).entryList(everything),
                  (QStringList{text("A"), text("Evernote.qllibxml")}))
            << name.constData();
        EXPECT_EQ(m_folder.read(text("x")), "outside");
        EXPECT_EQ(QDir(m_folder.path()).count(), 6u) << name.constData();
    }
}

TEST_F(HostileInputTest, ANoteThatIsNestedTooDeepIsSkippedAndTheOthersAreImported)
{
    constexpr int levels = 100000;
    const QByteArray body = "<en-note>" + QByteArray("<div>").repeated(levels) + "deep"
                            + QByteArray("</div>").repeated(levels) + "</en-note>";
    const CommandResult result = runWithinBounds(file("A.enex", note("Deep", body) + note("Good")));
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(exists("out/Evernote/A/Good.qlnote"));
    EXPECT_TRUE(result.output.contains(text("Skipped \"Deep\": "))) << qPrintable(result.output);
    EXPECT_EQ(result.lastLine(), text("2 notes: 1 became an item, 1 was skipped."));
}

TEST_F(HostileInputTest, DeepNestingInTheFileIsRefused)
{
    constexpr int levels = 100000;
    const QByteArray nested = QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
    const CommandResult result = runWithinBounds(file("A.enex", nested + note("Good")));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("A.enex: "))) << qPrintable(result.errors);
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed"));
}

TEST_F(HostileInputTest, AnAttributeOfAHundredMegabytesIsRefused)
{
    const QString path
        = file("A.enex", "<x y=\"" + QByteArray(100 * 1000 * 1000, 'a') + "\"/>" + note("Good"));
    const CommandResult result = runWithinBounds(path);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("A.enex: "))) << qPrintable(result.errors);
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed"));
}

TEST_F(HostileInputTest, ExternalEntitiesAreNotRead)
{
    const QByteArray secret = m_folder.write(text("secret"), "the secret").toUtf8();
    const QByteArray declaration = " [<!ENTITY secret SYSTEM \"file://" + secret + "\">]>";
    const QByteArray body = "<!DOCTYPE en-note" + declaration + "<en-note>text &secret;</en-note>";
    const QString path = m_folder.write(
        text("A.enex"), "<!DOCTYPE en-export" + declaration + "<en-export>" + note("T &secret;", body)
                            + "<note><title>Bare</title><content>&secret;</content></note></en-export>");
    const CommandResult result = runWithinBounds(path);
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("2 notes: 1 became an item, 1 was skipped."))
        << qPrintable(result.output);
    EXPECT_FALSE(result.output.contains(text("the secret")));
    const QStringList names = m_folder.tree().filter(QRegularExpression(text("^(out/|report).*[^/]$")));
    EXPECT_GE(names.size(), 4);
    for (const QString& name : names)
        EXPECT_FALSE(m_folder.read(name).contains("the secret")) << qPrintable(name);
}

} // namespace
