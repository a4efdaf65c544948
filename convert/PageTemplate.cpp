// SPDX-License-Identifier: MIT
#include "convert/PageTemplate.h"

#include "platform/core/Bundle.h"
#include "platform/files/FileManager.h"

#include <QFile>
#include <QStringDecoder>

#include <cerrno>

using platform::Error;

namespace {
const QString titleMarker = QStringLiteral("<!-- QUILLERY TITLE -->");
const QString bodyMarker = QStringLiteral("<!-- QUILLERY BODY -->");

// Compiled-in resources are no files of the file system, so the bundle's paths are opened with
// QFile.
std::optional<QString> readTemplate(Error* error)
{
    const QString name = QStringLiteral("Template");
    const QString type = QStringLiteral("html");
    const QString path = platform::Bundle::main()
                             .pathForResource(name, type)
                             .value_or(name + QLatin1Char('.') + type);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        const int reason = file.error() == QFileDevice::PermissionsError ? EACCES : ENOENT;
        platform::setError(error, platform::fileError(platform::FileAccess::Read, path, reason));
        return std::nullopt;
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString page = decoder(file.readAll());
    if (decoder.hasError()) {
        platform::setError(error, platform::fileError(platform::FileAccess::Read, path, EILSEQ));
        return std::nullopt;
    }
    return page;
}

} // namespace

std::optional<QString> pageFromTemplate(const QString& title, const QString& body, Error* error)
{
    std::optional<QString> page = readTemplate(error);
    if (page) {
        page->replace(titleMarker, title);
        page->replace(bodyMarker, body);
    }
    return page;
}
