// SPDX-License-Identifier: MIT
//
// A cancel at every moment of a page's load frees who waits, and ends the load.
#include "webcapture/CaptureFixture.h"

#include <QCoreApplication>

#include <thread>

namespace {

using test::HttpAnswer;
using Delivery = HttpAnswer::Delivery;

struct Moment {
    const char* name;
    // What the page and the one thing that it shows answer; the page's type is HTML.
    QByteArray page;
    Delivery pageDelivery;
    Delivery partDelivery;
    // The bytes of endless answers that have arrived, at least.
    qint64 streamedBytes;
    QByteArrayList pageHeaders = {};
};

class CancelledCaptureTest : public CaptureTest, public ::testing::WithParamInterface<Moment> {
protected:
    void serve()
    {
        const Moment& moment = GetParam();
        const int status = moment.pageHeaders.isEmpty() ? 200 : 302;
        m_server.serve(text("/page"), HttpAnswer{status, "text/html", moment.page,
                                                 moment.pageHeaders, moment.pageDelivery});
        m_server.serve(text("/part"),
                       HttpAnswer{200, "text/html", "a{} ", {}, moment.partDelivery});
        m_server.serve(text("/part.css"),
                       HttpAnswer{200, "text/css", "a{} ", {}, moment.partDelivery});
    }
    // The load waits, as it would for ever, for the last thing that was asked for.
    [[nodiscard]] bool isReached() const
    {
        const bool isPageAwaited = GetParam().pageDelivery != Delivery::Whole;
        const qsizetype awaited = isPageAwaited && GetParam().pageHeaders.isEmpty() ? 1 : 2;
        return m_server.requests().size() >= awaited &&
               m_server.streamedBytes() >= GetParam().streamedBytes;
    }
};

TEST_P(CancelledCaptureTest, FreesTheWaiterAndEndsTheLoad)
{
    serve();
    const Operation operation = operationFor(m_server.url(text("/page")));
    std::thread waiter([&] {
        operation->start();
        operation->waitUntilFinished();
    });
    waitUntil([&] { return isReached(); });
    ASSERT_FALSE(operation->isFinished());
    // Another thread than the one that loads or the one that waits. While it cancels, nothing else
    // happens here.
    std::thread([&] { operation->cancel(); }).join();
    waiter.join();
    EXPECT_TRUE(operation->isFinished());
    EXPECT_TRUE(operation->isCancelled());
    EXPECT_FALSE(operation->isExecuting());
    EXPECT_FALSE(operation->webArchiveData());
    EXPECT_FALSE(operation->operationError());
    waitUntil([&] { return !operation->offscreenWebView() && m_server.openConnections() == 0; });
    EXPECT_FALSE(operation->webArchiveData());
    EXPECT_FALSE(operation->operationError());
    EXPECT_TRUE(m_systemLog.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Moments, CancelledCaptureTest,
    ::testing::Values(
        Moment{"NoAnswer", "x", Delivery::Never, Delivery::Never, 0},
        Moment{"HeaderWithoutABody", "x", Delivery::HeaderOnly, Delivery::Never, 0},
        Moment{"DocumentThatTrickles", "<p>text ", Delivery::Trickle, Delivery::Never, 20},
        Moment{"DocumentWithoutAnEnd", "<p>text ", Delivery::Endless, Delivery::Never, 1 << 20},
        Moment{"RedirectThatTrickles",
               "moved ",
               Delivery::Trickle,
               Delivery::Trickle,
               20,
               {"Location: /part"}},
        Moment{"ImageThatIsNotSent", "<img src=part>", Delivery::Whole, Delivery::Never, 0},
        Moment{"ImageThatTrickles", "<img src=part>", Delivery::Whole, Delivery::Trickle, 20},
        Moment{"ImageWithoutAnEnd", "<img src=part>", Delivery::Whole, Delivery::Endless, 1 << 20},
        Moment{"StylesThatTrickle", "<link rel=stylesheet href=part.css>", Delivery::Whole,
               Delivery::Trickle, 20},
        Moment{"FrameThatIsNotSent", "<iframe src=part></iframe>", Delivery::Whole, Delivery::Never,
               0},
        Moment{"FrameThatTrickles", "<iframe src=part></iframe>", Delivery::Whole,
               Delivery::Trickle, 20}),
    [](const auto& info) { return std::string(info.param.name); });

using CancelledScanTest = CaptureTest;

TEST_F(CancelledScanTest, WhileALargePageIsReadFreesTheWaiterAndEndsTheLoad)
{
    // Read in some dozens of steps, at any of which the cancel may come.
    m_folder.write(text("a.css"), QByteArray("p{color:red}").repeated(200000));
    const QString page =
        m_folder.write(text("page.html"), "<link rel=stylesheet href=a.css>" +
                                              QByteArray("<div><b>").repeated(200000));
    for (int turns = 1; turns < 70; turns += 15) {
        const Operation operation = operationFor(QUrl::fromLocalFile(page));
        std::thread waiter([&] {
            operation->start();
            operation->waitUntilFinished();
        });
        waitUntil([&] { return operation->offscreenWebView(); });
        for (int turn = 0; turn < turns; ++turn)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 0);
        operation->cancel();
        waiter.join();
        EXPECT_FALSE(operation->operationError());
        waitUntil([&] { return !operation->offscreenWebView(); });
    }
}

} // namespace
