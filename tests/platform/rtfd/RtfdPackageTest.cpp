// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfdPackage.h"

#include "platform/files/FileManager.h"
#include "platform/rtfd/RichText.h"
#include "support/ScratchFolder.h"

#include <stdexcept>

namespace {

using namespace platform;

std::shared_ptr<TextAttachment> attachment(const char* name, const QByteArray& contents,
                                           TextAttachment::Size size = {})
{
    auto made = std::make_shared<TextAttachment>(FileWrapper::regularFile(contents, QString::fromUtf8(name)));
    made->setSize(size);
    return made;
}

FileWrapper::Pointer packageOf(const AttributedString& text)
{
    return rtfdFileWrapper(text, {0, text.length()});
}

QStringList keysOf(const FileWrapper& package)
{
    QStringList keys;
    for (const FileWrapper::Child& child : package.children())
        keys.append(child.key);
    return keys;
}

TEST(RtfdPackageTest, HoldsTheTextAndOneFileForEachAttachment)
{
    AttributedString text = test::plain(QStringLiteral("a"));
    text.append(AttributedString::withAttachment(attachment("Bär {1}.png", "PNG", {10, 20.5})));
    text.append(AttributedString::withAttachment(attachment("b.pdf", "PDF")));
    const auto package = packageOf(text);
    EXPECT_EQ(keysOf(*package), (QStringList{QString::fromUtf8("Bär {1}.png"), QStringLiteral("b.pdf"),
                                             QStringLiteral("TXT.rtf")}));
    EXPECT_TRUE(package->childForKey(rtfdTextFilename)
                    ->contents()
                    .contains("{{\\NeXTGraphic B\\'c3\\'a4r \\{1\\}.png \\width200 "
                              "\\height410\n}\xAC}{{\\NeXTGraphic b.pdf \\width0 \\height0\n}\xAC}"));
    EXPECT_EQ(package->childForKey(QStringLiteral("b.pdf"))->contents(), "PDF");
}

TEST(RtfdPackageTest, AnEmptyTextHasTheTextFileOnly)
{
    EXPECT_EQ(keysOf(*packageOf(AttributedString())), QStringList{QStringLiteral("TXT.rtf")});
}

TEST(RtfdPackageTest, EqualNamesAreToldApartAndSharedFilesAreShared)
{
    const auto first = attachment("a.png", "1");
    const auto sharing = std::make_shared<TextAttachment>(first->fileWrapper());
    AttributedString text;
    for (const auto& each : {first, attachment("A.png", "2"), first, sharing, attachment("TXT.rtf", "3")})
        text.append(AttributedString::withAttachment(each));
    const auto package = packageOf(text);
    EXPECT_EQ(keysOf(*package), (QStringList{QStringLiteral("a.png"), QStringLiteral("A-1.png"),
                                             QStringLiteral("TXT-1.rtf"), QStringLiteral("TXT.rtf")}));
    EXPECT_EQ(package->childForKey(rtfdTextFilename)->contents().count("\\NeXTGraphic a.png "), 3);
    EXPECT_EQ(first->fileWrapper()->preferredFilename(), QStringLiteral("a.png"));
}

TEST(RtfdPackageTest, ReservedNamesStayFree)
{
    const AttributedString text = AttributedString::withAttachment(attachment("Record", "x"));
    const auto package = rtfdFileWrapper(text, {0, 1}, {}, {QStringLiteral("record")});
    EXPECT_EQ(keysOf(*package), (QStringList{QStringLiteral("Record-1"), QStringLiteral("TXT.rtf")}));
}

TEST(RtfdPackageTest, AnAttachmentWithoutAFileKeepsItsPlaceAndSize)
{
    const auto missing = std::make_shared<TextAttachment>();
    missing->setSize({3, 4});
    AttributedString text = test::plain(QStringLiteral("a"));
    text.append(AttributedString::withAttachment(missing));
    const auto package = packageOf(text);
    EXPECT_EQ(keysOf(*package), QStringList{QStringLiteral("TXT.rtf")});
    const auto read = attributedStringFromRtfd(*package);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->string(), QStringLiteral("a\uFFFC"));
    EXPECT_EQ(read->attributesAt(1).attachment->fileWrapper(), nullptr);
    EXPECT_EQ(read->attributesAt(1).attachment->size(), (TextAttachment::Size{3, 4}));
    EXPECT_EQ(packageOf(*read)->childForKey(rtfdTextFilename)->contents(),
              package->childForKey(rtfdTextFilename)->contents());
}

TEST(RtfdPackageTest, WritesARangeOfTheText)
{
    AttributedString text = test::plain(QStringLiteral("abc"));
    text.append(AttributedString::withAttachment(attachment("a.png", "1")));
    const auto package = rtfdFileWrapper(text, {1, 2});
    EXPECT_EQ(keysOf(*package), QStringList{QStringLiteral("TXT.rtf")});
    EXPECT_EQ(attributedStringFromRtfd(*package)->string(), QStringLiteral("bc"));
    EXPECT_THROW((void)rtfdFileWrapper(text, {1, 4}), std::out_of_range);
}

TEST(RtfdPackageTest, ComesBackFromTheDiskAndIsWrittenAgainWithTheSameBytes)
{
    const test::ScratchFolder scratch;
    AttributedString text = test::plain(QStringLiteral("a"));
    text.append(test::styled(QStringLiteral("\uFFFC"), [](TextAttributes& a) {
        a.attachment = attachment("Ärger?.png", "PNG", {1, 2});
    }));
    text.append(test::plain(QStringLiteral("b\n")));
    DocumentAttributes attributes;
    attributes.backgroundColor = Color::fromRgb8(1, 2, 3);
    attributes.author = QStringLiteral("Me");
    const auto package = rtfdFileWrapper(text, {0, text.length()}, attributes);
    ASSERT_TRUE(package->writeTo(scratch.filePath("a.rtfd"), FileWrapper::WriteMode::Atomic));
    EXPECT_EQ(scratch.tree(), (QStringList{QStringLiteral("a.rtfd/"), QStringLiteral("a.rtfd/TXT.rtf"),
                                           QString::fromUtf8("a.rtfd/Ärger?.png")}));

    DocumentAttributes readAttributes;
    const auto read = attributedStringFromRtfd(scratch.filePath("a.rtfd"), &readAttributes);
    ASSERT_TRUE(read);
    EXPECT_EQ(test::described(*read), test::described(text));
    EXPECT_EQ(readAttributes, attributes);
    const auto again = rtfdFileWrapper(*read, {0, read->length()}, readAttributes);
    EXPECT_EQ(again->childForKey(rtfdTextFilename)->contents(),
              package->childForKey(rtfdTextFilename)->contents());
}

TEST(RtfdPackageTest, FindsAFileWhoseNameIsComposedOtherwise)
{
    const test::ScratchFolder scratch;
    scratch.write(QStringLiteral("a.rtfd/TXT.rtf"),
                  "{\\rtf1 {{\\NeXTGraphic \\'c3\\'84.PNG \\width0 \\height0}\xAC}}");
    scratch.write(QString::fromUtf8("a.rtfd/A\u0308.png"), "x");
    const auto read = attributedStringFromRtfd(scratch.filePath("a.rtfd"));
    ASSERT_TRUE(read);
    ASSERT_TRUE(read->attributesAt(0).attachment->fileWrapper());
    EXPECT_EQ(read->attributesAt(0).attachment->fileWrapper()->contents(), "x");
}

TEST(RtfdPackageTest, NeverReachesOutOfThePackage)
{
    const test::ScratchFolder scratch;
    scratch.write(QStringLiteral("secret"), "x");
    scratch.write(QStringLiteral("a.rtfd/TXT.rtf"),
                  "{\\rtf1 {{\\NeXTGraphic ../secret \\width0 \\height0}\xAC}}");
    const auto read = attributedStringFromRtfd(scratch.filePath("a.rtfd"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->attributesAt(0).attachment->fileWrapper(), nullptr);
}

TEST(RtfdPackageTest, FailsWithoutRichText)
{
    const test::ScratchFolder scratch;
    scratch.write(QStringLiteral("empty.rtfd/other"), "x");
    scratch.write(QStringLiteral("wrong.rtfd/TXT.rtf"), "plain text");
    for (const char* name : {"empty.rtfd", "wrong.rtfd", "missing.rtfd"}) {
        Error error;
        EXPECT_FALSE(attributedStringFromRtfd(scratch.filePath(name), nullptr, &error)) << name;
        EXPECT_FALSE(error.isNull()) << name;
    }
    EXPECT_FALSE(attributedStringFromRtfd(*FileWrapper::regularFile("{\\rtf1 x}")));
}

} // namespace
