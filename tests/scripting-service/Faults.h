// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace test {

// What a service does wrong, and when: a method's name, "GetAll" for the version among them, and
// the number of the call from 1, as in "Notes@2"; without a number the first.
class Faults {
public:
    enum class Kind {
        DieAt,       // killed when the call arrives
        DieAfter,    // killed when it is answered
        Hang,        // never answers; prints the method's name when the call arrives
        Refuse,      // VALUE is the name of the error
        Answer,      // VALUE names the nonsense, see nonsense()
        ReleaseName, // gives its name up, then answers
    };
    struct Fault {
        Kind kind = Kind::Hang;
        QString value;
    };

    // "METHOD[@NUMBER]" or "METHOD[@NUMBER]=VALUE".
    void add(Kind kind, const QString& when);
    // Counts a call.
    [[nodiscard]] std::optional<Fault> faultOfNextCall(const QString& method);

private:
    QHash<QString, Fault> m_faults; // by "METHOD@NUMBER"
    QHash<QString, int> m_calls;
};

// The values of an answer that makes no sense, such as "no-values", "a-number", "a-dictionary",
// "no-version", "a-number-as-version", "two-of-one-notebook", "too-many-notes", "two-of-one-note",
// "two-dates".
[[nodiscard]] QVariantList nonsense(const QString& name);

} // namespace test
