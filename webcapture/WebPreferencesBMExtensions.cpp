// SPDX-License-Identifier: MIT
#include "webcapture/WebPreferencesBMExtensions.h"

#include "platform/defaults/UserDefaults.h"

#include <algorithm>
#include <limits>

namespace {

int sizeFrom(qint64 value)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qint64>(value, Limits::min(), Limits::max()));
}

} // namespace

platform::WebPreferences webPreferencesWithIdentifier(const QString& identifier)
{
    const platform::UserDefaults& defaults = platform::UserDefaults::standard();
    platform::WebPreferences preferences(identifier);
    const auto key = [&identifier](QLatin1String setting) {
        return identifier + QLatin1String("WebKit") + setting;
    };
    const auto isSet = [&](QLatin1String setting) {
        return defaults.objectForKey(key(setting)).isValid();
    };
    const QLatin1String fixedFontSize("DefaultFixedFontSize");
    const QLatin1String fontSize("DefaultFontSize");
    const QLatin1String fixedFont("FixedFont");
    const QLatin1String java("JavaEnabled");
    const QLatin1String javaScript("JavaScriptEnabled");
    const QLatin1String plugIns("PluginsEnabled");
    const QLatin1String standardFont("StandardFont");
    if (isSet(fixedFontSize))
        preferences.setDefaultFixedFontSize(sizeFrom(defaults.integerForKey(key(fixedFontSize))));
    if (isSet(fontSize))
        preferences.setDefaultFontSize(sizeFrom(defaults.integerForKey(key(fontSize))));
    if (isSet(fixedFont))
        preferences.setFixedFontFamily(defaults.objectForKey(key(fixedFont)).toString());
    if (isSet(java))
        preferences.setJavaEnabled(defaults.boolForKey(key(java)));
    if (isSet(javaScript))
        preferences.setJavaScriptEnabled(defaults.boolForKey(key(javaScript)));
    if (isSet(plugIns))
        preferences.setPlugInsEnabled(defaults.boolForKey(key(plugIns)));
    if (isSet(standardFont))
        preferences.setStandardFontFamily(defaults.objectForKey(key(standardFont)).toString());
    return preferences;
}
