// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Url.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

// The table in docs/shared-operations.md: operations with an example each, and what it gave just now.
namespace test {

[[nodiscard]] QString shown(bool value);
[[nodiscard]] QString shown(const QString& value);
[[nodiscard]] QString shown(const QUrl& value);
[[nodiscard]] QString shown(const platform::Url& value);
[[nodiscard]] QString shown(const QVariant& value);
[[nodiscard]] QString shown(const QByteArray& value);
[[nodiscard]] QString shown(const QStringList& value);
[[nodiscard]] QString shown(const QSet<QString>& value);

template <class Number>
    requires std::is_arithmetic_v<Number>
[[nodiscard]] QString shown(Number value)
{
    return QString::number(value);
}

template <class Value>
[[nodiscard]] QString shown(const std::optional<Value>& value)
{
    return value ? shown(*value) : QStringLiteral("none");
}

class SharedOperationsTable {
public:
    void addHeader(const QString& header) { m_headers.push_back({header, {}}); }
    void addExample(const QString& operation, const QString& code, const QString& result)
    {
        m_headers.back().examples.push_back({operation, code, result});
    }

    [[nodiscard]] QString markdown(const QString& introduction) const;
    // Those of one header.
    [[nodiscard]] QSet<QString> operations(const QString& header) const;
    [[nodiscard]] QStringList headers() const;
    // Those whose example does not even name them.
    [[nodiscard]] QStringList operationsWithoutExample() const;

private:
    struct Example {
        QString operation;
        QString code;
        QString result;
    };
    struct Header {
        QString name;
        std::vector<Example> examples;
    };
    std::vector<Header> m_headers;
};

// The names of the functions that a header declares for its users.
[[nodiscard]] QSet<QString> declaredOperations(const QByteArray& header);

} // namespace test
