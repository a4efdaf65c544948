// SPDX-License-Identifier: MIT
// Evernote's own notations, from a note's body to what its note file says after it was read back.
#include "convert/ConversionFixture.h"
#include "formats/QLChecklistTextAttachment.h"
#include "formats/QLNoteFile.h"

namespace {

namespace manifest = platform::manifest;

class EvernoteNotationNoteTest : public ConversionTest {
protected:
    std::shared_ptr<QLNoteFile> noteFor(const QByteArray& enml)
    {
        setBody(enml);
        const manifest::Record record = convert();
        if (!record)
            return nullptr;
        return QLNoteFile::noteFileWithFileURL(
            QUrl::fromLocalFile(record->value(manifest::absoluteFilenameKey).toString()));
    }

    // The boxes of the note in the order of its text: true for a checked one.
    static QList<bool> boxesOf(const QLNoteFile& note)
    {
        QList<bool> boxes;
        for (const auto& run : note.noteText().runs()) {
            const auto box =
                std::dynamic_pointer_cast<QLChecklistTextAttachment>(run.attributes->attachment);
            if (box)
                boxes.append(box->isOn());
        }
        return boxes;
    }
};

TEST_F(EvernoteNotationNoteTest, ChecklistsAreLiveCheckboxes)
{
    const auto note = noteFor(
        "<en-note><ul style=\"--en-todo:true;\"><li style=\"--en-checked:true;\"><div>done</div></li>"
        "<li style=\"--en-checked:false;\"><div>open</div></li><li><div>never touched</div>"
        "</li><ul style=\"--en-todo:true;\"><li style=\"--en-checked:true;\"><div>inner</div></li>"
        "</ul></ul><table><tr><td><ul style=\"--en-todo:true;\"><li><div>in a cell</div></li></ul>"
        "</td></tr></table></en-note>");
    ASSERT_TRUE(note);
    EXPECT_EQ(boxesOf(*note), QList<bool>({true, false, false, true, false}));
    EXPECT_EQ(note->noteAttributes()->checklistItems()->size(), 5U);
    EXPECT_EQ(QString(note->noteText().string()).remove(QChar(0xFFFC)).remove(u' '),
              text("done\nopen\nnevertouched\ninner\ninacell\n"));
}

TEST_F(EvernoteNotationNoteTest, ABulletWithABoxIsALiveCheckbox)
{
    const auto note = noteFor("<en-note><ul><li><div><en-todo checked=\"true\"/>one</div></li>"
                              "<li>two</li></ul></en-note>");
    ASSERT_TRUE(note);
    EXPECT_EQ(boxesOf(*note), QList<bool>({true}));
    EXPECT_TRUE(note->noteText().string().endsWith(text("\t\u2022\ttwo\n")));
}

TEST_F(EvernoteNotationNoteTest, CodeIsABoxOfFixedPitchText)
{
    const auto note = noteFor("<en-note><div>before</div><div style=\"-en-codeblock:true;\"><div>a();"
                              "</div><div>  b();</div></div></en-note>");
    ASSERT_TRUE(note);
    const platform::AttributedString string = note->noteText();
    EXPECT_EQ(string.string(), text("before\na();\n  b();\n"));
    const auto& code = string.attributesAt(string.string().indexOf(text("b();")));
    EXPECT_TRUE(code.font->monospaced);
    ASSERT_EQ(code.paragraphStyle->textBlocks.size(), 1U);
    EXPECT_TRUE(code.paragraphStyle->textBlocks.front()->backgroundColor);
    EXPECT_EQ(string.attributesAt(string.string().indexOf(text("a();"))).paragraphStyle->textBlocks,
              code.paragraphStyle->textBlocks);
    EXPECT_FALSE(string.attributesAt(0).font->monospaced);
}

TEST_F(EvernoteNotationNoteTest, AHighlightIsItsColourBehindTheText)
{
    const auto note = noteFor(
        "<en-note><div><span style=\"--en-highlight:red;background-color: #fec1d0;\">x</span>y"
        "</div></en-note>");
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().attributesAt(0).backgroundColor,
              platform::Color::fromRgb8(0xfe, 0xc1, 0xd0));
    EXPECT_FALSE(note->noteText().attributesAt(1).backgroundColor);
}

} // namespace
