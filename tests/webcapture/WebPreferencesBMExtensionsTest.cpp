// SPDX-License-Identifier: MIT
#include "webcapture/WebPreferencesBMExtensions.h"
#include "platform/defaults/UserDefaults.h"

namespace {

class WebPreferencesBMExtensionsTest : public ::testing::Test {
protected:
    void TearDown() override { platform::UserDefaults::standard().clearOverrides(); }

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }
    static void set(const char* key, const QVariant& value)
    {
        platform::UserDefaults::standard().setOverride(text(key), value);
    }
    static platform::WebPreferences preferences()
    {
        return webPreferencesWithIdentifier(text("EvernoteDownload"));
    }
};

TEST_F(WebPreferencesBMExtensionsTest, WithoutSettingsThePlatformsDefaultsStay)
{
    const platform::WebPreferences defaults;
    const platform::WebPreferences found = preferences();
    EXPECT_EQ(found.identifier(), text("EvernoteDownload"));
    EXPECT_EQ(found.defaultFontSize(), defaults.defaultFontSize());
    EXPECT_EQ(found.defaultFixedFontSize(), defaults.defaultFixedFontSize());
    EXPECT_EQ(found.fixedFontFamily(), defaults.fixedFontFamily());
    EXPECT_EQ(found.standardFontFamily(), defaults.standardFontFamily());
    EXPECT_EQ(found.isJavaEnabled(), defaults.isJavaEnabled());
    EXPECT_EQ(found.isJavaScriptEnabled(), defaults.isJavaScriptEnabled());
    EXPECT_EQ(found.arePlugInsEnabled(), defaults.arePlugInsEnabled());
}

TEST_F(WebPreferencesBMExtensionsTest, EachSettingOfTheIdentifierIsTaken)
{
    set("EvernoteDownloadWebKitDefaultFixedFontSize", 11);
    set("EvernoteDownloadWebKitDefaultFontSize", text("17"));
    set("EvernoteDownloadWebKitFixedFont", text("Menlo"));
    set("EvernoteDownloadWebKitJavaEnabled", false);
    set("EvernoteDownloadWebKitJavaScriptEnabled", text("NO"));
    set("EvernoteDownloadWebKitPluginsEnabled", 0);
    set("EvernoteDownloadWebKitStandardFont", text("Georgia"));
    const platform::WebPreferences found = preferences();
    EXPECT_EQ(found.defaultFixedFontSize(), 11);
    EXPECT_EQ(found.defaultFontSize(), 17);
    EXPECT_EQ(found.fixedFontFamily(), text("Menlo"));
    EXPECT_FALSE(found.isJavaEnabled());
    EXPECT_FALSE(found.isJavaScriptEnabled());
    EXPECT_FALSE(found.arePlugInsEnabled());
    EXPECT_EQ(found.standardFontFamily(), text("Georgia"));
}

TEST_F(WebPreferencesBMExtensionsTest, SettingsOfAnotherIdentifierAreNot)
{
    set("OtherWebKitDefaultFontSize", 40);
    set("WebKitDefaultFontSize", 41);
    EXPECT_EQ(preferences().defaultFontSize(), platform::WebPreferences().defaultFontSize());
}

} // namespace
