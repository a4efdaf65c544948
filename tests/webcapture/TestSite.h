// SPDX-License-Identifier: MIT
#pragma once

#include "webcapture/CaptureFixture.h"

#include <utility>

// What an archive must hold, frame by frame: addresses without their server, and every byte.
struct ExpectedArchive {
    const char* address;
    QByteArray document;
    // In the document's order.
    QList<std::pair<QByteArray, QByteArray>> resources = {};
    QList<ExpectedArchive> frames = {};
    // Of a frame; null where any will do.
    const char* name = nullptr;
};

// A site whose pages are converted and compared with what they hold.
class TestSite : public CaptureTest {
protected:
    using Delivery = test::HttpAnswer::Delivery;

    void page(const char* path, const QByteArray& body, const QByteArray& type = "text/html")
    {
        m_server.serve(text(path), body, type);
    }
    void image(const char* path, const QByteArray& bytes)
    {
        m_server.serve(text(path), bytes, "image/png");
    }
    void styles(const char* path, const QByteArray& sheet)
    {
        m_server.serve(text(path), sheet, "text/css");
    }
    void answer(const char* path, int status, const QByteArray& body = "<p>no",
                const QByteArray& type = "text/html", const QByteArrayList& headers = {})
    {
        m_server.serve(text(path), test::HttpAnswer{status, type, body, headers});
    }
    void deliver(const char* path, Delivery delivery, const QByteArray& body,
                 const QByteArray& type = "text/html")
    {
        m_server.serve(text(path), test::HttpAnswer{200, type, body, {}, delivery});
    }

    QVariantMap archive(const char* path = "/page")
    {
        return archiveOf(convert(m_server.url(text(path))));
    }
    void expectPage(const ExpectedArchive& expected) { expectArchive(archive(), expected); }
    void expectArchive(const QVariantMap& found, const ExpectedArchive& expected);

private:
    [[nodiscard]] QByteArray pathOf(const QVariantMap& resource) const;
};
