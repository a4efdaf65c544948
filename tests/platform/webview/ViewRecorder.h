// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/WebView.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

namespace test {

// A view with a delegate that writes down every report and runs the event loop until a page has ended.
class ViewRecorder : public platform::WebFrameLoadDelegate, public platform::WebResourceLoadDelegate {
public:
    ViewRecorder()
    {
        view.setFrameLoadDelegate(this);
        view.setResourceLoadDelegate(this);
    }
    ~ViewRecorder() override
    {
        view.setFrameLoadDelegate(nullptr);
        view.setResourceLoadDelegate(nullptr);
    }

    // True when the main frame finished.
    bool load(const QUrl& url)
    {
        events.clear();
        finished = false;
        error = {};
        view.mainFrame().loadRequest(platform::URLRequest(url));
        // A page that never ends must fail its test, not hang it.
        QTimer::singleShot(60000, &m_loop, [this] { m_loop.exit(1); });
        if (!finished && error.isNull() && m_loop.exec() == 1)
            ADD_FAILURE() << "the page never ended";
        return finished;
    }
    bool load(const QString& path) { return load(QUrl::fromLocalFile(path)); }

    platform::WebDataSource& source() { return *view.mainFrame().dataSource(); }
    // The last part of each sub-resource's address, in order.
    QStringList names() { return names(source()); }
    static QStringList names(const platform::WebDataSource& source)
    {
        QStringList result;
        for (const platform::WebResource& resource : source.subresources())
            result += resource.absoluteString().section(QLatin1Char('/'), -1);
        return result;
    }
    [[nodiscard]] QStringList eventsNamed(const char* name) const
    {
        return events.filter(QLatin1String(name));
    }

    void webViewDidStartProvisionalLoadForFrame(platform::WebView&, platform::WebFrame& frame) override
    {
        note("start", frame);
    }
    void webViewDidReceiveServerRedirectForProvisionalLoadForFrame(platform::WebView&,
                                                                   platform::WebFrame& frame) override
    {
        note("redirect", frame);
    }
    void webViewDidFailProvisionalLoadWithErrorForFrame(platform::WebView&, const platform::Error& problem,
                                                        platform::WebFrame& frame) override
    {
        note("failProvisional", frame);
        ended(frame, problem);
    }
    void webViewDidCommitLoadForFrame(platform::WebView&, platform::WebFrame& frame) override
    {
        note("commit", frame);
    }
    void webViewDidReceiveTitleForFrame(platform::WebView&, const QString& title,
                                        platform::WebFrame&) override
    {
        events += QStringLiteral("title ") + title;
    }
    void webViewDidFinishLoadForFrame(platform::WebView& sender, platform::WebFrame& frame) override
    {
        note("finish", frame);
        if (frame.parentFrame())
            return;
        loadingAtFinish = sender.isLoading();
        finished = true;
        m_loop.quit();
    }
    void webViewDidFailLoadWithErrorForFrame(platform::WebView&, const platform::Error& problem,
                                             platform::WebFrame& frame) override
    {
        note("fail", frame);
        ended(frame, problem);
    }

    QString webViewIdentifierForInitialRequestFromDataSource(platform::WebView&,
                                                             const platform::URLRequest& request,
                                                             platform::WebDataSource&) override
    {
        events += QStringLiteral("identifier ") + last(request.url());
        return last(request.url());
    }
    void webViewResourceWillSendRequestRedirectResponseFromDataSource(platform::WebView&,
                                                                      const QString& identifier,
                                                                      const platform::URLRequest& request,
                                                                      const platform::URLResponse* redirect,
                                                                      platform::WebDataSource&) override
    {
        events += (redirect ? QStringLiteral("resend ") : QStringLiteral("send ")) + identifier;
        sent += request.url();
    }
    void webViewResourceDidReceiveAuthenticationChallengeFromDataSource(
        platform::WebView&, const QString& identifier, platform::AuthenticationChallenge& challenge,
        platform::WebDataSource&) override
    {
        events += QStringLiteral("challenge ") + identifier;
        challenge.continueWithoutCredential();
    }
    void webViewResourceDidReceiveResponseFromDataSource(platform::WebView&, const QString& identifier,
                                                         const platform::URLResponse& response,
                                                         platform::WebDataSource&) override
    {
        events += QStringLiteral("response ") + identifier;
        responses += response;
        if (onResponse)
            onResponse(response);
    }
    void webViewResourceDidFinishLoadingFromDataSource(platform::WebView&, const QString& identifier,
                                                       platform::WebDataSource&) override
    {
        events += QStringLiteral("done ") + identifier;
    }
    void webViewResourceDidFailLoadingWithErrorFromDataSource(platform::WebView&, const QString& identifier,
                                                              const platform::Error& problem,
                                                              platform::WebDataSource&) override
    {
        events += QStringLiteral("failed %1 %2").arg(identifier, QString::number(problem.code()));
    }

    QStringList events;
    QList<QUrl> sent;
    QList<platform::URLResponse> responses;
    bool finished = false;
    bool loadingAtFinish = false;
    platform::Error error;
    std::function<void(const platform::URLResponse&)> onResponse;
    // After what it reports to has been set up.
    platform::WebView view;

private:
    static QString last(const QUrl& url) { return url.toString().section(QLatin1Char('/'), -1); }
    void note(const char* event, const platform::WebFrame& frame)
    {
        events += QLatin1String(event) + QLatin1Char(' ')
                  + (frame.parentFrame() ? frame.name() : QStringLiteral("main"));
    }
    void ended(const platform::WebFrame& frame, const platform::Error& problem)
    {
        if (frame.parentFrame())
            return;
        error = problem;
        m_loop.quit();
    }

    QEventLoop m_loop;
};

} // namespace test
