// SPDX-License-Identifier: MIT
#include "formats/SharedOperationsTable.h"

#include <QRegularExpression>

#include <algorithm>

namespace test {

QString shown(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }

QString shown(const QString& value)
{
    QString text;
    for (const QChar unit : value) {
        if (unit == u'\n')
            text += QStringLiteral("\\n");
        else if (unit == u'"' || unit == u'\\')
            text += QStringLiteral("\\") + unit;
        else if (unit.isPrint() && unit.unicode() < 0x7F)
            text += unit;
        else
            text += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    return u'"' + text + u'"';
}

QString shown(const QUrl& value) { return value.toString(QUrl::FullyEncoded); }

QString shown(const platform::Url& value)
{
    return value.absoluteString();
}

QString shown(const QVariant& value)
{
    QStringList parts;
    if (value.metaType().id() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            parts += shown(entry.key()) + QStringLiteral(": ") + shown(entry.value());
        return u'{' + parts.join(QStringLiteral(", ")) + u'}';
    }
    if (value.metaType().id() == QMetaType::QVariantList) {
        for (const QVariant& element : value.toList())
            parts += shown(element);
        return u'[' + parts.join(QStringLiteral(", ")) + u']';
    }
    return shown(value.toString());
}

QString shown(const QByteArray& value) { return shown(QString::fromLatin1(value)); }

QString shown(const QStringList& value)
{
    QStringList parts;
    for (const QString& element : value)
        parts += shown(element);
    return u'[' + parts.join(QStringLiteral(", ")) + u']';
}

QString shown(const QSet<QString>& value)
{
    QStringList elements(value.begin(), value.end());
    elements.sort();
    return shown(elements);
}

QString SharedOperationsTable::markdown(const QString& introduction) const
{
    QString text = introduction;
    for (const Header& header : m_headers) {
        text += QStringLiteral("\n## %1\n\n| Operation | Example | Gives |\n|---|---|---|\n").arg(header.name);
        for (const Example& example : header.examples)
            text += QStringLiteral("| %1 | `%2` | `%3` |\n").arg(example.operation, example.code, example.result);
    }
    return text;
}

QSet<QString> SharedOperationsTable::operations(const QString& header) const
{
    QSet<QString> names;
    for (const Header& each : m_headers) {
        for (const Example& example : each.examples) {
            if (each.name == header)
                names += example.operation;
        }
    }
    return names;
}

QStringList SharedOperationsTable::headers() const
{
    QStringList names;
    for (const Header& header : m_headers)
        names += header.name;
    return names;
}

QStringList SharedOperationsTable::operationsWithoutExample() const
{
    QStringList names;
    for (const Header& header : m_headers) {
        for (const Example& example : header.examples) {
            const QRegularExpression call(QStringLiteral("\\b%1\\b[<(]").arg(example.operation));
            if (!call.match(example.code).hasMatch())
                names += example.operation;
        }
    }
    return names;
}

QSet<QString> declaredOperations(const QByteArray& header)
{
    QString text = QString::fromUtf8(header);
    // Neither comments nor bodies nor what only the class itself sees; "operator" and constructors have no
    // type before their name, or no word after it.
    text.remove(QRegularExpression(QStringLiteral("//[^\n]*")));
    text.remove(QRegularExpression(QStringLiteral("private:.*"), QRegularExpression::DotMatchesEverythingOption));
    text.remove(QRegularExpression(QStringLiteral("^#[^\n]*$"), QRegularExpression::MultilineOption));
    const QRegularExpression declaration(
        QStringLiteral("^ {0,4}(?:\\[\\[nodiscard\\]\\] )?(?:static )?(?:const )?[\\w:]+(?:<[^;(]*>)?[&*]?\\s+(\\w+)\\("),
        QRegularExpression::MultilineOption);
    QSet<QString> names;
    for (auto match = declaration.globalMatch(text); match.hasNext();)
        names += match.next().captured(1);
    names.remove(QStringLiteral("for"));
    names.remove(QStringLiteral("if"));
    return names;
}

} // namespace test
