// SPDX-License-Identifier: MIT
#include "platform/webview/TextEncoding.h"

#include "platform/webview/ContentType.h"
#include "platform/webview/MarkupTokenizer.h"

#include <QHash>
#include <QStringDecoder>

namespace platform {
namespace {

// What pages call an encoding, and the superset of it that browsers decode with. Empty when no decoder has
// it.
QString browserEncoding(const QString& label)
{
    static const QHash<QString, QString> supersets = {
        {QStringLiteral("iso-8859-1"), QStringLiteral("windows-1252")},
        {QStringLiteral("latin1"), QStringLiteral("windows-1252")},
        {QStringLiteral("us-ascii"), QStringLiteral("windows-1252")},
        {QStringLiteral("ascii"), QStringLiteral("windows-1252")},
        {QStringLiteral("iso-8859-9"), QStringLiteral("windows-1254")},
        {QStringLiteral("iso-8859-11"), QStringLiteral("windows-874")},
        {QStringLiteral("tis-620"), QStringLiteral("windows-874")},
        {QStringLiteral("gb2312"), QStringLiteral("gb18030")},
        {QStringLiteral("gbk"), QStringLiteral("gb18030")},
        {QStringLiteral("x-gbk"), QStringLiteral("gb18030")},
        {QStringLiteral("x-sjis"), QStringLiteral("shift_jis")},
        {QStringLiteral("sjis"), QStringLiteral("shift_jis")},
        {QStringLiteral("euc-kr"), QStringLiteral("windows-949")},
        {QStringLiteral("ks_c_5601-1987"), QStringLiteral("windows-949")},
        {QStringLiteral("utf8"), QStringLiteral("utf-8")},
        {QStringLiteral("unicode-1-1-utf-8"), QStringLiteral("utf-8")},
        {QStringLiteral("utf-16"), QStringLiteral("utf-16le")},
    };
    QString name = label.trimmed().toLower();
    name = supersets.value(name, name);
    // Browsers have no decoder for these, because they hide markup from those who look for it.
    if (name.isEmpty() || name.startsWith(QLatin1String("utf-7")) || name.startsWith(QLatin1String("utf-32"))
        || name == QLatin1String("scsu") || name == QLatin1String("bocu-1"))
        return {};
    return QStringDecoder(name.toLatin1().constData()).isValid() ? name : QString();
}

// A declaration that could be read as ASCII cannot have been UTF-16.
QString declaredEncoding(const QString& label)
{
    const QString name = browserEncoding(label);
    return name.startsWith(QLatin1String("utf-16")) ? QStringLiteral("utf-8") : name;
}

QString metaEncoding(const QByteArray& bytes)
{
    MarkupTokenizer tokenizer(QByteArrayView(bytes).first(qMin(bytes.size(), qsizetype(1024))),
                              MarkupKind::Html);
    while (tokenizer.next() != MarkupTokenizer::Token::End) {
        if (tokenizer.token() != MarkupTokenizer::Token::StartTag || tokenizer.name() != "meta")
            continue;
        QString label = tokenizer.attribute("charset");
        if (label.isEmpty()
            && tokenizer.attribute("http-equiv").compare(QLatin1String("content-type"), Qt::CaseInsensitive)
                   == 0)
            label = parseContentType(tokenizer.attribute("content")).charset;
        const QString name = declaredEncoding(label);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

QString xmlEncoding(const QByteArray& bytes)
{
    if (!bytes.startsWith("<?xml"))
        return {};
    const QByteArray declaration = bytes.left(qMin(bytes.indexOf("?>"), qsizetype(256)));
    const qsizetype at = declaration.indexOf("encoding");
    if (at < 0)
        return {};
    QByteArray value = declaration.mid(at + 8).trimmed();
    if (!value.startsWith('='))
        return {};
    value = value.mid(1).trimmed();
    if (value.isEmpty())
        return {};
    return declaredEncoding(QString::fromLatin1(value.mid(1, value.indexOf(value.front(), 1) - 1)));
}

QString charsetRuleEncoding(const QByteArray& bytes)
{
    if (!bytes.startsWith("@charset \""))
        return {};
    const qsizetype end = bytes.indexOf("\";", 10);
    return end < 0 || end > 100 ? QString() : declaredEncoding(QString::fromLatin1(bytes.mid(10, end - 10)));
}

QString markEncoding(const QByteArray& bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return QStringLiteral("utf-8");
    if (bytes.startsWith("\xFE\xFF"))
        return QStringLiteral("utf-16be");
    return bytes.startsWith("\xFF\xFE") ? QStringLiteral("utf-16le") : QString();
}

DecodedText decoded(const QByteArray& bytes, const QString& encoding)
{
    if (encoding == QLatin1String("utf-8")) {
        const QByteArray text = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
        if (QUtf8StringView(text).isValidUtf8())
            return {text, encoding};
    }
    QStringDecoder decoder(encoding.toLatin1().constData());
    const QString text = decoder(bytes);
    return {text.toUtf8(), encoding};
}

QString firstNamed(std::initializer_list<QString> names)
{
    for (const QString& name : names) {
        if (!name.isEmpty())
            return name;
    }
    return {};
}

} // namespace

DecodedText decodeDocument(const QByteArray& bytes, MarkupKind kind, const QString& charset,
                           const QString& surroundingEncoding)
{
    QString encoding = firstNamed({markEncoding(bytes), browserEncoding(charset)});
    if (encoding.isEmpty())
        encoding = kind == MarkupKind::Xml ? xmlEncoding(bytes) : metaEncoding(bytes);
    if (encoding.isEmpty())
        encoding = kind == MarkupKind::Xml ? QStringLiteral("utf-8") : browserEncoding(surroundingEncoding);
    if (encoding.isEmpty())
        encoding =
            QUtf8StringView(bytes).isValidUtf8() ? QStringLiteral("utf-8") : QStringLiteral("windows-1252");
    return decoded(bytes, encoding);
}

DecodedText decodeStyleSheet(const QByteArray& bytes, const QString& charset, const QString& referringCharset)
{
    const QString encoding =
        firstNamed({markEncoding(bytes), browserEncoding(charset), charsetRuleEncoding(bytes),
                    browserEncoding(referringCharset), QStringLiteral("utf-8")});
    return decoded(bytes, encoding);
}

} // namespace platform
