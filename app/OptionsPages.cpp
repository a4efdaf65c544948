// SPDX-License-Identifier: MIT
#include "app/OptionsPages.h"

#include "app/ColorButton.h"
#include "app/ColorSetting.h"
#include "app/NoteFontField.h"
#include "exports/EvernoteExportsFolder.h"
#include "platform/attributedtext/Font.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/scripting/EmbeddedLibrary.h"

#include <QDir>
#include <QFileDialog>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using platform::localizedString;
using platform::UserDefaults;

namespace {

constexpr int largestFontSize = 144; // points
constexpr int largestScale = 400;    // per cent

} // namespace

ImportOptionsPage::ImportOptionsPage()
{
    addExportsFolder();
    addLibraryFolder();
    addSwitch("QLPrefixExportedTags", localizedString("Only marked words in comments are tags"),
              localizedString("Words are marked by @ or &, and by the characters below. Otherwise "
                              "every word of a comment "
                              "without marks counts as a tag."));
    addText("QLImportedTagsPrefix", localizedString("More marks of tags:"),
            localizedString("none"));
    addSwitch("UseHTMLExport", localizedString("Have Evernote export notes as HTML"),
              localizedString("An older way of getting notes out of Evernote, one file for each "
                              "note. ENEX keeps more."));
    addSwitch("ExportDebug", localizedString("Write a detailed log"),
              localizedString(
                  "Everything that is made of each note stands in the log of the next import."));
}

void ImportOptionsPage::addExportsFolder()
{
    auto* const choose = new QPushButton(localizedString("C&hoose Folder..."), this);
    choose->setObjectName(QStringLiteral("chooseExportsFolder"));
    addFolder("EvernoteExportsFolder", *choose, localizedString("Exports folder:"),
              EvernoteExportsFolder::defaultDirectory(),
              localizedString("On a machine without Evernote its ENEX files are listed as "
                              "notebooks, from the next start on."),
              localizedString("Exports Folder"));
}

void ImportOptionsPage::addLibraryFolder()
{
    auto* const choose = new QPushButton(localizedString("Choose &Folder..."), this);
    choose->setObjectName(QStringLiteral("chooseLibraryFolder"));
    addFolder("QuilleryLibraryFolder", *choose, localizedString("Library folder:"),
              platform::defaultEmbeddedLibraryFolder(),
              localizedString("Notes go here on a machine without Quillery."),
              localizedString("Library Folder"));
}

void ImportOptionsPage::addFolder(const char* key, QPushButton& choose, const QString& label,
                                  const QString& byDefault, const QString& explanation,
                                  const QString& panelTitle)
{
    choose.setAutoDefault(false);
    QLineEdit* const field =
        addText(key, label, QDir::toNativeSeparators(byDefault), explanation, &choose);
    const QString name = QLatin1String(key);
    connect(&choose, &QPushButton::clicked, this, [this, name, field, panelTitle] {
        auto* const panel = new QFileDialog(window(), panelTitle);
        panel->setAttribute(Qt::WA_DeleteOnClose);
        panel->setObjectName(QStringLiteral("folderPanel"));
        panel->setFileMode(QFileDialog::Directory);
        panel->setOption(QFileDialog::ShowDirsOnly);
        panel->setDirectory(field->text().isEmpty() ? QDir::homePath() : field->text());
        panel->setWindowModality(Qt::WindowModal);
        connect(panel, &QFileDialog::fileSelected, this,
                [this, name](const QString& path) { changeSetting(name, path); });
        panel->open();
    });
}

FileOptionsPage::FileOptionsPage()
{
    addSwitch("ModernENEX", localizedString("Read files of today's Evernote whole"),
              localizedString("Evernote 10 and later write ENEX files in a new way. Read as they "
                              "stand, such files lose dates and tasks, and tags gain empty "
                              "entries. Files that are dropped on the window are recognized "
                              "as long as nothing is chosen here."));
    addSwitch("TimestampsInUTC", localizedString("Times in ENEX files are in UTC"),
              localizedString("That is what Evernote means by them. Otherwise they are taken for "
                              "the time on the clock."));
    addSwitch("ResolveNoteLinks", localizedString("Links between notes lead to the imported notes"),
              localizedString("A link is changed where its text is the title of exactly one note "
                              "of the file. All others keep leading to Evernote."));
    addSwitch("KeepUnreferencedAttachments",
              localizedString("Keep attachments that a note's text does not show"),
              localizedString("They are added at the note's end. A web clip with such a document "
                              "becomes a note."));
}

NoteOptionsPage::NoteOptionsPage()
{
    addFont();
    addNumber("DefaultNoteFontSize", localizedString("Font &size:"), largestFontSize,
              localizedString(" points"), localizedString("Default"));
    addColor("DefaultNoteTextColor", localizedString("&Text colour:"));
    addColor("DefaultNoteBackgroundColor", localizedString("&Background colour:"));
    addNumber("DefaultNoteScaleFactor", localizedString("&Zoom:"), largestScale,
              localizedString(" %"), localizedString("Default"), 100);
    addSwitch("NewNotesShowRuler", localizedString("Show the ruler in imported notes"),
              localizedString("Where nothing is chosen here, the choices made in Quillery hold."));
}

void NoteOptionsPage::addFont()
{
    const QString key = QStringLiteral("DefaultNoteFontName");
    auto* const field = new NoteFontField(this);
    field->setObjectName(key);
    addRow(localizedString("&Font:"), field);
    onReload(key, [field, key] {
        field->setFontName(UserDefaults::standard().stringForKey(key).value_or(QString()));
    });
    field->setChosen([this, key](const QString& name) {
        changeSetting(key, name.isEmpty() ? QVariant() : QVariant(name));
    });
}

void NoteOptionsPage::addColor(const char* key, const QString& label)
{
    const QString name = QLatin1String(key);
    auto* const field = new ColorButton(this);
    field->setObjectName(name);
    field->setAccessibleName(QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    addRow(label, field);
    onReload(name, [field, name] { field->setColor(colorOfSetting(name)); });
    field->setChosen(
        [this, name](const QColor& color) { changeSetting(name, settingOfColor(color)); });
}

WebOptionsPage::WebOptionsPage()
{
    addSwitch("ReloadFromWeb", localizedString("Load clipped pages from the web again"),
              localizedString("Otherwise a web clip is made from what Evernote has kept of the "
                              "page. Pages are fetched "
                              "without your cookies and passwords."));
    addFontFamily("EvernoteDownloadWebKitStandardFont", localizedString("Standard f&ont:"),
                  QStringLiteral("Times"));
    addNumber("EvernoteDownloadWebKitDefaultFontSize", localizedString("Si&ze:"), largestFontSize,
              localizedString(" points"), localizedString("Default"));
    addFontFamily("EvernoteDownloadWebKitFixedFont", localizedString("Fi&xed-pitch font:"),
                  QStringLiteral("Courier"));
    addNumber("EvernoteDownloadWebKitDefaultFixedFontSize", localizedString("Siz&e:"),
              largestFontSize, localizedString(" points"), localizedString("Default"));
    addSwitch("EvernoteDownloadWebKitJavaScriptEnabled",
              localizedString("Mark captured pages for JavaScript"), {}, true);
    addSwitch("EvernoteDownloadWebKitPluginsEnabled",
              localizedString("Mark captured pages for plug-ins"), {}, true);
    addSwitch("EvernoteDownloadWebKitJavaEnabled", localizedString("Mark captured pages for Java"),
              localizedString(
                  "Nothing in a page is ever run while it is captured, whatever is chosen here."),
              true);
}

void WebOptionsPage::addFontFamily(const char* key, const QString& label, const QString& byDefault)
{
    const QString name = QLatin1String(key);
    auto* const field = new NoteFontField(this);
    field->setDefaultFamily(byDefault);
    field->setObjectName(name);
    addRow(label, field);
    onReload(name, [field, name] {
        field->setFontName(UserDefaults::standard().stringForKey(name).value_or(QString()));
    });
    // Pages name families, not faces.
    field->setChosen([this, name](const QString& fontName) {
        const auto font = platform::Font::fontNamed(fontName, 0);
        changeSetting(name, font ? QVariant(font->family) : QVariant());
    });
}
