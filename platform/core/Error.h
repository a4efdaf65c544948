// SPDX-License-Identifier: MIT
#pragma once


#include <QString>

#include <memory>

namespace platform {

// What went wrong, as a value: a domain, a code within it, and a text for the user.
//
// Operations that can fail take `Error* error = nullptr` as their last parameter. Their return value
// alone says that they failed; on failure a given error is filled, on success it is left alone.
class Error {
public:
    Error() = default;
    Error(QString domain, qint64 code, QString localizedDescription = {});

    [[nodiscard]] const QString& domain() const { return m_domain; }
    [[nodiscard]] qint64 code() const { return m_code; }

    // The text for the user; one is made from the domain and the code when none was given.
    [[nodiscard]] QString localizedDescription() const;
    [[nodiscard]] bool hasLocalizedDescription() const { return !m_localizedDescription.isEmpty(); }

    // The error that caused this one, if any.
    [[nodiscard]] const Error* underlyingError() const { return m_underlying.get(); }
    [[nodiscard]] Error withUnderlyingError(Error underlying) const;

    // True for a default-constructed error, which says nothing.
    [[nodiscard]] bool isNull() const { return m_domain.isEmpty() && m_code == 0; }

    // The form for logs: Error Domain=D Code=N "text", with plain quotation marks in the text.
    [[nodiscard]] QString description() const;

    friend bool operator==(const Error& left, const Error& right)
    {
        return left.m_domain == right.m_domain && left.m_code == right.m_code
               && left.localizedDescription() == right.localizedDescription();
    }

private:
    QString m_domain;
    qint64 m_code = 0;
    QString m_localizedDescription;
    std::shared_ptr<const Error> m_underlying;
};

// Fills an out-parameter that may be absent.
void setError(Error* target, const Error& error);

} // namespace platform


