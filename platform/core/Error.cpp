// SPDX-License-Identifier: MIT
#include "platform/core/Error.h"

#include "platform/core/LocalizedStrings.h"

namespace platform {

Error::Error(QString domain, qint64 code, QString localizedDescription)
    : m_domain(std::move(domain))
    , m_code(code)
    , m_localizedDescription(std::move(localizedDescription))
{
}

QString Error::localizedDescription() const
{
    if (!m_localizedDescription.isEmpty())
        return m_localizedDescription;
    return localizedString("The operation could not be completed. (%1 error %2.)")
        .arg(m_domain, QString::number(m_code));
}

Error Error::withUnderlyingError(Error underlying) const
{
    Error result = *this;
    result.m_underlying = std::make_shared<const Error>(std::move(underlying));
    return result;
}

namespace {

// A log's line is cut by a byte for every byte that its characters take beyond one, so the quotation marks of
// texts for people become plain ones.
QString withPlainQuotes(QString text)
{
    for (QChar& character : text) {
        if (character == QChar(0x201C) || character == QChar(0x201D))
            character = QLatin1Char('"');
        else if (character == QChar(0x2018) || character == QChar(0x2019))
            character = QLatin1Char('\'');
    }
    return text;
}

} // namespace

QString Error::description() const
{
    QString text = QStringLiteral("Error Domain=%1 Code=%2 \"%3\"")
                       .arg(m_domain, QString::number(m_code), withPlainQuotes(localizedDescription()));
    if (m_underlying)
        text += QStringLiteral(" {%1}").arg(m_underlying->description());
    return text;
}

void setError(Error* target, const Error& error)
{
    if (target)
        *target = error;
}

} // namespace platform
