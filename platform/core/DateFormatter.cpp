// SPDX-License-Identifier: MIT
#include "platform/core/DateFormatter.h"

#include <QTimeZone>

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>

namespace platform {

namespace {

icu::UnicodeString toIcu(QStringView text)
{
    return {false, reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

QString fromIcu(const icu::UnicodeString& text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace

class DateFormatter::Format {
public:
    explicit Format(const QString& pattern)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_format = std::make_unique<icu::SimpleDateFormat>(toIcu(pattern), status);
        if (U_FAILURE(status)) {
            m_format.reset();
            return;
        }
        m_format->setLenient(false);
        if (pattern.endsWith(QLatin1Char('\''))) {
            const qsizetype opening = pattern.lastIndexOf(QLatin1Char('\''), -2);
            m_trailingLiteral = pattern.sliced(opening + 1).chopped(1);
        }
    }

    // ICU's formats keep their calendar's state, so a formatter serves one thread at a time.
    std::unique_ptr<icu::SimpleDateFormat> m_format;
    // ICU forgives a text that ends before the pattern's last literal, strict or not.
    QString m_trailingLiteral;
};

DateFormatter::DateFormatter(const QString& pattern)
    : m_format(std::make_unique<Format>(pattern))
{
}

DateFormatter::~DateFormatter() = default;
DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;

std::optional<QDateTime> DateFormatter::dateFromString(QStringView text) const
{
    if (!m_format->m_format || text.isEmpty() || !text.endsWith(m_format->m_trailingLiteral))
        return std::nullopt;
    const icu::UnicodeString source = toIcu(text);
    icu::ParsePosition position(0);
    const UDate date = m_format->m_format->parse(source, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != source.length())
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(date), Qt::UTC);
}

QString DateFormatter::stringFromDate(const QDateTime& date) const
{
    if (!m_format->m_format)
        return {};
    icu::UnicodeString result;
    m_format->m_format->format(static_cast<UDate>(date.toMSecsSinceEpoch()), result);
    return fromIcu(result);
}

QString standardDateDescription(const QDateTime& date)
{
    return date.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QStringLiteral(" +0000");
}

QString mediumDateShortTimeString(const QDateTime& date)
{
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort));
    if (!format)
        return standardDateDescription(date);
    icu::UnicodeString result;
    format->format(static_cast<UDate>(date.toMSecsSinceEpoch()), result);
    return fromIcu(result);
}

} // namespace platform
