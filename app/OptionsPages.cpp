// SPDX-License-Identifier: MIT
#include "app/OptionsPages.h"

#include "app/ColorButton.h"
#include "app/ColorSetting.h"
#include "app/EmbeddedLibrary.h"
#include "app/NoteFontField.h"
#include "platform/attributedtext/Font.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/defaults/UserDefaults.h"

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

void ImportOptionsPage::addLibraryFolder()
{
    const QString key = QStringLiteral("QuilleryLibraryFolder");
    auto* const choose = new QPushButton(localizedString("Choose &Folder..."), this);
    choose->setObjectName(QStringLiteral("chooseLibraryFolder"));
    choose->setAutoDefault(false);
    QLineEdit* const field =
        addText("QuilleryLibraryFolder", localizedString("Library folder:"),
                QDir::toNativeSeparators(defaultEmbeddedLibraryFolder()),
                localizedString("Notes go here on a machine without Quillery."), choose);
    connect(choose, &QPushButton::clicked, this, [this, key, field] {
        auto* const panel = new QFileDialog(window(), localizedString("Library Folder"));
        panel->setAttribute(Qt::WA_DeleteOnClose);
        panel->setObjectName(QStringLiteral("folderPanel"));
        panel->setFileMode(QFileDialog::Directory);
        panel->setOption(QFileDialog::ShowDirsOnly);
        panel->setDirectory(field->text().isEmpty() ? QDir::homePath() : field->text());
        panel->setWindowModality(Qt::WindowModal);
        connect(panel, &QFileDialog::fileSelected, this,
                [this, key](const QString& path) { changeSetting(key, path); });
        panel->open();
    });
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
