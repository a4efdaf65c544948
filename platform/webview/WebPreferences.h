// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

enum class WebCacheModel { DocumentViewer = 0, DocumentBrowser = 1, PrimaryWebBrowser = 2 };

// A web view's settings, with the platform's defaults. Whatever they say, no script runs, no plug-in is
// started and nothing is kept between pages; fonts and backgrounds do not change what is loaded.
class WebPreferences {
public:
    explicit WebPreferences(QString identifier = {})
        : m_identifier(std::move(identifier))
    {
    }

    [[nodiscard]] const QString& identifier() const { return m_identifier; }

    [[nodiscard]] const QString& standardFontFamily() const { return m_standardFontFamily; }
    void setStandardFontFamily(const QString& family) { m_standardFontFamily = family; }
    [[nodiscard]] const QString& fixedFontFamily() const { return m_fixedFontFamily; }
    void setFixedFontFamily(const QString& family) { m_fixedFontFamily = family; }
    // In points.
    [[nodiscard]] int defaultFontSize() const { return m_defaultFontSize; }
    void setDefaultFontSize(int size) { m_defaultFontSize = size; }
    [[nodiscard]] int defaultFixedFontSize() const { return m_defaultFixedFontSize; }
    void setDefaultFixedFontSize(int size) { m_defaultFixedFontSize = size; }

    [[nodiscard]] bool isJavaEnabled() const { return m_javaEnabled; }
    void setJavaEnabled(bool enabled) { m_javaEnabled = enabled; }
    [[nodiscard]] bool isJavaScriptEnabled() const { return m_javaScriptEnabled; }
    void setJavaScriptEnabled(bool enabled) { m_javaScriptEnabled = enabled; }
    [[nodiscard]] bool arePlugInsEnabled() const { return m_plugInsEnabled; }
    void setPlugInsEnabled(bool enabled) { m_plugInsEnabled = enabled; }

    [[nodiscard]] bool shouldPrintBackgrounds() const { return m_shouldPrintBackgrounds; }
    void setShouldPrintBackgrounds(bool print) { m_shouldPrintBackgrounds = print; }
    [[nodiscard]] WebCacheModel cacheModel() const { return m_cacheModel; }
    void setCacheModel(WebCacheModel model) { m_cacheModel = model; }

private:
    QString m_identifier;
    QString m_standardFontFamily = QStringLiteral("Times");
    QString m_fixedFontFamily = QStringLiteral("Courier");
    int m_defaultFontSize = 16;
    int m_defaultFixedFontSize = 13;
    bool m_javaEnabled = true;
    bool m_javaScriptEnabled = true;
    bool m_plugInsEnabled = true;
    bool m_shouldPrintBackgrounds = false;
    WebCacheModel m_cacheModel = WebCacheModel::DocumentBrowser;
};

} // namespace platform
