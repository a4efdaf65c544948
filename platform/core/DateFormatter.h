// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <memory>
#include <optional>

namespace platform {

// Dates by a Unicode date pattern, in the user's locale and the system's time zone, strictly: a text
// that does not fit the pattern whole has no date.
class DateFormatter {
public:
    // pattern: Unicode TR 35 date pattern, such as yyyyMMdd'T'HHmmss.
    explicit DateFormatter(const QString& pattern);
    ~DateFormatter();
    DateFormatter(DateFormatter&&) noexcept;
    DateFormatter& operator=(DateFormatter&&) noexcept;

    [[nodiscard]] std::optional<QDateTime> dateFromString(QStringView text) const;
    [[nodiscard]] QString stringFromDate(const QDateTime& date) const;

private:
    class Format;
    std::unique_ptr<Format> m_format;
};

// The standard description of a date: 2018-03-09 00:00:00 +0000, always in UTC.
[[nodiscard]] QString standardDateDescription(const QDateTime& date);

// Medium date with short time in the user's locale: "Apr 12, 2013, 9:30 AM".
[[nodiscard]] QString mediumDateShortTimeString(const QDateTime& date);

} // namespace platform
