// SPDX-License-Identifier: MIT
// Draws every state of the window for the eyes of a person, into the folder that VUPUGE_SCREENSHOTS
// names.
#include "AlertWatcher.h"
#include "WindowFixture.h"
#include "app/Translations.h"

#include <QFileDialog>
#include <QPainter>
#include <QStyleFactory>
#include <QTabWidget>

namespace {

const QString& pictureFolder()
{
    static const QString folder = qEnvironmentVariable("VUPUGE_SCREENSHOTS", QStringLiteral("."));
    return folder;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x2f, 0x31, 0x36));
    palette.setColor(QPalette::Base, QColor(0x23, 0x25, 0x29));
    palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2c, 0x31));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xc4));
    return palette;
}

class Screenshots : public WindowFixture {
protected:
    void SetUp() override
    {
        QDir().mkpath(pictureFolder());
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    }

    void TearDown() override
    {
        WindowFixture::TearDown();
        QApplication::setPalette(QApplication::style()->standardPalette());
        QApplication::setLayoutDirection(Qt::LeftToRight);
        installTranslations(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    // The window with what stands before it, as they are on a screen.
    void picture(const char* name) const
    {
        QTest::qWait(50);
        const QWidget& window = app->window();
        QPixmap screen = app->window().grab();
        QPainter painter(&screen);
        for (QWidget* const sheet : QApplication::topLevelWidgets()) {
            if (sheet == &window || !sheet->isVisible() || !sheet->isWindow())
                continue;
            const QPixmap image = sheet->grab();
            QRect place(QPoint(), sheet->size());
            place.moveCenter(window.rect().center());
            painter.fillRect(window.rect(), QColor(0, 0, 0, 70));
            for (int ring = 10; ring > 0; --ring)
                painter.fillRect(place.adjusted(-ring, -ring, ring, ring + 3), QColor(0, 0, 0, 9));
            painter.drawPixmap(place, image);
            painter.setPen(QColor(0, 0, 0, 120));
            painter.drawRect(place.adjusted(-1, -1, 0, 0));
        }
        painter.end();
        ASSERT_TRUE(screen.save(pictureFolder() + QLatin1Char('/') + QLatin1String(name) +
                                QLatin1String(".png")));
    }

    void listNotebooks()
    {
        evernote = std::make_shared<test::FakeEvernote>();
        const std::vector<std::pair<const char*, std::size_t>> notebooks = {
            {"Garden", 148},      {"Recipes", 312}, {"Travel 2024", 57}, {"Work", 1204},
            {"Reading list", 86}, {"House", 39},    {"Inbox", 12},       {"Languages", 230}};
        for (const auto& [name, notes] : notebooks)
            evernote->add(name, notes);
        launch();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }));
        NotebookRow row = app->objectInNotebooksAtIndex(1);
        row.import = false;
        app->replaceObjectInNotebooksAtIndexWithObject(1, row);
    }

    void showResult(const QByteArray& notes)
    {
        app->openURLs({QUrl::fromLocalFile(folder.write("Garden.enex", test::enexWith(notes)))});
        ASSERT_TRUE(waitForWidget("resultSheet"));
    }

    void showProgress()
    {
        closeGate();
        listNotebooks();
        click("importButton");
        EvernoteExportOperation operation;
        EvernoteExportOperationDelegate& panel = app->exportPanel();
        panel.exportOperationWillExportRecordsFromNotebook(operation, 148, "Garden");
        for (int note = 0; note < 61; ++note)
            panel.exportOperationDidExportRecord(operation);
    }

    // Lets the run that was held back end, and answers its error.
    void finishProgress()
    {
        AlertWatcher alerts;
        gate->open();
        EXPECT_TRUE(alerts.waitFor(1));
    }
};

const QByteArray mixedNotes =
    "<note><title>Pruning "
    "calendar</title><content><![CDATA[<en-note>x</en-note>]]></content></note>"
    "<note><title>Seeds to order</title><content><![CDATA[<en-note>x</en-note>]]></content></note>"
    "<note><title>Soil test</title><content><![CDATA[]]></content></note>"
    "<note><title>Shed "
    "key</title><content><![CDATA[<en-note><en-crypt>AA==</en-crypt></en-note>]]></content></note>";

} // namespace

TEST_F(Screenshots, Loading)
{
    evernote = std::make_shared<test::FakeEvernote>();
    launch();
    picture("loading");
}

TEST_F(Screenshots, Empty)
{
    launch();
    picture("empty");
}

TEST_F(Screenshots, List)
{
    listNotebooks();
    picture("list");
}

TEST_F(Screenshots, ListInTheDark)
{
    QApplication::setPalette(darkPalette());
    listNotebooks();
    picture("list-dark");
}

TEST_F(Screenshots, ListFromRightToLeft)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    listNotebooks();
    picture("list-right-to-left");
}

TEST_F(Screenshots, ListInJapanese)
{
    installTranslations(QLocale(QLocale::Japanese));
    listNotebooks();
    picture("list-japanese");
}

TEST_F(Screenshots, Progress)
{
    showProgress();
    picture("progress");
    finishProgress();
}

TEST_F(Screenshots, ProgressInTheDark)
{
    QApplication::setPalette(darkPalette());
    showProgress();
    picture("progress-dark");
    finishProgress();
}

TEST_F(Screenshots, Error)
{
    launch();
    QTimer::singleShot(1500, [this] {
        picture("error");
        QTest::keyClick(find("alert"), Qt::Key_Return);
    });
    app->openURLs({QUrl::fromLocalFile(folder.write("Bad.enex", "<en-export><note>"))});
    ASSERT_TRUE(waitForWidget("dismiss"));
    picture("error-afterwards");
}

TEST_F(Screenshots, Result)
{
    launch();
    showResult(mixedNotes);
    picture("result");
}

TEST_F(Screenshots, ResultInTheDark)
{
    QApplication::setPalette(darkPalette());
    launch();
    showResult(mixedNotes);
    picture("result-dark");
}

TEST_F(Screenshots, ResultOfAWholeImport)
{
    launch();
    showResult("<note><title>A</title><content><![CDATA[<en-note>x</en-note>]]></content></note>");
    picture("result-everything");
}

TEST_F(Screenshots, ThePanelForAFile)
{
    folder.write("Garden.enex", mixedNotes);
    launch();
    click("chooseFile");
    ASSERT_TRUE(waitForWidget("openPanel"));
    find<QFileDialog>("openPanel")->setDirectory(folder.path());
    picture("open-panel");
}

TEST_F(Screenshots, Options)
{
    launch();
    click("optionsButton");
    for (const int page : {0, 1, 2, 3}) {
        find("optionsSheet")->findChild<QTabWidget*>()->setCurrentIndex(page);
        picture(("options-" + std::to_string(page + 1)).c_str());
    }
}

TEST_F(Screenshots, OptionsInGerman)
{
    installTranslations(QLocale(QLocale::German));
    launch();
    click("optionsButton");
    find("optionsSheet")->findChild<QTabWidget*>()->setCurrentIndex(1);
    picture("options-german");
}
