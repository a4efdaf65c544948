// SPDX-License-Identifier: MIT
#include "app/NoteFontField.h"

#include "platform/attributedtext/Font.h"
#include "platform/core/LocalizedStrings.h"

#include <QFontDatabase>
#include <QLineEdit>

#include <array>

namespace {

constexpr std::array macFamilies = {
    "American Typewriter", "Arial",        "Avenir Next", "Baskerville",
    "Courier New",         "Georgia",      "Gill Sans",   "Helvetica",
    "Helvetica Neue",      "Menlo",        "Optima",      "Palatino",
    "Times New Roman",     "Trebuchet MS", "Verdana"};

} // namespace

NoteFontField::NoteFontField(QWidget* parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    addItem(QString());
    setDefaultFamily(QStringLiteral("Helvetica"));
    for (const char* const family : macFamilies) {
        if (platform::Font::fontNamed(QLatin1String(family), 0))
            addItem(QLatin1String(family));
    }
    insertSeparator(count());
    addItems(QFontDatabase::families());
    connect(this, &QComboBox::activated, this, [this](int index) { choose(index); });
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { chooseTyped(); });
}

void NoteFontField::setDefaultFamily(const QString& family)
{
    setItemText(0, platform::localizedString("Default (%1)").arg(family));
}

void NoteFontField::setFontName(const QString& name)
{
    m_fontName = name;
    if (name.isEmpty()) {
        setCurrentIndex(0);
        return;
    }
    const auto font = platform::Font::fontNamed(name, 0);
    const QString family = font ? font->family : name;
    const int index = findText(family, Qt::MatchFixedString);
    setCurrentIndex(index);
    if (index < 0)
        setEditText(family);
}

void NoteFontField::choose(int index)
{
    const auto font = index == 0 ? std::nullopt : platform::Font::fontNamed(itemText(index), 0);
    const QString name = font ? font->fontName() : QString();
    if (name != m_fontName && m_chosen)
        m_chosen(name);
}

void NoteFontField::chooseTyped()
{
    const int index = findText(currentText(), Qt::MatchFixedString);
    if (index >= 0) {
        choose(index);
        return;
    }
    const auto font = platform::Font::fontNamed(currentText(), 0);
    // A name that no font has is taken back.
    if (!font)
        setFontName(m_fontName);
    else if (font->fontName() != m_fontName && m_chosen)
        m_chosen(font->fontName());
}
