// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"
#include "platform/rtfd/RtfdPackage.h"
#include "support/ScratchFolder.h"

namespace {

using namespace platform;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Real files, by Cocoa, Word and LibreOffice.
class RtfSamplesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_folder = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + text("/samples/");
        if (!QFileInfo::exists(m_folder + text("rtf_cocoa")))
            GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with samples";
    }

    AttributedString read(const char* name) { return test::readRtf(test::readFile(m_folder + text(name))); }

    AttributedString readPackage(const char* name)
    {
        const auto read = attributedStringFromRtfd(m_folder + text(name), &m_attributes);
        EXPECT_TRUE(read);
        return read.value_or(AttributedString());
    }

    static const TextAttributes& attributesOf(const AttributedString& in, const char* words)
    {
        const qsizetype place = in.string().indexOf(text(words));
        EXPECT_GE(place, 0) << words;
        return in.attributesAt(std::max<qsizetype>(place, 0));
    }

    QString m_folder;
    DocumentAttributes m_attributes;
};

TEST_F(RtfSamplesTest, FilesOfCocoaThatHoldNothingElseAreWrittenAsTheyWere)
{
    for (const char* name :
         {"rtf_cocoa/pandoc_list_simple.rtf", "rtf_cocoa/rtfjs_superscript_subscript.rtf",
          "rtf_cocoa/striprtf_line_break_textedit_mac.rtf", "rtf_cocoa/striprtf_mac_textedit_hyperlink.rtf"}) {
        const QByteArray bytes = test::readFile(m_folder + text(name));
        DocumentAttributes attributes;
        const AttributedString read = test::readRtf(bytes, &attributes);
        const QByteArray written = rtfFromAttributedString(read, attributes);
        // The first line tells the version of the writer.
        EXPECT_EQ(written.mid(written.indexOf('\n')), bytes.mid(bytes.indexOf('\n'))) << name;
    }
}

TEST_F(RtfSamplesTest, EveryFileIsReadAndWrittenToTheSameBytesTwice)
{
    QStringList files;
    for (const char* folder : {"rtf_cocoa", "rtf_foreign"}) {
        for (const QFileInfo& file : QDir(m_folder + text(folder)).entryInfoList(QDir::Files))
            files.append(file.filePath());
    }
    for (const QFileInfo& package :
         QDir(m_folder + text("rtfd")).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        files.append(package.filePath() + text("/TXT.rtf"));
    EXPECT_GE(files.size(), 29);
    for (const QString& file : std::as_const(files)) {
        DocumentAttributes attributes;
        const QByteArray first = rtfFromAttributedString(test::readRtf(test::readFile(file), &attributes),
                                                         attributes);
        DocumentAttributes again;
        const AttributedString second = test::readRtf(first, &again);
        EXPECT_EQ(rtfFromAttributedString(second, again), first) << qPrintable(file);
    }
}

TEST_F(RtfSamplesTest, CocoaBulletsOfAnOlderVersion)
{
    const AttributedString in = read("rtf_cocoa/iterm2_regexkitlite_license_list.rtf");
    EXPECT_TRUE(in.string().startsWith(
        text("RegexKitLite License\nCopyright © 2008-2010, John Engelhart\nAll rights reserved.\n")));
    EXPECT_TRUE(in.string().contains(text("\n\t•\tRedistributions of source code must")));
    EXPECT_TRUE(attributesOf(in, "RegexKit").font->bold);
    EXPECT_TRUE(attributesOf(in, "Lite").font->italic);
    EXPECT_EQ(attributesOf(in, "RegexKit").font->size, 19);
    EXPECT_EQ(attributesOf(in, "Redistributions").paragraphStyle->textLists.at(0)->markerFormat,
              text("{disc}"));
    EXPECT_EQ(attributesOf(in, "Redistribution and use").paragraphStyle->alignment, TextAlignment::Justified);
    EXPECT_EQ(attributesOf(in, "THIS SOFTWARE").font->family, text("Courier"));
}

TEST_F(RtfSamplesTest, CocoaListsWithinLists)
{
    const AttributedString in = read("rtf_cocoa/pandoc_list_simple.rtf");
    EXPECT_EQ(in.string(), text("\t•\tone\n\t•\ttwo\n\t⁃\tsub\n\t•\tnew list\n"));
    const auto& one = attributesOf(in, "one").paragraphStyle->textLists;
    const auto& sub = attributesOf(in, "sub").paragraphStyle->textLists;
    ASSERT_EQ(sub.size(), 2U);
    EXPECT_EQ(sub[0], one.at(0));
    EXPECT_EQ(sub[1]->markerFormat, text("{hyphen}"));
    EXPECT_NE(attributesOf(in, "new").paragraphStyle->textLists.at(0), one.at(0));
}

TEST_F(RtfSamplesTest, CocoaSuperAndSubscript)
{
    const AttributedString in = read("rtf_cocoa/rtfjs_superscript_subscript.rtf");
    EXPECT_EQ(in.string(), text("Normalsupersub and normal once again."));
    EXPECT_EQ(attributesOf(in, "super").superscript, 1);
    EXPECT_EQ(attributesOf(in, "sub and").superscript, -1);
    EXPECT_EQ(attributesOf(in, " and").superscript, 0);
}

TEST_F(RtfSamplesTest, CocoaCharsets)
{
    EXPECT_EQ(read("rtf_cocoa/striprtf_issue_28_gbk.rtf").string(),
              text("印刷情况反映：\n201-003-00155 (Multiple)\n\n市政府情况反映：\n022-021-00768 (Multiple)"));
    EXPECT_EQ(read("rtf_cocoa/striprtf_issue_55_1_thai_charset.rtf").string(), text("  ü  เ ü  ü เ"));
    EXPECT_EQ(read("rtf_cocoa/striprtf_issue_37_unicode.rtf").string(), text("≤\n≤"));
    EXPECT_EQ(read("rtf_cocoa/tika_umlaut.rtf").string(), text("Übersicht"));
    QString surrogates = text("Unpaired hi H here Unpaired lo L here Mismatched pair LH here ");
    surrogates.replace(u'H', QChar(0xD800)).replace(u'L', QChar(0xDC00));
    EXPECT_EQ(read("rtf_cocoa/tika_invalid_unicode_surrogates.rtf").string(), surrogates);
}

TEST_F(RtfSamplesTest, CocoaSmallFiles)
{
    EXPECT_EQ(read("rtf_cocoa/striprtf_line_break_textedit_mac.rtf").string(), text("A\nB\nC\n"));
    const AttributedString links = read("rtf_cocoa/striprtf_mac_textedit_hyperlink.rtf");
    EXPECT_EQ(attributesOf(links, "striprtf.dev").link, text("striprtf.dev"));
    EXPECT_EQ(attributesOf(links, "github").link, text("http://github.com/joshy/striprtf"));
    EXPECT_EQ(attributesOf(links, " (real)").link, QString());
    const AttributedString changes = read("rtf_cocoa/webarchiveextractor_changes_949.rtf");
    EXPECT_TRUE(
        changes.string().startsWith(text("Version 0.6 2007-12-15\n\nVersion 0.3  2007-09-18\nForking from")));
    EXPECT_EQ(attributesOf(changes, "Version").font->family, text("Arial"));
    EXPECT_EQ(attributesOf(changes, "Version").paragraphStyle->minimumLineHeight, 16);
}

TEST_F(RtfSamplesTest, CocoaTable)
{
    const AttributedString in = read("rtf_cocoa/striprtf_pages_table_sample.rtf");
    EXPECT_TRUE(
        in.string().contains(text("\nHeader A\nHeader B\nHeader C\nA1\nB1\nC1\nA2\nB2\nC2\nA3\nB3\nC3\n")));
    const TextBlock& cell = *attributesOf(in, "B1").paragraphStyle->textBlocks.at(0);
    EXPECT_EQ(cell.row, 1);
    EXPECT_EQ(cell.column, 1);
    EXPECT_EQ(cell.width, (TextLength{151, TextLength::Unit::Points}));
    EXPECT_EQ(cell.height, (TextLength{14, TextLength::Unit::Points}));
    EXPECT_EQ(cell.padding, (std::array<double, 4>{4, 4, 4, 4}));
    EXPECT_EQ(cell.borderWidth, (std::array<double, 4>{1, 1, 1, 1}));
    EXPECT_NEAR(cell.backgroundColor.value().red, 0.93594, 1e-6);
    EXPECT_EQ(cell.table->columns, 3);
    EXPECT_EQ(cell.table, attributesOf(in, "C3").paragraphStyle->textBlocks.at(0)->table);
}

TEST_F(RtfSamplesTest, WordLists)
{
    const AttributedString in = read("rtf_foreign/pandoc_list_complex_word.rtf");
    EXPECT_TRUE(in.string().startsWith(
        text("\t1.\tOne\n\t2.\tTwo\n\ta.\tThree\n\tb.\tFour\n\ti.\tFive\n\tii.\tSix\n\tA.\tSeven\n")));
    const auto formatOf = [&](const char* word) {
        return attributesOf(in, word).paragraphStyle->textLists.back()->markerFormat;
    };
    EXPECT_EQ(formatOf("One"), text("{decimal}."));
    EXPECT_EQ(formatOf("Three"), text("{lower-alpha}."));
    EXPECT_EQ(formatOf("Five"), text("{lower-roman}."));
    EXPECT_EQ(formatOf("Seven"), text("{upper-alpha}."));
    EXPECT_EQ(attributesOf(in, "Five").paragraphStyle->textLists.size(), 3U);
    const AttributedString other = read("rtf_foreign/tika_list_word.rtf");
    EXPECT_TRUE(other.string().startsWith(
        text("A short ordered list:\n\t1.\tone\n\t2.\ttwo\n\t3.\tthree\n\nA short unordered list:\n")));
    EXPECT_TRUE(other.string().contains(text("\t1.\ta\n\t-\taa\n\t-\tab\n\t2.\tb\n\t3.\tc\n")));
}

TEST_F(RtfSamplesTest, LibreOfficeListAndTable)
{
    EXPECT_TRUE(read("rtf_foreign/tika_list_libreoffice.rtf")
                    .string()
                    .startsWith(text("A short ordered list:\n\t1.\tone\n\t2.\ttwo\n\t3.\tthree\n\nA short "
                                     "unordered list:\n\t–\tfirst\n\t–\tsecond\n")));
    const AttributedString in = read("rtf_foreign/striprtf_calcium_score_libreoffice.rtf");
    EXPECT_TRUE(in.string().startsWith(
        text("Calcium-Score\nCoronararterie\nCalcium-Score\nRCA\n 0\nLM\n 0\nLAD/RIVA\n 0\nCX\n 0\n")));
    const auto& blocks = attributesOf(in, "LAD").paragraphStyle->textBlocks;
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[1]->column, 0);
    EXPECT_EQ(blocks[1]->row, attributesOf(in, "LM").paragraphStyle->textBlocks.at(1)->row + 1);
}

TEST_F(RtfSamplesTest, InnerTablesOfOtherWriters)
{
    const AttributedString in = read("rtf_foreign/pandoc_table_nested.rtf");
    EXPECT_EQ(
        in.string(),
        text(
            "Level two before\nDeep A\nDeep B\nDeep C\nDeep D\nLevel two after\nOuter after\nOutside table\n"));
    EXPECT_EQ(attributesOf(in, "Deep D").paragraphStyle->textBlocks.size(), 3U);
    EXPECT_EQ(attributesOf(in, "Deep D").paragraphStyle->textBlocks[2]->row, 1);
    EXPECT_EQ(attributesOf(in, "Outer after").paragraphStyle->textBlocks.size(), 1U);
    const AttributedString word = read("rtf_foreign/striprtf_nested_table_word.rtf");
    EXPECT_TRUE(word.string().contains(text("Coronararterie\nCalcium-Score\nRCA\n0 \nLM\n0  \n")));
    EXPECT_TRUE(word.string().contains(text("geschätztes")));
    EXPECT_EQ(attributesOf(word, "RCA").paragraphStyle->textBlocks.size(), 2U);
}

TEST_F(RtfSamplesTest, WordDocumentsOfManyKinds)
{
    const AttributedString in = read("rtf_foreign/tika_various_word.rtf");
    EXPECT_TRUE(in.string().contains(text("\t•\tBullet 1\n\t•\tBullet 2\n")));
    EXPECT_TRUE(in.string().contains(text("\t1)\tNumber bullet 1\n")));
    EXPECT_TRUE(in.string().contains(text("ゾルゲと尾崎、淡々と最期\n")));
    EXPECT_TRUE(in.string().contains(text("𐌲𐌿𐍄𐌹𐍃𐌺")));
    EXPECT_EQ(attributesOf(in, "superscript").superscript, 1);
    EXPECT_EQ(attributesOf(in, "underline").underline, LineStyle::Single);
    EXPECT_FALSE(attributesOf(in, "This is a hyperlink").link.isEmpty());
    EXPECT_EQ(attributesOf(in, "Row 2 Col 3").paragraphStyle->textBlocks.at(0)->column, 2);
    const AttributedString mac = read("rtf_foreign/rtfjs_word11_sample.rtf");
    EXPECT_TRUE(mac.string().startsWith(
        text("This is a test RTF\nHi! I’m a test file. This is some bold text, and some italic text")));
    EXPECT_TRUE(mac.string().contains(text("\t•\tItem 1\n\t•\tItem 2\n")));
}

TEST_F(RtfSamplesTest, PackagesWithTheirAttachments)
{
    const AttributedString in = readPackage("rtfd/finishup_en.rtfd");
    EXPECT_TRUE(in.string().startsWith(text("\uFFFC\n\n(Un-)Install Succeeded\nOpenThesaurus German Dictionary "
                                            "Plugin\nVersion: 2025.03.24 — OS X")));
    EXPECT_EQ(in.attributesAt(0).attachment->size(), (TextAttachment::Size{120, 120}));
    EXPECT_EQ(in.attributesAt(0).attachment->fileWrapper()->contents().size(), 18873);
    EXPECT_EQ(attributesOf(in, "Launch Dictionary").link, text("dict://"));
    EXPECT_EQ(attributesOf(in, "FAQ").link, text("https://tekl.de/english"));
    EXPECT_EQ(m_attributes.author, text("Wolfgang Kreutz"));
    EXPECT_EQ(m_attributes.viewWidth, 576);
    const qsizetype image = in.string().lastIndexOf(QChar(0xFFFC));
    EXPECT_EQ(in.attributesAt(image).baselineOffset, -2);
    EXPECT_EQ(in.attributesAt(image).superscript, -1);
    EXPECT_EQ(in.attributesAt(image).attachment->fileWrapper()->contents().size(), 3775);

    EXPECT_EQ(readPackage("rtfd/hesperides_Credits.rtfd")
                  .attributesAt(0)
                  .attachment->fileWrapper()
                  ->contents()
                  .size(),
              2639);
    EXPECT_EQ(readPackage("rtfd/readme_en.rtfd").attributesAt(0).attachment->size(),
              (TextAttachment::Size{64, 64}));
    const AttributedString gif = readPackage("rtfd/psmtabbar_ReadMe.rtfd");
    EXPECT_EQ(gif.attributesAt(gif.string().indexOf(QChar(0xFFFC))).attachment->size(),
              (TextAttachment::Size{360, 141}));
}

TEST_F(RtfSamplesTest, PackageWithAMacHeaderAndManyImages)
{
    const AttributedString in = readPackage("rtfd/xcodemigration_README.rtfd");
    EXPECT_EQ(in.string().count(QChar(0xFFFC)), 10);
    for (qsizetype place = in.string().indexOf(QChar(0xFFFC)); place >= 0;
         place = in.string().indexOf(QChar(0xFFFC), place + 1))
        EXPECT_TRUE(in.attributesAt(place).attachment->fileWrapper()) << place;
    EXPECT_FALSE(in.string().contains(QChar(0x00AC)));
    EXPECT_FALSE(in.string().contains(text("¨")));
}

TEST_F(RtfSamplesTest, PackagesWithMissingFiles)
{
    const AttributedString in = readPackage("rtfd/monolingual_README.rtfd");
    const qsizetype place = in.string().indexOf(QChar(0xFFFC));
    ASSERT_GE(place, 0);
    EXPECT_EQ(in.attributesAt(place).attachment->fileWrapper(), nullptr);
    EXPECT_EQ(in.attributesAt(place).attachment->size(), (TextAttachment::Size{546, 565}));
    EXPECT_TRUE(in.string().startsWith(
        text("Monolingual\n\nA tool for removing unneeded language localization files\n")));
    const AttributedString other = readPackage("rtfd/vdrift_ReadMe.rtfd");
    EXPECT_EQ(attributesOf(other, "VDrift - Open").underline, LineStyle::Single);
    EXPECT_EQ(attributesOf(other, "GNU General").link, text("http://www.gnu.org/copyleft/gpl.html"));
    EXPECT_TRUE(readPackage("rtfd/vdrift_description.rtfd")
                    .string()
                    .contains(text("containing: \n\t•\tVDrift.app\n\t•\tReadMe.rtfd\n")));
}

TEST_F(RtfSamplesTest, PackageWithTablesListsAndEmoji)
{
    const AttributedString in = readPackage("rtfd/intro_en.rtfd");
    EXPECT_TRUE(in.string().contains(text("\nWebsite/FAQ:\nSupport, Changelog and source "
                                          "code:\ntekl.de\nhttps://github.com/Tekl/openthesaurus-deutsch\n")));
    EXPECT_TRUE(in.string().contains(text("\n⚠️ Install for current user only\n")));
    EXPECT_TRUE(
        in.string().contains(QStringLiteral("\n") + QChar(55357) + QChar(57003) + text(" Uninstall\n")));
    const TextBlock& cell = *attributesOf(in, "Support, Changelog").paragraphStyle->textBlocks.at(0);
    EXPECT_EQ(cell.verticalAlignment, TextVerticalAlignment::Middle);
    EXPECT_EQ(cell.column, 1);
    EXPECT_EQ(cell.width, (TextLength{338, TextLength::Unit::Points}));
    EXPECT_EQ(attributesOf(in, "www.openthesaurus.de").underlineColor,
              (Color{0, 0, 238 / 255.0, 1, Color::Space::CalibratedRgb}));
}

} // namespace
