// SPDX-License-Identifier: MIT
#include "app/EvernoteExportOptionsController.h"

#include "WindowFixture.h"
#include "app/ColorSetting.h"
#include "formats/ArchivedColors.h"
#include "exports/EvernoteExportsFolder.h"
#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/scripting/EmbeddedLibrary.h"

#include <QAccessible>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>

using platform::UserDefaults;

namespace {

class OptionsTest : public WindowFixture {
protected:
    void showOptions(int page = 0)
    {
        launch();
        click("optionsButton");
        ASSERT_NE(find("optionsSheet"), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(find("optionsSheet")));
        find("optionsSheet")->findChild<QTabWidget*>()->setCurrentIndex(page);
    }

    ~OptionsTest() override
    {
        for (const char* const key :
             {"UseHTMLExport", "ExportDebug", "ReloadFromWeb", "DefaultNoteFontName",
              "DefaultNoteFontSize", "DefaultNoteTextColor", "DefaultNoteBackgroundColor",
              "NewNotesShowRuler", "DefaultNoteScaleFactor", "QLPrefixExportedTags",
              "QLImportedTagsPrefix", "QuilleryLibraryFolder", "EvernoteExportsFolder", "EvernoteDownloadWebKitStandardFont",
              "EvernoteDownloadWebKitFixedFont", "EvernoteDownloadWebKitDefaultFontSize",
              "EvernoteDownloadWebKitDefaultFixedFontSize", "EvernoteDownloadWebKitJavaEnabled",
              "EvernoteDownloadWebKitJavaScriptEnabled", "EvernoteDownloadWebKitPluginsEnabled",
              "ModernENEX", "TimestampsInUTC", "ResolveNoteLinks", "KeepUnreferencedAttachments"})
            static_cast<void>(UserDefaults::standard().removeObject(QLatin1String(key)));
    }

    static const UserDefaults& defaults() { return UserDefaults::standard(); }

    void clickSwitch(const char* key) const
    {
        auto* const box = find<QCheckBox>(key);
        ASSERT_NE(box, nullptr) << key;
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    }

    void chooseFont(const char* key, const QString& family) const
    {
        auto* const field = find<QComboBox>(key);
        ASSERT_NE(field, nullptr) << key;
        QTest::mouseClick(field->lineEdit(), Qt::LeftButton);
        field->lineEdit()->selectAll();
        QTest::keyClicks(field->lineEdit(), family);
        QTest::keyClick(field->lineEdit(), Qt::Key_Tab);
    }
};

} // namespace

TEST_F(OptionsTest, TheOptionsAreASheetOnTheWindow)
{
    showOptions();
    const QWidget* const sheet = find("optionsSheet");
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->windowType(), Qt::Sheet);
    EXPECT_EQ(sheet->parentWidget(), &app->window());
}

TEST_F(OptionsTest, ClosingEndsTheSheetWithReturnCodeOne)
{
    launch();
    QList<int> codes;
    EvernoteExportOptionsController controller;
    controller.showSheetOnParentWindow(app->window(), [&codes](int code) { codes += code; });
    click("close");
    EXPECT_FALSE(controller.window()->isVisible());
    controller.showSheetOnParentWindow(app->window(), [&codes](int code) { codes += code; });
    QTest::keyClick(controller.window(), Qt::Key_Escape);
    EXPECT_EQ(codes, (QList<int>{1, 1}));
    controller.closeWindow();
    EXPECT_EQ(codes.size(), 2);
}

TEST_F(OptionsTest, HowFilesAreReadIsOffUntilItIsSwitchedOn)
{
    showOptions(3);
    for (const char* const key :
         {"ModernENEX", "TimestampsInUTC", "ResolveNoteLinks", "KeepUnreferencedAttachments"}) {
        ASSERT_NE(find<QCheckBox>(key), nullptr) << key;
        EXPECT_FALSE(find<QCheckBox>(key)->isChecked()) << key;
        EXPECT_FALSE(find<QCheckBox>(key)->accessibleDescription().isEmpty()) << key;
        clickSwitch(key);
        EXPECT_TRUE(defaults().boolForKey(QLatin1String(key))) << key;
        clickSwitch(key);
        EXPECT_FALSE(defaults().boolForKey(QLatin1String(key))) << key;
    }
}

TEST_F(OptionsTest, ASwitchChangesItsSettingAtOnce)
{
    showOptions();
    for (const char* const key : {"UseHTMLExport", "ExportDebug", "QLPrefixExportedTags"}) {
        EXPECT_FALSE(defaults().boolForKey(QLatin1String(key)));
        clickSwitch(key);
        EXPECT_TRUE(defaults().boolForKey(QLatin1String(key))) << key;
        clickSwitch(key);
        EXPECT_FALSE(defaults().boolForKey(QLatin1String(key))) << key;
    }
}

TEST_F(OptionsTest, TheMarksOfTagsAreTyped)
{
    showOptions();
    QTest::mouseClick(find("QLImportedTagsPrefix"), Qt::LeftButton);
    QTest::keyClicks(find<QLineEdit>("QLImportedTagsPrefix"), "#");
    QTest::keyClick(find<QLineEdit>("QLImportedTagsPrefix"), Qt::Key_Tab);
    EXPECT_EQ(defaults().stringForKey("QLImportedTagsPrefix"), "#");
    find<QLineEdit>("QLImportedTagsPrefix")->setFocus();
    QTest::keyClick(find<QLineEdit>("QLImportedTagsPrefix"), Qt::Key_Backspace);
    QTest::keyClick(find<QLineEdit>("QLImportedTagsPrefix"), Qt::Key_Tab);
    EXPECT_FALSE(defaults().objectForKey("QLImportedTagsPrefix").isValid());
}

TEST_F(OptionsTest, TheLibraryFolderIsChosenInAPanel)
{
    showOptions();
    EXPECT_TRUE(
        find<QLineEdit>("QuilleryLibraryFolder")->placeholderText().endsWith("/Quillery Library"));
    EXPECT_EQ(platform::embeddedLibraryFolder(), platform::defaultEmbeddedLibraryFolder());
    click("chooseLibraryFolder");
    ASSERT_TRUE(waitForWidget("folderPanel"));
    auto* const panel = find<QFileDialog>("folderPanel");
    QDir().mkpath(folder.filePath("My Library"));
    panel->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("My Library"));
    QTest::keyClick(panel->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    ASSERT_TRUE(waitUntilGone("folderPanel"));
    EXPECT_EQ(find<QLineEdit>("QuilleryLibraryFolder")->text(), folder.filePath("My Library"));
    EXPECT_EQ(platform::embeddedLibraryFolder(), folder.filePath("My Library"));
}

TEST_F(OptionsTest, TheExportsFolderIsChosenInAPanelOrTyped)
{
    showOptions();
    auto* const field = find<QLineEdit>("EvernoteExportsFolder");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->placeholderText(), EvernoteExportsFolder::defaultDirectory());
    EXPECT_EQ(EvernoteExportsFolder::directoryOfSettings(),
              EvernoteExportsFolder::defaultDirectory());
    click("chooseExportsFolder");
    ASSERT_TRUE(waitForWidget("folderPanel"));
    auto* const panel = find<QFileDialog>("folderPanel");
    QDir().mkpath(folder.filePath("My Exports"));
    panel->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("My Exports"));
    QTest::keyClick(panel->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    ASSERT_TRUE(waitUntilGone("folderPanel"));
    EXPECT_EQ(field->text(), folder.filePath("My Exports"));
    EXPECT_EQ(EvernoteExportsFolder::directoryOfSettings(), folder.filePath("My Exports"));
}

TEST_F(OptionsTest, AFontIsKeptUnderTheNameThatAMacKnows)
{
    showOptions(1);
    chooseFont("DefaultNoteFontName", "times new roman");
    EXPECT_EQ(defaults().stringForKey("DefaultNoteFontName"), "TimesNewRomanPSMT");
    EXPECT_EQ(find<QComboBox>("DefaultNoteFontName")->currentText(), "Times New Roman");
}

TEST_F(OptionsTest, AFontThatNobodyHasIsTakenBack)
{
    showOptions(1);
    chooseFont("DefaultNoteFontName", "No Such Font");
    EXPECT_FALSE(defaults().objectForKey("DefaultNoteFontName").isValid());
    EXPECT_EQ(find<QComboBox>("DefaultNoteFontName")->currentIndex(), 0);
}

TEST_F(OptionsTest, SizeAndZoomAreNumbersWithADefault)
{
    showOptions(1);
    EXPECT_EQ(find<QSpinBox>("DefaultNoteFontSize")->text(), "Default");
    find<QSpinBox>("DefaultNoteFontSize")->setValue(14);
    EXPECT_EQ(defaults().floatForKey("DefaultNoteFontSize"), 14.0F);
    find<QSpinBox>("DefaultNoteScaleFactor")->setValue(150);
    EXPECT_EQ(defaults().floatForKey("DefaultNoteScaleFactor"), 1.5F);
    find<QSpinBox>("DefaultNoteScaleFactor")->setValue(0);
    EXPECT_FALSE(defaults().objectForKey("DefaultNoteScaleFactor").isValid());
}

TEST_F(OptionsTest, AColourIsChosenInAPanelAndKeptAsAnArchive)
{
    showOptions(1);
    auto* const field = find("DefaultNoteBackgroundColor");
    ASSERT_NE(field, nullptr);
    QTest::mouseClick(field->findChild<QAbstractButton*>("chooseColor"), Qt::LeftButton);
    ASSERT_TRUE(waitForWidget("colorPanel"));
    find<QColorDialog>("colorPanel")->setCurrentColor(QColor(255, 250, 205));
    QTest::keyClick(find("colorPanel"), Qt::Key_Return);
    ASSERT_TRUE(waitUntilGone("colorPanel"));
    const auto color = colorForDefaultsKey("DefaultNoteBackgroundColor");
    ASSERT_TRUE(color.has_value());
    EXPECT_NEAR(color->red, 1, 1e-4);
    EXPECT_NEAR(color->green, 250 / 255.0, 1e-4);
    EXPECT_NEAR(color->blue, 205 / 255.0, 1e-4);
    EXPECT_EQ(color->alpha, 1);
    EXPECT_EQ(colorOfSetting("DefaultNoteBackgroundColor").name(), "#fffacd");
    QTest::mouseClick(field->findChild<QAbstractButton*>("resetColor"), Qt::LeftButton);
    EXPECT_FALSE(defaults().objectForKey("DefaultNoteBackgroundColor").isValid());
}

TEST_F(OptionsTest, PagesHaveSettingsOfTheirOwn)
{
    showOptions(2);
    clickSwitch("ReloadFromWeb");
    EXPECT_TRUE(defaults().boolForKey("ReloadFromWeb"));
    EXPECT_TRUE(find<QCheckBox>("EvernoteDownloadWebKitJavaEnabled")->isChecked());
    clickSwitch("EvernoteDownloadWebKitJavaEnabled");
    EXPECT_TRUE(defaults().objectForKey("EvernoteDownloadWebKitJavaEnabled").isValid());
    EXPECT_FALSE(defaults().boolForKey("EvernoteDownloadWebKitJavaEnabled"));
    chooseFont("EvernoteDownloadWebKitStandardFont", "Georgia");
    EXPECT_EQ(defaults().stringForKey("EvernoteDownloadWebKitStandardFont"), "Georgia");
    find<QSpinBox>("EvernoteDownloadWebKitDefaultFontSize")->setValue(18);
    EXPECT_EQ(defaults().integerForKey("EvernoteDownloadWebKitDefaultFontSize"), 18);
}

TEST_F(OptionsTest, RestoringDefaultsRemovesEverySetting)
{
    ASSERT_TRUE(UserDefaults::standard().setObject("UseHTMLExport", true));
    ASSERT_TRUE(UserDefaults::standard().setObject("DefaultNoteFontName", "Georgia"));
    ASSERT_TRUE(UserDefaults::standard().setObject("ReloadFromWeb", true));
    ASSERT_TRUE(UserDefaults::standard().setObject("SomethingElse", 1));
    showOptions();
    EXPECT_TRUE(find<QCheckBox>("UseHTMLExport")->isChecked());
    click("restoreDefaults");
    EXPECT_FALSE(find<QCheckBox>("UseHTMLExport")->isChecked());
    for (const char* const key : {"UseHTMLExport", "DefaultNoteFontName", "ReloadFromWeb"})
        EXPECT_FALSE(defaults().objectForKey(QLatin1String(key)).isValid()) << key;
    EXPECT_TRUE(defaults().objectForKey("SomethingElse").isValid());
    ASSERT_TRUE(UserDefaults::standard().removeObject("SomethingElse"));
}

TEST_F(OptionsTest, TheNotesApplicationsOwnChoicesShowThrough)
{
    UserDefaults quillery("com.brightmoor.Quillery3", platform::StandardDirectories::preferences());
    ASSERT_TRUE(quillery.setObject("DefaultNoteFontSize", 17));
    showOptions(1);
    EXPECT_EQ(find<QSpinBox>("DefaultNoteFontSize")->value(), 17);
    ASSERT_TRUE(quillery.removeObject("DefaultNoteFontSize"));
}

TEST_F(OptionsTest, EveryControlHasAnAccessibleName)
{
    showOptions();
    for (QWidget* const control : find("optionsSheet")->findChildren<QWidget*>()) {
        if (control->focusPolicy() == Qt::NoFocus || !control->isVisible())
            continue;
        const QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(face, nullptr);
        if (face->role() == QAccessible::PageTabList || face->role() == QAccessible::Client)
            continue;
        EXPECT_FALSE(face->text(QAccessible::Name).isEmpty())
            << qPrintable(control->objectName()) << ' ' << control->metaObject()->className();
    }
}
