// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include <functional>

// Chooses a font for text that is read on a Mac: one of those that every Mac has, or one that is
// installed here. Others can be typed.
class NoteFontField : public QComboBox {
public:
    explicit NoteFontField(QWidget* parent);

    // What the first entry, which stands for no choice, means.
    void setDefaultFamily(const QString& family);
    // Any name of a font; empty for none.
    void setFontName(const QString& name);
    // Hears the name of the chosen font, empty for none.
    void setChosen(std::function<void(const QString& fontName)> handler)
    {
        m_chosen = std::move(handler);
    }

private:
    void choose(int index);
    void chooseTyped();

    std::function<void(const QString&)> m_chosen;
    QString m_fontName;
};
