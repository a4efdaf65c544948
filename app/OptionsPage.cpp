// SPDX-License-Identifier: MIT
#include "app/OptionsPage.h"

#include "app/Alert.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/defaults/UserDefaults.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>

#include <cmath>

using platform::UserDefaults;

namespace {

// In characters of the interface's font.
constexpr int explanationWidth = 62;
constexpr double explanationSize = 0.9; // of the interface's

QLabel* newExplanation(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * explanationSize);
    label->setFont(font);
    label->setMinimumWidth(parent->fontMetrics().averageCharWidth() * explanationWidth);
    return label;
}

} // namespace

OptionsPage::OptionsPage()
    : m_form(new QFormLayout(this))
{
    const int margin = fontMetrics().height();
    m_form->setContentsMargins(margin, margin, margin, margin);
    m_form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
}

void OptionsPage::reload()
{
    for (const auto& show : m_show)
        show();
}

void OptionsPage::restoreDefaults()
{
    for (const QString& key : std::as_const(m_keys))
        changeSetting(key, {});
}

void OptionsPage::onReload(const QString& key, std::function<void()> show)
{
    if (!m_keys.contains(key))
        m_keys += key;
    show();
    m_show.push_back(std::move(show));
}

void OptionsPage::changeSetting(const QString& key, const QVariant& value)
{
    platform::Error error;
    if (!UserDefaults::standard().setObject(key, value, &error))
        beginAlertSheet({platform::localizedString("The setting could not be saved."),
                         error.localizedDescription(),
                         {}},
                        *window());
    reload();
}

void OptionsPage::addSwitch(const char* key, const QString& title, const QString& explanation,
                            bool byDefault)
{
    const QString name = QLatin1String(key);
    auto* const box = new QCheckBox(title, this);
    box->setObjectName(name);
    box->setAccessibleDescription(explanation);
    m_form->addRow(box);
    if (!explanation.isEmpty())
        addExplanation(explanation, box);
    onReload(name, [box, name, byDefault] {
        const UserDefaults& defaults = UserDefaults::standard();
        box->setChecked(defaults.objectForKey(name).isValid() ? defaults.boolForKey(name)
                                                              : byDefault);
    });
    connect(box, &QCheckBox::clicked, this,
            [this, name](bool checked) { changeSetting(name, checked); });
}

QLineEdit* OptionsPage::addText(const char* key, const QString& label, const QString& placeholder,
                                const QString& explanation, QWidget* beside)
{
    const QString name = QLatin1String(key);
    auto* const field = new QLineEdit(this);
    field->setObjectName(name);
    field->setPlaceholderText(placeholder);
    field->setAccessibleDescription(explanation);
    if (beside) {
        auto* const row = new QHBoxLayout;
        row->addWidget(field, 1);
        row->addWidget(beside);
        m_form->addRow(label, row);
        static_cast<QLabel*>(m_form->labelForField(row))->setBuddy(field);
    } else {
        m_form->addRow(label, field);
    }
    if (!explanation.isEmpty())
        addExplanation(explanation);
    onReload(name, [field, name] {
        field->setText(UserDefaults::standard().stringForKey(name).value_or(QString()));
    });
    connect(field, &QLineEdit::editingFinished, this, [this, field, name] {
        if (field->isModified())
            changeSetting(name, field->text().isEmpty() ? QVariant() : QVariant(field->text()));
        field->setModified(false);
    });
    return field;
}

void OptionsPage::addNumber(const char* key, const QString& label, int maximum,
                            const QString& suffix, const QString& zeroText, double divisor)
{
    const QString name = QLatin1String(key);
    auto* const field = new QSpinBox(this);
    field->setObjectName(name);
    field->setRange(0, maximum);
    field->setSuffix(suffix);
    field->setSpecialValueText(zeroText);
    field->setKeyboardTracking(false);
    m_form->addRow(label, field);
    onReload(name, [field, name, divisor] {
        const QSignalBlocker quiet(field);
        field->setValue(
            static_cast<int>(std::lround(UserDefaults::standard().doubleForKey(name) * divisor)));
    });
    connect(field, &QSpinBox::valueChanged, this, [this, name, divisor](int value) {
        changeSetting(name, value == 0     ? QVariant()
                            : divisor == 1 ? QVariant(value)
                                           : QVariant(value / divisor));
    });
}

void OptionsPage::addExplanation(const QString& text, const QWidget* box)
{
    QLabel* const label = newExplanation(text, this);
    if (box) {
        // Under the box's title.
        const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                           style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
        label->setContentsMargins(indent, 0, 0, 0);
        if (box->isRightToLeft())
            label->setContentsMargins(0, 0, indent, 0);
        m_form->addRow(label);
        return;
    }
    // Beside labels that are long in some languages, it may be as narrow as its field.
    label->setMinimumWidth(0);
    m_form->addRow(QString(), label);
}

void OptionsPage::addRow(const QString& label, QWidget* field)
{
    m_form->addRow(label, field);
}
