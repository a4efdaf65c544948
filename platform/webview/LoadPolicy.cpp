// SPDX-License-Identifier: MIT
#include "platform/webview/LoadPolicy.h"

#include "platform/webview/UrlText.h"

#include <QFileInfo>

namespace platform {

LoadPolicy::LoadPolicy(const QString& page)
    : m_page(page)
{
    if (!isFileAddress(page))
        return;
    const QString folder = QFileInfo(QFileInfo(urlOfAddress(page).toLocalFile()).path()).canonicalFilePath();
    if (!folder.isEmpty())
        m_folder = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

bool LoadPolicy::mayLoad(const QString& address, const QString& origin) const
{
    if (isWebAddress(address) || isDataAddress(address) || address.startsWith(QLatin1String("about:")))
        return true;
    if (!isFileAddress(address))
        return false;
    if (origin.isEmpty())
        return address == m_page;
    if (!isFileAddress(origin) || m_folder.isEmpty())
        return false;
    const QString path = urlOfAddress(address).toLocalFile();
    const QString actual = QFileInfo(path).canonicalFilePath();
    // A missing file has no actual path; it is left to fail as such.
    return actual.isEmpty() || actual.startsWith(m_folder);
}

QString LoadPolicy::referrer(const QString& address, const QString& origin)
{
    if (!isWebAddress(origin) || !isWebAddress(address))
        return {};
    const bool secure = origin.startsWith(QLatin1String("https:"));
    if (secure && !address.startsWith(QLatin1String("https:")))
        return {};
    const QString server = originOfAddress(origin);
    return server == originOfAddress(address) ? origin : server + QLatin1Char('/');
}

} // namespace platform
