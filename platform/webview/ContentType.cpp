// SPDX-License-Identifier: MIT
#include "platform/webview/ContentType.h"

#include <QHash>

namespace platform {
namespace {

QString unquoted(QStringView value)
{
    value = value.trimmed();
    if (value.size() >= 2 && (value.front() == QLatin1Char('"') || value.front() == QLatin1Char('\''))
        && value.back() == value.front())
        value = value.mid(1, value.size() - 2);
    return value.trimmed().toString().toLower();
}

struct Signature {
    int offset;
    QByteArrayView bytes;
    const char* mimeType;
};

const Signature signatures[] = {
    {0, "\x89PNG\r\n\x1A\n", "image/png"},
    {0, "\xFF\xD8\xFF", "image/jpeg"},
    {0, "GIF87a", "image/gif"},
    {0, "GIF89a", "image/gif"},
    {8, "WEBPVP", "image/webp"},
    {4, "ftypavif", "image/avif"},
    {4, "ftypheic", "image/heic"},
    {0, "BM", "image/bmp"},
    {0, QByteArrayView("II*\0", 4), "image/tiff"},
    {0, QByteArrayView("MM\0*", 4), "image/tiff"},
    {0, QByteArrayView("\0\0\1\0", 4), "image/x-icon"},
    {0, "%PDF-", "application/pdf"},
    {0, "wOFF", "font/woff"},
    {0, "wOF2", "font/woff2"},
    {0, "OTTO", "font/otf"},
    {0, QByteArrayView("\0\1\0\0", 4), "font/ttf"},
};

const char* const markupStarts[] = {
    "<!doctype html", "<html", "<head",  "<body",  "<script", "<iframe", "<h1", "<div", "<font",
    "<table",         "<a",    "<style", "<title", "<b",      "<br",     "<p",  "<!--"};

bool startsWithTag(const QByteArray& text, const char* tag)
{
    const qsizetype length = qsizetype(qstrlen(tag));
    if (!text.startsWith(tag))
        return false;
    if (qstrcmp(tag, "<!--") == 0)
        return true;
    return text.size() > length && (text[length] == ' ' || text[length] == '>');
}

} // namespace

ContentType parseContentType(QStringView header)
{
    ContentType type;
    bool first = true;
    for (const QStringView part : header.split(QLatin1Char(';'))) {
        if (first) {
            // A server that answers twice joins the two types with a comma.
            const QStringView name =
                part.left(part.indexOf(QLatin1Char(',')) < 0 ? part.size() : part.indexOf(QLatin1Char(',')));
            if (name.contains(QLatin1Char('/')))
                type.mimeType = name.trimmed().toString().toLower();
            first = false;
            continue;
        }
        const qsizetype equals = part.indexOf(QLatin1Char('='));
        if (equals > 0 && type.charset.isEmpty()
            && part.left(equals).trimmed().compare(QLatin1String("charset"), Qt::CaseInsensitive) == 0)
            type.charset = unquoted(part.mid(equals + 1));
    }
    return type;
}

QString mimeTypeForPath(QStringView path)
{
    static const QHash<QString, const char*> types = {
        {QStringLiteral("html"), "text/html"},
        {QStringLiteral("htm"), "text/html"},
        {QStringLiteral("xhtml"), "application/xhtml+xml"},
        {QStringLiteral("xht"), "application/xhtml+xml"},
        {QStringLiteral("xml"), "application/xml"},
        {QStringLiteral("css"), "text/css"},
        {QStringLiteral("txt"), "text/plain"},
        {QStringLiteral("js"), "text/javascript"},
        {QStringLiteral("json"), "application/json"},
        {QStringLiteral("png"), "image/png"},
        {QStringLiteral("apng"), "image/apng"},
        {QStringLiteral("jpg"), "image/jpeg"},
        {QStringLiteral("jpeg"), "image/jpeg"},
        {QStringLiteral("jpe"), "image/jpeg"},
        {QStringLiteral("gif"), "image/gif"},
        {QStringLiteral("webp"), "image/webp"},
        {QStringLiteral("avif"), "image/avif"},
        {QStringLiteral("heic"), "image/heic"},
        {QStringLiteral("bmp"), "image/bmp"},
        {QStringLiteral("tif"), "image/tiff"},
        {QStringLiteral("tiff"), "image/tiff"},
        {QStringLiteral("svg"), "image/svg+xml"},
        {QStringLiteral("ico"), "image/x-icon"},
        {QStringLiteral("pdf"), "application/pdf"},
        {QStringLiteral("woff"), "font/woff"},
        {QStringLiteral("woff2"), "font/woff2"},
        {QStringLiteral("ttf"), "font/ttf"},
        {QStringLiteral("otf"), "font/otf"},
        {QStringLiteral("swf"), "application/x-shockwave-flash"},
        {QStringLiteral("mp4"), "video/mp4"},
        {QStringLiteral("mov"), "video/quicktime"},
        {QStringLiteral("webm"), "video/webm"},
        {QStringLiteral("mp3"), "audio/mpeg"},
        {QStringLiteral("m4a"), "audio/mp4"},
        {QStringLiteral("wav"), "audio/wav"},
    };
    const QStringView name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot < 0)
        return {};
    return QString::fromLatin1(types.value(name.mid(dot + 1).toString().toLower(), ""));
}

QString mimeTypeOfBytes(QByteArrayView start)
{
    start = start.first(qMin(start.size(), qsizetype(512)));
    for (const Signature& signature : signatures) {
        if (start.size() >= signature.offset + signature.bytes.size()
            && start.sliced(signature.offset).startsWith(signature.bytes))
            return QString::fromLatin1(signature.mimeType);
    }
    QByteArray text = start.toByteArray();
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    text = text.trimmed().toLower();
    for (const char* tag : markupStarts) {
        if (startsWithTag(text, tag))
            return QStringLiteral("text/html");
    }
    if (text.startsWith("<svg"))
        return QStringLiteral("image/svg+xml");
    if (text.startsWith("<?xml"))
        return text.contains("<svg") ? QStringLiteral("image/svg+xml") : QStringLiteral("text/xml");
    const bool binary = std::any_of(start.begin(), start.end(), [](char byte) {
        const uchar value = static_cast<uchar>(byte);
        return value < 0x09 || value == 0x0B || (value > 0x0D && value < 0x20 && value != 0x1B);
    });
    return binary ? QStringLiteral("application/octet-stream") : QStringLiteral("text/plain");
}

bool isHtmlType(const QString& mimeType)
{
    return mimeType == QLatin1String("text/html");
}

bool isXmlType(const QString& mimeType)
{
    return mimeType.endsWith(QLatin1String("+xml")) || mimeType == QLatin1String("text/xml")
           || mimeType == QLatin1String("application/xml");
}

bool isImageType(const QString& mimeType)
{
    return mimeType.startsWith(QLatin1String("image/"));
}

bool isShowableType(const QString& mimeType)
{
    for (const char* family : {"text/", "image/", "audio/", "video/"}) {
        if (mimeType.startsWith(QLatin1String(family)))
            return true;
    }
    return isXmlType(mimeType) || mimeType == QLatin1String("application/pdf")
           || mimeType == QLatin1String("application/json") || mimeType.endsWith(QLatin1String("+json"))
           || mimeType.endsWith(QLatin1String("javascript"));
}

} // namespace platform
