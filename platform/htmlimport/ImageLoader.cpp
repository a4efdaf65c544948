// SPDX-License-Identifier: MIT
#include "platform/htmlimport/ImageLoader.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <array>
#include <utility>

namespace platform::html {

namespace {

// The name of a data: URL's file, by its MIME type.
QString extensionForMimeType(std::string_view type)
{
    static constexpr std::array<std::pair<std::string_view, const char*>, 14> extensions = {{
        {"image/png", "png"},
        {"image/jpeg", "jpg"},
        {"image/jpg", "jpg"},
        {"image/gif", "gif"},
        {"image/svg+xml", "svg"},
        {"image/webp", "webp"},
        {"image/bmp", "bmp"},
        {"image/tiff", "tiff"},
        {"image/heic", "heic"},
        {"image/avif", "avif"},
        {"image/x-icon", "ico"},
        {"image/vnd.microsoft.icon", "ico"},
        {"application/pdf", "pdf"},
        {"text/plain", "txt"},
    }};
    for (const auto& [known, extension] : extensions) {
        if (css::equalsFolded(type, known))
            return QString::fromLatin1(extension);
    }
    return {};
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString percentDecoded(const QString& text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

// The scheme of a URL, without its colon; empty for a relative reference.
std::string_view schemeOf(std::string_view reference)
{
    const std::size_t colon = reference.find(':');
    // One letter is no scheme, and a colon may well stand in a bare file name.
    if (colon == std::string_view::npos || colon < 2)
        return {};
    for (std::size_t index = 0; index < colon; ++index) {
        const char character = css::folded(reference[index]);
        const bool isLetter = character >= 'a' && character <= 'z';
        const bool isOther = (character >= '0' && character <= '9') || character == '+' ||
                             character == '-' || character == '.';
        if (!isLetter && (index == 0 || !isOther))
            return {};
    }
    return reference.substr(0, colon);
}

bool isLocalScheme(std::string_view scheme)
{
    return css::equalsFolded(scheme, "file") || css::equalsFolded(scheme, "data");
}

// UTF-16 code units; what is longer is no name but an image's own bytes.
constexpr qsizetype longestFileName = 255;

} // namespace

ImageLoader::ImageLoader(const QString& baseDirectory)
{
    if (!baseDirectory.isEmpty())
        m_baseDirectory = QFileInfo(baseDirectory).canonicalFilePath();
}

bool ImageLoader::isRemote(std::string_view reference)
{
    reference = css::trimmed(reference);
    if (reference.starts_with("//"))
        return true;
    const std::string_view scheme = schemeOf(reference);
    return !scheme.empty() && !isLocalScheme(scheme);
}

std::shared_ptr<FileWrapper> ImageLoader::load(std::string_view reference) const
{
    const std::string_view trimmed = css::trimmed(reference);
    // Bare names are tried as they stand first: any character may be in one, a colon as well.
    const QString literal = fromUtf8(reference);
    if (literal.size() <= longestFileName) {
        if (auto file = fileNamed(literal))
            return file;
    }
    if (css::equalsFolded(schemeOf(trimmed), "data"))
        return dataFrom(trimmed);
    if (trimmed.empty() || isRemote(trimmed))
        return nullptr;

    QString path = fromUtf8(trimmed);
    if (css::equalsFolded(schemeOf(trimmed), "file"))
        path = QUrl(path).toLocalFile();
    for (const QString& candidate : {path, percentDecoded(path)}) {
        if (auto file = fileNamed(candidate))
            return file;
    }
    // What stands behind ? or # addresses no file of its own.
    const qsizetype end = path.indexOf(QLatin1Char('?')) < 0 ? path.indexOf(QLatin1Char('#'))
                                                             : path.indexOf(QLatin1Char('?'));
    return end > 0 ? fileNamed(percentDecoded(path.left(end))) : nullptr;
}

std::shared_ptr<FileWrapper> ImageLoader::fileNamed(const QString& name) const
{
    if (m_baseDirectory.isEmpty() || name.isEmpty() || name.contains(QChar(u'\0')))
        return nullptr;
    const QFileInfo info(QDir::isAbsolutePath(name) ? name : m_baseDirectory + u'/' + name);
    // Canonical, so that neither ".." nor a link leads out.
    const QString canonical = info.canonicalFilePath();
    const QString inside =
        m_baseDirectory.endsWith(u'/') ? m_baseDirectory : m_baseDirectory + u'/';
    if (!canonical.startsWith(inside) || !QFileInfo(canonical).isFile())
        return nullptr;
    auto file = FileWrapper::fileOnDisk(canonical);
    if (file)
        file->setPreferredFilename(QFileInfo(canonical).fileName());
    return file;
}

std::shared_ptr<FileWrapper> ImageLoader::dataFrom(std::string_view reference)
{
    const std::size_t comma = reference.find(',');
    if (comma == std::string_view::npos)
        return nullptr;
    const std::string_view header = reference.substr(5, comma - 5);
    const std::string_view type = css::trimmed(header.substr(0, header.find(';')));
    const bool isBase64 =
        header.size() >= 7 &&
        css::equalsFolded(css::trimmed(header.substr(header.rfind(';') + 1)), "base64");
    const QByteArray body = QByteArray::fromRawData(
        reference.data() + comma + 1, static_cast<qsizetype>(reference.size() - comma - 1));
    QByteArray contents = QByteArray::fromPercentEncoding(body);
    if (isBase64)
        contents = QByteArray::fromBase64(contents);
    if (contents.isEmpty())
        return nullptr;
    const bool isImage = type.size() > 6 && css::equalsFolded(type.substr(0, 6), "image/");
    QString name = isImage ? QStringLiteral("image") : QStringLiteral("attachment");
    const QString extension = extensionForMimeType(type);
    if (!extension.isEmpty())
        name += u'.' + extension;
    return FileWrapper::regularFile(contents, name);
}

QString ImageLoader::displayName(std::string_view reference)
{
    reference = css::trimmed(reference);
    if (css::equalsFolded(schemeOf(reference), "data"))
        return QStringLiteral("data");
    return percentDecoded(fromUtf8(reference.substr(reference.rfind('/') + 1))).left(255);
}

} // namespace platform::html
