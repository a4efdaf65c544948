// SPDX-License-Identifier: MIT
// Bytes as a page of any charset, through to the addresses that it asks for. How the page is cut
// into steps must not show, and no address may carry what a server must not be told.
#include "platform/webview/PageScanner.h"
#include "platform/webview/TextEncoding.h"
#include "platform/webview/UrlText.h"

#include <cstdlib>

using platform::PageReference;

namespace {

const QString base = QStringLiteral("http://example.org/folder/page.html");

QList<PageReference> references(const QByteArray& markup, platform::MarkupKind kind, qsizetype step,
                                QString* title)
{
    platform::PageScanner scanner(markup, kind, base, QStringLiteral("screen"));
    QList<PageReference> all;
    bool atEnd = false;
    while (!atEnd) {
        atEnd = scanner.advance(step);
        all += scanner.takeReferences();
    }
    *title = scanner.title();
    return all;
}

void check(const PageReference& reference)
{
    const QString& address = reference.address;
    if (address.isEmpty())
        return;
    const QUrl url = platform::urlOfAddress(address);
    const bool isPrivate = !url.userInfo().isEmpty() || url.hasFragment();
    const bool isAbsolute = platform::absoluteAddress(address, QString()) == address;
    if (!isAbsolute || (platform::isWebAddress(address) && isPrivate))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const platform::MarkupKind kind =
        data[0] & 1 ? platform::MarkupKind::Xml : platform::MarkupKind::Html;
    const qsizetype step = 1 + (data[0] >> 1);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const QByteArray markup = platform::decodeDocument(bytes, kind, QString(), QString()).utf8;
    QString title;
    QString titleInSteps;
    const QList<PageReference> whole = references(markup, kind, markup.size() + 1, &title);
    const QList<PageReference> inSteps = references(markup, kind, step, &titleInSteps);
    if (whole.size() != inSteps.size() || title != titleInSteps)
        std::abort();
    for (qsizetype index = 0; index < whole.size(); ++index) {
        if (whole[index].address != inSteps[index].address ||
            whole[index].text != inSteps[index].text)
            std::abort();
        check(whole[index]);
    }
    return 0;
}
