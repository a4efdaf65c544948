// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace platform {

// The user's settings. Every operation may be called from any thread.
//
// A look-up asks the file system whether a file has changed (time, size and identity) and reads it
// again if so; while there is a UserDefaultsHold, only the first one does. A file that cannot be
// read as a dictionary counts as empty and costs a line in the system's log, once for each state of
// the file.
class UserDefaults {
public:
    // The program's own settings: com.brightmoor.Vupuge.plist in
    // StandardDirectories::preferences().
    [[nodiscard]] static UserDefaults& standard();

    // domain: the file's name without .plist.
    UserDefaults(const QString& domain, const QString& directory);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    // Searches the settings of another program, too, behind all that were added before. A name that
    // is there already, or that holds a path separator, is left out.
    void addSuiteNamed(const QString& name);

    // Invalid when there is no value.
    [[nodiscard]] QVariant objectForKey(const QString& key) const;

    // Numbers other than 0; texts that begin, behind blanks, a sign and zeros, with Y, T or a digit
    // from 1 to 9, in either case. False for all else.
    [[nodiscard]] bool boolForKey(const QString& key) const;
    // Numbers, and the number that a text begins with; 0 for all else. Fractions are cut off, what
    // is out of range is clamped.
    [[nodiscard]] qint64 integerForKey(const QString& key) const;
    [[nodiscard]] float floatForKey(const QString& key) const;
    [[nodiscard]] double doubleForKey(const QString& key) const;
    // Texts, and numbers as text; a boolean is 1 or 0.
    [[nodiscard]] std::optional<QString> stringForKey(const QString& key) const;
    [[nodiscard]] std::optional<QByteArray> dataForKey(const QString& key) const;

    // Changes the own domain and writes it whole; an invalid value removes the key. A damaged file
    // is kept beside, as <name>.plist.damaged. Fails for values that property lists do not have.
    [[nodiscard]] bool setObject(const QString& key, const QVariant& value, Error* error = nullptr);
    [[nodiscard]] bool removeObject(const QString& key, Error* error = nullptr);

    // A value for this run, before all others and never written; an invalid one removes the
    // override.
    void setOverride(const QString& key, const QVariant& value);
    void clearOverrides();

    // Values for keys that nobody sets, behind all others; those registered before stay unless
    // replaced.
    void registerDefaults(const QVariantMap& values);

    // Forgets what was read, so that the next look-up reads every file again.
    void synchronize();

private:
    friend class UserDefaultsHold;
    void beginHold();
    void endHold();

    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform
