// SPDX-License-Identifier: MIT
#include "formats/QLNoteFile.h"

#include "formats/ChecklistBoxTexts.h"
#include "formats/ColorArchives.h"
#include "formats/FontFamilySubstitution.h"
#include "formats/QLChecklistTextAttachment.h"
#include "formats/QLEncryptedItemTypes.h"
#include "formats/QLNoteFileConstants.h"
#include "platform/core/SystemLog.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/files/ResourceValues.h"

#include "support/ScratchFolder.h"

namespace {

using platform::AttributedString;
using platform::Color;
using platform::Error;
using platform::Font;
using platform::TextAttributes;
using platform::TextRange;
using platform::UserDefaults;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class QLNoteFileTest : public ::testing::Test {
protected:
    void TearDown() override { UserDefaults::standard().clearOverrides(); }

    [[nodiscard]] QString path(const char* name = "Note.qlnote") const { return m_folder.filePath(name); }
    [[nodiscard]] QUrl url(const char* name = "Note.qlnote") const { return QUrl::fromLocalFile(path(name)); }

    void write(const AttributedString& string, const char* name = "Note.qlnote")
    {
        const auto note = std::make_shared<QLNoteFile>();
        note->setNoteText(string);
        ASSERT_TRUE(note->writeToFile(path(name), &m_error)) << qPrintable(m_error.description());
    }
    std::shared_ptr<QLNoteFile> read(const char* name = "Note.qlnote") { return QLNoteFile::noteFileWithFileURL(url(name), &m_error); }

    // A text with a checked and an empty box at its line starts.
    static AttributedString checklistText()
    {
        AttributedString string = QLNoteChecklistItem(true, {}).attributedString();
        string.append(AttributedString(text("done\n")));
        string.append(QLNoteChecklistItem(false, {}).attributedString());
        string.append(AttributedString(text("open\n")));
        return string;
    }

    test::ScratchFolder m_folder;
    Error m_error;
};

TEST_F(QLNoteFileTest, AnEmptyNewNoteIsAPackageWithTextAndRecord)
{
    write({});
    EXPECT_TRUE(m_folder.tree().contains(text("Note.qlnote/TXT.rtf")));
    EXPECT_TRUE(m_folder.tree().contains(text("Note.qlnote/NoteAttributes")));
    const auto note = read();
    ASSERT_TRUE(note);
    EXPECT_TRUE(note->noteText().isEmpty());
    EXPECT_EQ(note->noteAttributes()->fileVersion(), 3000);
}

TEST_F(QLNoteFileTest, TheRecordIsStoredTwiceAndReadUnderItsName)
{
    write(AttributedString(text("a")));
    const QString second = text("Note.qlnote/1__#$!@%!#__NoteAttributes");
    EXPECT_EQ(m_folder.tree(), QStringList({text("Note.qlnote/"), second, text("Note.qlnote/NoteAttributes"), text("Note.qlnote/TXT.rtf")}));
    EXPECT_EQ(m_folder.read(second), m_folder.read(text("Note.qlnote/NoteAttributes")));
}

TEST_F(QLNoteFileTest, AnAttachmentNamedLikeTheRecordLeavesItItsName)
{
    const auto wrapper = platform::FileWrapper::regularFile("mine", text("NoteAttributes"));
    write(AttributedString::withAttachment(std::make_shared<platform::TextAttachment>(wrapper)));
    const auto note = read();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteAttributes()->fileVersion(), 3000);
    ASSERT_TRUE(note->noteText().attributesAt(0).attachment);
    EXPECT_EQ(note->noteText().attributesAt(0).attachment->fileWrapper()->contents(), "mine");
}

TEST_F(QLNoteFileTest, CheckboxesAreStoredAsTextAndComeBackAsAttachments)
{
    write(checklistText());
    const QByteArray rtf = m_folder.read(text("Note.qlnote/TXT.rtf"));
    EXPECT_TRUE(rtf.contains("9745")) << rtf.constData();
    EXPECT_FALSE(rtf.contains("NeXTGraphic"));
    const auto note = read();
    ASSERT_TRUE(note);
    ASSERT_EQ(note->noteAttributes()->checklistItems()->size(), 2u);
    EXPECT_EQ(note->noteAttributes()->checklistItems()->at(0)->range(), (TextRange{0, 3}));
    EXPECT_EQ(note->noteAttributes()->checklistItems()->at(1)->range(), (TextRange{8, 2}));
    const auto box = std::dynamic_pointer_cast<QLChecklistTextAttachment>(note->noteText().attributesAt(0).attachment);
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isOn());
    EXPECT_EQ(note->noteText().length(), 12);
}

TEST_F(QLNoteFileTest, WritingMakesTheRecordsItemsThoseOfTheText)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->noteAttributes()->setChecklistItems(QLNoteChecklistItems{std::make_shared<QLNoteChecklistItem>(true, TextRange{99, 3})});
    note->setNoteText(AttributedString(text("no box")));
    ASSERT_TRUE(note->writeToFile(path()));
    EXPECT_TRUE(note->noteAttributes()->checklistItems()->empty());
}

TEST_F(QLNoteFileTest, APackageWithoutARecordGetsOneRebuiltFromItsText)
{
    write(AttributedString(checklist::uncheckedBoxText + text("a\nb")));
    for (const QString& name : m_folder.tree()) {
        if (name.endsWith(text("NoteAttributes"))) {
            ASSERT_TRUE(QFile::remove(m_folder.filePath(name)));
        }
    }
    const auto note = read();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteAttributes()->fileVersion(), 3000);
    ASSERT_EQ(note->noteAttributes()->checklistItems()->size(), 1u);
    EXPECT_TRUE(std::dynamic_pointer_cast<QLChecklistTextAttachment>(note->noteText().attributesAt(0).attachment));
}

TEST_F(QLNoteFileTest, AnOlderRecordsItemsAreRebuiltFromTheText)
{
    class OldRecord : public platform::KeyedCoding {
    public:
        QStringList archivedClassNames() const override { return {QLNoteAttributes::archivedClassName}; }
        void encodeWithCoder(platform::KeyedArchiver& coder) override { coder.encodeInt64(2999, QStringLiteral("fileVersion")); }
    };
    write(AttributedString(checklist::checkedBoxText + text("a")));
    static_cast<void>(m_folder.write(text("Note.qlnote/NoteAttributes"),
                                     *platform::KeyedArchiver::archivedDataWithRootObject(std::make_shared<OldRecord>())));
    const auto note = read();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteAttributes()->fileVersion(), 2999);
    ASSERT_EQ(note->noteAttributes()->checklistItems()->size(), 1u);
    EXPECT_TRUE(note->noteAttributes()->checklistItems()->front()->isOn());
}

TEST_F(QLNoteFileTest, ARecordThatIsNoneLeavesTheNoteWithoutOne)
{
    write(AttributedString(checklist::checkedBoxText + text("a")));
    static_cast<void>(m_folder.write(text("Note.qlnote/NoteAttributes"),
                                     *platform::KeyedArchiver::archivedDataWithRootObject(platform::ArchiveValue::string(text("x")))));
    const auto note = read();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteAttributes(), nullptr);
    EXPECT_EQ(note->noteText().string(), checklist::checkedBoxText + text("a"));
    ASSERT_TRUE(note->writeToFile(path("Again.qlnote")));
    EXPECT_FALSE(m_folder.tree().contains(text("Again.qlnote/NoteAttributes")));
}

TEST_F(QLNoteFileTest, ARecordThatIsNoArchiveRaises)
{
    write(AttributedString(text("a")));
    static_cast<void>(m_folder.write(text("Note.qlnote/NoteAttributes"), "junk"));
    EXPECT_THROW(static_cast<void>(read()), platform::InvalidArchive);
}

TEST_F(QLNoteFileTest, WhatIsNoPackageCannotBeRead)
{
    EXPECT_FALSE(read());
    EXPECT_FALSE(m_error.isNull());
    m_error = {};
    static_cast<void>(m_folder.write(text("Note.qlnote"), "a file"));
    EXPECT_FALSE(read());
    EXPECT_FALSE(m_error.isNull());
    m_error = {};
    QDir(m_folder.path()).mkdir(text("Empty.qlnote"));
    EXPECT_FALSE(read("Empty.qlnote"));
    EXPECT_FALSE(m_error.isNull());
    EXPECT_FALSE(QLNoteFile::noteFileWithFileURL(url("Empty.qlnote")));
}

TEST_F(QLNoteFileTest, TheRecordsBackgroundBecomesTheDocuments)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->noteAttributes()->setBackgroundColor(Color{1, 0, 0, 1});
    note->setNoteText(AttributedString(text("a")));
    ASSERT_TRUE(note->writeToFile(path()));
    const auto again = read();
    ASSERT_TRUE(again);
    ASSERT_TRUE(again->documentAttributes().backgroundColor);
    EXPECT_EQ(again->documentAttributes().backgroundColor->red, 1);
    EXPECT_EQ(again->noteAttributes()->backgroundColor(), (Color{1, 0, 0, 1}));
}

TEST_F(QLNoteFileTest, TheSystemFontIsReadAsTheUsersFontInItsSizeAndTraits)
{
    TextAttributes system;
    system.font = Font::systemFont(17);
    system.font->bold = true;
    TextAttributes other;
    other.font = Font::fontNamed(text("Georgia"), 10);
    AttributedString string(text("system"), system);
    string.append(AttributedString(text("other"), other));
    substituteFontFamily(string, Font::systemFont(13).family, Font::userFont(14).family);
    EXPECT_EQ(string.attributesAt(0).font->family, Font::userFont(14).family);
    EXPECT_EQ(string.attributesAt(0).font->size, 17);
    EXPECT_TRUE(string.attributesAt(0).font->bold);
    EXPECT_EQ(string.attributesAt(6).font->family, text("Georgia"));
}

TEST_F(QLNoteFileTest, ReadingReplacesTheSystemFont)
{
    TextAttributes system;
    system.font = Font::systemFont(17);
    write(AttributedString(text("system"), system));
    EXPECT_EQ(read()->noteText().attributesAt(0).font->family, Font::userFont(14).family);
    EXPECT_EQ(read()->noteText().attributesAt(0).font->size, 17);
}

TEST_F(QLNoteFileTest, ANewFileHidesItsExtension)
{
    write(AttributedString(text("a")));
    EXPECT_EQ(platform::resourceValues(path())->hasHiddenExtension, true);
}

TEST_F(QLNoteFileTest, ReplacingKeepsCreationDateAndExtensionState)
{
    write(AttributedString(text("old")));
    platform::ResourceValues values;
    values.creationDate = QDateTime(QDate(2003, 4, 5), QTime(6, 7), Qt::UTC);
    values.hasHiddenExtension = false;
    ASSERT_TRUE(platform::setResourceValues(path(), values));
    write(AttributedString(text("new")));
    EXPECT_EQ(read()->noteText().string(), text("new"));
    EXPECT_EQ(platform::resourceValues(path())->creationDate, values.creationDate);
    EXPECT_FALSE(platform::resourceValues(path())->hasHiddenExtension.value_or(false));
}

TEST_F(QLNoteFileTest, AWriteThatFailsIsLoggedAndReported)
{
    QStringList logged;
    const platform::SystemLogObserver observer([&](const QString& message) { logged += message; });
    const auto note = std::make_shared<QLNoteFile>();
    EXPECT_FALSE(note->writeToFile(text("/nowhere/at/all/Note.qlnote"), &m_error));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    ASSERT_EQ(logged.size(), 1);
    EXPECT_EQ(logged[0], text("Error writing note to /nowhere/at/all/Note.qlnote: ") + m_error.description());
    EXPECT_FALSE(note->writeToFile(text("/nowhere/at/all/Note.qlnote")));
}

TEST_F(QLNoteFileTest, AnUntouchedNewNoteIsToldByExtensionNameAndText)
{
    for (const char* name : {"New Note.qlnote", "New Note 3.qlnote", "My New Note.qlnote", "New Note.rtfd"})
        write({}, name);
    write(AttributedString(text("a")), "New Note 4.qlnote");
    EXPECT_TRUE(QLNoteFile::noteFileAtURLIsEmpty(url("New Note.qlnote")));
    EXPECT_TRUE(QLNoteFile::noteFileAtURLIsEmpty(url("New Note 3.qlnote")));
    EXPECT_TRUE(QLNoteFile::noteFileAtURLIsEmpty(url("New Note that is not there.qlnote")));
    EXPECT_FALSE(QLNoteFile::noteFileAtURLIsEmpty(url("My New Note.qlnote")));
    EXPECT_FALSE(QLNoteFile::noteFileAtURLIsEmpty(url("New Note.rtfd")));
    EXPECT_FALSE(QLNoteFile::noteFileAtURLIsEmpty(url("New Note 4.qlnote")));
}

TEST_F(QLNoteFileTest, TheAttributesOfNewTextComeFromTheSettings)
{
    EXPECT_EQ(QLNoteFile::defaultNoteAttributes().font, Font::userFont(14));
    EXPECT_FALSE(QLNoteFile::defaultNoteAttributes().foregroundColor);
    UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("Georgia"));
    UserDefaults::standard().setOverride(text("DefaultNoteFontSize"), 15.5);
    UserDefaults::standard().setOverride(text("DefaultNoteTextColor"), QByteArray("junk"));
    EXPECT_EQ(QLNoteFile::defaultNoteAttributes().font->family, text("Georgia"));
    EXPECT_EQ(QLNoteFile::defaultNoteAttributes().font->size, 15.5);
    EXPECT_FALSE(QLNoteFile::defaultNoteAttributes().foregroundColor);
}

TEST_F(QLNoteFileTest, TheColourOfNewTextIsReadFromEitherFormOfArchive)
{
    for (const QByteArray& archive : {test::legacyColorArchive(), test::keyedColorArchive()}) {
        UserDefaults::standard().setOverride(text("DefaultNoteTextColor"), archive);
        EXPECT_EQ(QLNoteFile::defaultNoteAttributes().foregroundColor, (Color{1, 0.5, 0, 1, Color::Space::CalibratedRgb}));
    }
}

TEST_F(QLNoteFileTest, ACopyHasItsOwnTextAndRecordButNotTheRest)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->setNoteText(AttributedString(text("a")));
    note->noteAttributes()->setScaleFactor(2);
    note->documentAttributes().backgroundColor = Color{};
    note->setUndoManager(std::make_shared<platform::UndoManager>());
    const auto copy = note->copy();
    EXPECT_EQ(copy->noteText(), note->noteText());
    EXPECT_EQ(copy->noteAttributes()->scaleFactor(), 2);
    EXPECT_NE(copy->noteAttributes(), note->noteAttributes());
    EXPECT_FALSE(copy->documentAttributes().backgroundColor);
    EXPECT_FALSE(copy->undoManager());
}

TEST_F(QLNoteFileTest, ChangesOfTheTextCanBeTakenBack)
{
    const auto note = std::make_shared<QLNoteFile>();
    note->setUndoManager(std::make_shared<platform::UndoManager>());
    note->setNoteText(AttributedString(text("one")));
    note->setNoteText(AttributedString(text("two")));
    note->undoManager()->undo();
    EXPECT_EQ(note->noteText().string(), text("one"));
    note->undoManager()->redo();
    EXPECT_EQ(note->noteText().string(), text("two"));
    const std::shared_ptr<platform::UndoManager> manager = note->undoManager();
    EXPECT_TRUE(manager->canUndo());
}

TEST_F(QLNoteFileTest, NamesOfTheFormat)
{
    EXPECT_EQ(QLNoteFile::nameOfNewNote(), text("New Note"));
    EXPECT_FALSE(QLNoteFile::oldWelcomeNotePath());
    EXPECT_EQ(qlNoteFileExtension, text("qlnote"));
    EXPECT_EQ(qlNoteTextType, text("com.brightmoor.quillery.note.text"));
    EXPECT_EQ(qlNoteIdentifier, text("7B550E86-5654-4603-ADA7-39490F9812EC"));
    EXPECT_EQ(qlNoteType, text("com.brightmoor.quillery.note"));
    EXPECT_EQ(qlEncryptedType, text("com.brightmoor.quillery.encrypt"));
}

TEST(QLEncryptedItemTypesTest, AnExtensionOutsideTheTableCountsAsADocument)
{
    EXPECT_EQ(encryptedItemTypeForExtension(text("pdf")), 2);
    EXPECT_EQ(encryptedItemTypeForExtension(QString()), 2);
    EXPECT_EQ(encryptedItemTypeForExtension(text("qlencryptnote")), 1);
    EXPECT_EQ(encryptedItemTypeForExtension(text("QLENCRYPTNOTE")), 2);
    EXPECT_EQ(encryptedItemTypeForExtension(text("__UNKNOWN__")), 0);
}

TEST(QLEncryptedItemTypesTest, TheTwoTablesNumberSoundAndMovieTheOtherWayRound)
{
    const QStringList extensions{text("__UNKNOWN__"), text("qlencryptnote"), text("qlencryptdocument"), text("qlencryptimage"),
                                 text("qlencryptmovie"), text("qlencryptsound"), text("qlencryptbookmark"), text("qlencryptwebpage")};
    const QStringList names{QString(), text("Note"), text("Document"), text("Image"), text("Sound"), text("Movie"), text("Bookmark"), text("Web Page")};
    for (int type = 0; type < 8; ++type) {
        EXPECT_EQ(encryptedItemExtensionForType(type), extensions[type]);
        EXPECT_EQ(encryptedItemTypeForExtension(extensions[type]), type);
        EXPECT_EQ(encryptedItemDisplayNameForType(type), names[type]);
    }
    EXPECT_TRUE(encryptedItemDisplayNameForType(8).isEmpty());
    EXPECT_TRUE(encryptedItemDisplayNameForType(-1).isEmpty());
    EXPECT_TRUE(encryptedItemExtensionForType(8).isEmpty());
}

} // namespace
