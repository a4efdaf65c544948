// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>
#include <QWidget>

#include <functional>
#include <vector>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

// One page of the options: controls that show settings and change them at once.
class OptionsPage : public QWidget {
public:
    // Shows what the settings are now.
    void reload();
    // Removes the person's own choices, so that the notes application's or the built-in ones hold
    // again.
    void restoreDefaults();
    [[nodiscard]] const QStringList& keys() const { return m_keys; }

protected:
    OptionsPage();

    // A boolean setting; byDefault is what holds when nobody has set it.
    void addSwitch(const char* key, const QString& title, const QString& explanation,
                   bool byDefault = false);
    // A text; an empty one removes the setting. beside: a button at its side, or null.
    QLineEdit* addText(const char* key, const QString& label, const QString& placeholder,
                       const QString& explanation = {}, QWidget* beside = nullptr);
    // A number; 0 removes the setting and reads as zeroText. The number in the settings is the one
    // shown, divided by divisor.
    void addNumber(const char* key, const QString& label, int maximum, const QString& suffix,
                   const QString& zeroText, double divisor = 1);
    // box: the check box that it explains; null for another field.
    void addExplanation(const QString& text, const QWidget* box = nullptr);
    void addRow(const QString& label, QWidget* field);

    // An invalid value removes the setting. A setting that cannot be kept is shown as it is, after
    // an alert.
    void changeSetting(const QString& key, const QVariant& value);
    // Whenever a setting has changed or is to be shown.
    void onReload(const QString& key, std::function<void()> show);

private:
    QFormLayout* m_form;
    QStringList m_keys;
    std::vector<std::function<void()>> m_show;
};
