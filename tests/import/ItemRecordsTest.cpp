// SPDX-License-Identifier: MIT
#include "import/RunFixture.h"

namespace {

// The records of notes as they stand in the manifest's file.
class ItemRecordsTest : public ImportRunTest {
protected:
    static QMap<QString, int> typesOf(const QVariantMap& record)
    {
        QMap<QString, int> types;
        for (auto entry = record.cbegin(); entry != record.cend(); ++entry)
            types.insert(entry.key(), entry->typeId());
        return types;
    }

    static QMap<QString, int> types(const QMap<const char*, int>& more)
    {
        QMap<QString, int> all;
        for (const char* key : {"com.brightmoor.Quillery.EntityName", "identifier", "name",
                                "filename", "absoluteFilename", "folder"})
            all.insert(text(key), QMetaType::QString);
        all.insert(text("itemType"), QMetaType::LongLong);
        for (auto entry = more.cbegin(); entry != more.cend(); ++entry)
            all.insert(text(entry.key()), entry.value());
        return all;
    }
};

TEST_F(ItemRecordsTest, ANoteWithoutTagsSourceAndDatesHasTheOtherKeysAlone)
{
    importFile(text("a.enex"), enex(note("One")));
    const QVariantMap record = records(text("Item")).value(0);
    EXPECT_EQ(typesOf(record), types({{"extensionHidden", QMetaType::Bool}}));
    EXPECT_EQ(record.value(text("com.brightmoor.Quillery.EntityName")).toString(), text("Item"));
    EXPECT_EQ(record.value(text("itemType")).toInt(), 1);
    EXPECT_EQ(record.value(text("name")).toString(), text("One"));
    EXPECT_EQ(record.value(text("filename")).toString(), text("One.qlnote"));
    EXPECT_EQ(record.value(text("absoluteFilename")).toString(),
              filesPath() + text("/a/One.qlnote"));
    EXPECT_EQ(record.value(text("extensionHidden")), QVariant(true));
}

TEST_F(ItemRecordsTest, ANoteWithEverythingHasEveryKey)
{
    importFile(text("a.enex"),
               enex(note("One", "<en-note>x</en-note>",
                         "<created>20130412T093015Z</created><updated>20130413T000000Z</updated>"
                         "<tag>a</tag>\n<tag>b, "
                         "c</tag><note-attributes><source-url>http://example.org/?a=1&amp;b"
                         "</source-url></note-attributes>")));
    const QVariantMap record = records(text("Item")).value(0);
    EXPECT_EQ(typesOf(record), types({{"extensionHidden", QMetaType::Bool},
                                      {"dateCreated", QMetaType::QDateTime},
                                      {"dateModified", QMetaType::QDateTime},
                                      {"comments", QMetaType::QString},
                                      {"tagsString", QMetaType::QString}}));
    EXPECT_EQ(record.value(text("comments")).toString(), text("http://example.org/?a=1&b"));
    EXPECT_EQ(record.value(text("tagsString")).toString(), text("a,,b, c"));
    const QByteArray xml = test::readFile(filesPath() + text("/Evernote.qllibxml"));
    for (const char* element :
         {"<date>2013-04-12T09:30:15Z</date>", "<date>2013-04-13T00:00:00Z</date>", "<true/>",
          "<integer>1</integer>"})
        EXPECT_TRUE(xml.contains(element)) << element;
}

TEST_F(ItemRecordsTest, ASingleAttachmentKeepsTheNotesTitleAndShowsItsExtension)
{
    importFile(
        text("a.enex"),
        enex(note("Tax 2013", "<en-note><en-media type=\"application/pdf\" hash=\"x\"/></en-note>",
                  "<resource><data encoding=\"base64\">JVBERg==</data><mime>application/pdf</mime>"
                  "<resource-attributes><file-name>Scan.pdf</file-name></resource-attributes></"
                  "resource>")));
    const QVariantMap record = records(text("Item")).value(0);
    EXPECT_EQ(typesOf(record), types({}));
    EXPECT_EQ(record.value(text("name")).toString(), text("Tax 2013"));
    EXPECT_EQ(record.value(text("filename")).toString(), text("Tax 2013.pdf"));
    EXPECT_EQ(record.value(text("itemType")).toInt(), 2);
}

} // namespace
