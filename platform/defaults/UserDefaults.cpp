// SPDX-License-Identifier: MIT
#include "platform/defaults/UserDefaults.h"

#include "platform/core/StandardDirectories.h"
#include "platform/defaults/PreferencesFile.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>
#include <mutex>

namespace platform {

namespace {

bool isReal(const QVariant& value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return isReal(value);
    }
}

double numberAtStart(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*([-+]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][-+]?\\d+)?)"));
    return number.match(text).captured(1).toDouble();
}

qint64 clampedInteger(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    return value < -limit ? std::numeric_limits<qint64>::min() : qint64(value);
}

qint64 integerAtStart(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("^\\s*([-+]?\\d+)"));
    const QString number = digits.match(text).captured(1);
    bool fits = false;
    const qint64 value = number.toLongLong(&fits);
    return fits ? value : clampedInteger(number.toDouble());
}

bool isTrueText(const QString& text)
{
    static const QRegularExpression truth(QStringLiteral("^\\s*[-+]?0*[YyTt1-9]"));
    return truth.match(text).hasMatch();
}

} // namespace

struct UserDefaults::State {
    State(const QString& domain, QString directoryPath)
        : directory(std::move(directoryPath))
        , own(pathOf(domain))
    {
    }

    [[nodiscard]] QString pathOf(const QString& domain) const
    {
        return QStringLiteral("%1/%2.plist").arg(directory, domain);
    }

    // Of a look-up: a new one, unless the files are held as they are.
    [[nodiscard]] quint64 occasionOfLookUp()
    {
        if (holds == 0)
            ++occasion;
        return occasion;
    }

    // Recursive, for a damaged file is reported while it is held, and who receives the report may
    // look up a setting.
    std::recursive_mutex mutex;
    QString directory;
    QVariantMap overrides;
    PreferencesFile own;
    std::vector<PreferencesFile> suites;
    QVariantMap registered;
    quint64 occasion = 0;
    int holds = 0;
};

UserDefaults& UserDefaults::standard()
{
    // Never destroyed: a thread that still works while the program ends may look a setting up.
    static UserDefaults& defaults = *new UserDefaults(QStringLiteral("com.brightmoor.Vupuge"),
                                                      StandardDirectories::preferences());
    return defaults;
}

UserDefaults::UserDefaults(const QString& domain, const QString& directory)
    : m_state(std::make_unique<State>(domain, directory))
{
}

UserDefaults::~UserDefaults() = default;

void UserDefaults::addSuiteNamed(const QString& name)
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return;
    const std::lock_guard lock(m_state->mutex);
    const QString path = m_state->pathOf(name);
    const auto isSame = [&path](const PreferencesFile& file) {
        return file.path() == path;
    };
    if (isSame(m_state->own) || std::any_of(m_state->suites.begin(), m_state->suites.end(), isSame))
        return;
    m_state->suites.emplace_back(path);
}

QVariant UserDefaults::objectForKey(const QString& key) const
{
    const std::lock_guard lock(m_state->mutex);
    if (m_state->overrides.contains(key))
        return m_state->overrides.value(key);
    const quint64 occasion = m_state->occasionOfLookUp();
    const QVariant own = m_state->own.values(occasion).value(key);
    if (own.isValid())
        return own;
    for (PreferencesFile& suite : m_state->suites) {
        const QVariant value = suite.values(occasion).value(key);
        if (value.isValid())
            return value;
    }
    return m_state->registered.value(key);
}

bool UserDefaults::boolForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.typeId() == QMetaType::QString)
        return isTrueText(value.toString());
    return isNumber(value) && value.toDouble() != 0;
}

qint64 UserDefaults::integerForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.typeId() == QMetaType::QString)
        return integerAtStart(value.toString());
    if (isReal(value) || value.typeId() == QMetaType::ULongLong)
        return clampedInteger(value.toDouble());
    return isNumber(value) ? value.toLongLong() : 0;
}

float UserDefaults::floatForKey(const QString& key) const
{
    return float(doubleForKey(key));
}

double UserDefaults::doubleForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.typeId() == QMetaType::QString)
        return numberAtStart(value.toString());
    return isNumber(value) ? value.toDouble() : 0;
}

std::optional<QString> UserDefaults::stringForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.typeId() == QMetaType::QString)
        return value.toString();
    if (value.typeId() == QMetaType::Bool)
        return QString::number(value.toBool() ? 1 : 0);
    if (value.typeId() == QMetaType::Float)
        return QString::fromLatin1(QByteArray::number(double(value.toFloat()), 'g', 7));
    if (isReal(value))
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    return isNumber(value) ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QByteArray> UserDefaults::dataForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray())
                                                   : std::nullopt;
}

bool UserDefaults::setObject(const QString& key, const QVariant& value, Error* error)
{
    const std::lock_guard lock(m_state->mutex);
    // Held or not, what others wrote meanwhile must not be lost.
    QVariantMap values = m_state->own.values(++m_state->occasion);
    if (value.isValid())
        values.insert(key, value);
    else if (values.remove(key) == 0)
        return true;
    return m_state->own.write(values, error);
}

bool UserDefaults::removeObject(const QString& key, Error* error)
{
    return setObject(key, {}, error);
}

void UserDefaults::setOverride(const QString& key, const QVariant& value)
{
    const std::lock_guard lock(m_state->mutex);
    if (value.isValid())
        m_state->overrides.insert(key, value);
    else
        m_state->overrides.remove(key);
}

void UserDefaults::clearOverrides()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->overrides.clear();
}

void UserDefaults::registerDefaults(const QVariantMap& values)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->registered.insert(values);
}

void UserDefaults::beginHold()
{
    const std::lock_guard lock(m_state->mutex);
    if (m_state->holds++ == 0)
        ++m_state->occasion;
}

void UserDefaults::endHold()
{
    const std::lock_guard lock(m_state->mutex);
    --m_state->holds;
}

void UserDefaults::synchronize()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->own.forget();
    for (PreferencesFile& suite : m_state->suites)
        suite.forget();
}

} // namespace platform
