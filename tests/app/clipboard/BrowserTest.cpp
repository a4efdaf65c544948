// SPDX-License-Identifier: MIT
// Links from and to a real browser, by a hand on the mouse.
#include "app/clipboard/Browser.h"
#include "app/GeneralPasteboard.h"
#include "app/clipboard/ClipboardFixture.h"
#include "formats/QLWebBookmarkFile.h"

#include <QtTest/QTest>

#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QMouseEvent>

namespace {

using namespace Qt::StringLiterals;

const QByteArray linkPage =
    "<style>a { display: block; height: 100vh; font-size: 50px }</style>"
    "<a href='http://A.example/caf%C3%A9?b|c&amp;d=[e]#f'>A caf\xC3\xA9 link</a>";

// Tells what is dropped on it.
const QByteArray receivingPage =
    "<body style='height: 100vh' ondragover='event.preventDefault()'><script>"
    "ondrop = event => {"
    " event.preventDefault();"
    " document.title = 'Got ' + event.dataTransfer.getData('text/uri-list').trim()"
    "     + ' ' + event.dataTransfer.getData('text/plain')"
    "}</script>";

class BrowserTest : public ClipboardFixture {
protected:
    void SetUp() override
    {
        ClipboardFixture::SetUp();
        if (hasDisplay && !test::Browser::isInstalled())
            GTEST_SKIP() << "Chromium or xdotool is not installed";
    }

    // Drags from one place to another, again while the display does not keep up.
    template <class Predicate>
    [[nodiscard]] static bool dragUntil(int from, int to, Predicate isDone)
    {
        QStringList words{u"mousemove"_s, QString::number(from), u"300"_s, u"sleep"_s,
                          u"0.1"_s,       u"mousedown"_s,        u"1"_s};
        constexpr int steps = 12;
        for (int step = 1; step <= steps; ++step)
            words << u"mousemove"_s << QString::number(from + (to - from) * step / steps)
                  << u"310"_s << u"sleep"_s << u"0.1"_s;
        words << u"sleep"_s << u"0.5"_s << u"mouseup"_s << u"1"_s;
        for (int attempt = 0; attempt < 5 && !isDone(); ++attempt) {
            static_cast<void>(test::act(words));
            static_cast<void>(QTest::qWaitFor(isDone, 5000));
        }
        return isDone();
    }

    // Two bookmarks, as the program writes them.
    static platform::Pasteboard writtenBookmarks()
    {
        platform::Pasteboard pasteboard;
        QLWebBookmarkFile::writeBookmarkFiles(
            {QLWebBookmarkFile::bookmarkWithName(
                 u"A"_s, *platform::Url::fromString(u"http://A.example/b?c"_s)),
             QLWebBookmarkFile::bookmarkWithName(
                 u"B"_s, *platform::Url::fromString(u"http://b.example/"_s))},
            pasteboard);
        return pasteboard;
    }

    test::Browser m_browser;
};

// A window from which bookmarks can be dragged.
class DragSource : public QWidget {
public:
    explicit DragSource(platform::Pasteboard pasteboard)
        : m_pasteboard(std::move(pasteboard))
    {
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        auto* const drag = new QDrag(this); // Qt deletes it
        drag->setMimeData(m_pasteboard.mimeData().release());
        drag->exec(Qt::CopyAction | Qt::LinkAction);
    }

private:
    platform::Pasteboard m_pasteboard;
};

TEST_F(BrowserTest, ALinkAddressThatItCopiesIsRead)
{
    ASSERT_TRUE(m_browser.open(linkPage));
    // The link's menu, and the letter of "Copy link address". A click may come before the menu can.
    const bool wasCopied = QTest::qWaitFor(
        [] {
            test::act(
                {u"key"_s, u"Escape"_s, u"mousemove"_s, u"200"_s, u"300"_s, u"click"_s, u"3"_s});
            QTest::qWait(1000);
            test::act({u"key"_s, u"e"_s});
            QTest::qWait(500);
            return !QGuiApplication::clipboard()->mimeData()->formats().isEmpty();
        },
        60000);
    ASSERT_TRUE(wasCopied);
    const platform::Pasteboard pasteboard = generalPasteboard();
    EXPECT_TRUE(QLWebBookmarkFile::canInitWithPasteboard(pasteboard))
        << qPrintable(pasteboard.formats().join(u", "_s));
    EXPECT_EQ(bookmarksOn(pasteboard),
              QStringList{u"a.example <http://a.example/caf%C3%A9?b%7Cc&d=%5Be%5D#f>"_s});
}

TEST_F(BrowserTest, ALinkThatIsDraggedFromItIsRead)
{
    ASSERT_TRUE(m_browser.open(linkPage));
    DropTarget target;
    target.setGeometry(500, 0, 500, 700);
    target.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&target));
    ASSERT_TRUE(dragUntil(200, 750, [&] { return target.wasDropped; }));
    EXPECT_TRUE(target.canInit);
    EXPECT_EQ(target.bookmarks,
              QStringList{u"A caf\u00e9 link <http://a.example/caf%C3%A9?b%7Cc&d=%5Be%5D#f>"_s});
}

TEST_F(BrowserTest, ABookmarkThatIsDraggedToItIsALinkThere)
{
    ASSERT_TRUE(m_browser.open(receivingPage));
    DragSource source(writtenBookmarks());
    source.setGeometry(500, 0, 500, 700);
    source.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&source));
    const QString expected = u"Got http://a.example/b?c http://A.example/b?c"_s;
    EXPECT_TRUE(dragUntil(750, 200, [&] { return test::Browser::title().startsWith(u"Got"_s); }));
    EXPECT_EQ(test::Browser::title(), expected);
}

} // namespace
