// SPDX-License-Identifier: MIT
#include "platform/rtfd/AttachmentNames.h"

namespace {

using platform::AttachmentNames;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

TEST(AttachmentNamesTest, KeepsASafeNameAsItIs)
{
    AttachmentNames names;
    EXPECT_EQ(names.uniqueName(text("Bild ä {1} \\ 日本.png")), text("Bild ä {1} \\ 日本.png"));
    EXPECT_EQ(names.uniqueName(text(".hidden")), text(".hidden"));
    EXPECT_EQ(names.uniqueName(text("a:b*?.txt")), text("a:b*?.txt"));
}

TEST(AttachmentNamesTest, NumbersADuplicateBeforeItsExtension)
{
    AttachmentNames names;
    EXPECT_EQ(names.uniqueName(text("report.pdf")), text("report.pdf"));
    EXPECT_EQ(names.uniqueName(text("report.pdf")), text("report-1.pdf"));
    EXPECT_EQ(names.uniqueName(text("report.pdf")), text("report-2.pdf"));
    EXPECT_EQ(names.uniqueName(text("README")), text("README"));
    EXPECT_EQ(names.uniqueName(text("README")), text("README-1"));
    EXPECT_EQ(names.uniqueName(text(".profile")), text(".profile"));
    EXPECT_EQ(names.uniqueName(text(".profile")), text(".profile-1"));
}

TEST(AttachmentNamesTest, PassesOverANumberedNameThatIsTaken)
{
    AttachmentNames names;
    EXPECT_EQ(names.uniqueName(text("a-1.png")), text("a-1.png"));
    EXPECT_EQ(names.uniqueName(text("a.png")), text("a.png"));
    EXPECT_EQ(names.uniqueName(text("a.png")), text("a-2.png"));
}

TEST(AttachmentNamesTest, TakesLetterCaseAndCompositionForTheSameName)
{
    AttachmentNames names;
    EXPECT_EQ(names.uniqueName(text("Photo.PNG")), text("Photo.PNG"));
    EXPECT_EQ(names.uniqueName(text("photo.png")), text("photo-1.png"));
    EXPECT_EQ(names.uniqueName(text("\u00C4rger.txt")), text("\u00C4rger.txt"));
    EXPECT_EQ(names.uniqueName(text("a\u0308rger.txt")), text("a\u0308rger-1.txt"));
}

TEST(AttachmentNamesTest, KeepsReservedNamesFree)
{
    AttachmentNames names({text("TXT.rtf"), text("Record")});
    EXPECT_EQ(names.uniqueName(text("txt.RTF")), text("txt-1.RTF"));
    EXPECT_EQ(names.uniqueName(text("Record")), text("Record-1"));
}

TEST(AttachmentNamesTest, LeavesNothingThatWouldLeaveTheFolder)
{
    AttachmentNames names;
    EXPECT_EQ(names.uniqueName(text("../../etc/passwd")), text("..-..-etc-passwd"));
    EXPECT_EQ(names.uniqueName(text("..")), text("Attachment"));
    EXPECT_EQ(names.uniqueName(text(".")), text("Attachment-1"));
    EXPECT_EQ(names.uniqueName(text("")), text("Attachment-2"));
    EXPECT_EQ(names.uniqueName(text("  ")), text("Attachment-3"));
    EXPECT_EQ(names.uniqueName(QStringLiteral("a") + QChar(0) + QStringLiteral("b\nc")), text("a-b-c"));
    EXPECT_EQ(names.uniqueName(QStringLiteral("x") + QChar(0xD800) + QStringLiteral(".png")), text("x-.png"));
}

TEST(AttachmentNamesTest, CutsALongNameBeforeItsExtensionOnACharacter)
{
    AttachmentNames names;
    const QString name = names.uniqueName(QString(200, QChar(0x00E4)) + text(".jpeg"));
    EXPECT_EQ(name, QString(125, QChar(0x00E4)) + text(".jpeg"));
    EXPECT_EQ(name.toUtf8().size(), 255);
    EXPECT_EQ(names.uniqueName(QString(200, QChar(0x00E4)) + text(".jpeg")),
              QString(124, QChar(0x00E4)) + text("-1.jpeg"));
    const QString faces = names.uniqueName(text("😀").repeated(100));
    EXPECT_EQ(faces, text("😀").repeated(63));
    EXPECT_EQ(names.uniqueName(QString(300, u'a')).size(), 255);
    EXPECT_EQ(names.uniqueName(QString(300, u'a')), QString(253, u'a') + text("-1"));
}

TEST(AttachmentNamesTest, AThousandFilesOfOneNameAreNamedInOrder)
{
    AttachmentNames names;
    QString last;
    for (int count = 0; count <= 20000; ++count)
        last = names.uniqueName(text("image.png"));
    EXPECT_EQ(last, text("image-20000.png"));
}

} // namespace
