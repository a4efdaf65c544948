// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

class QPushButton;

// Shows a colour, lets the person choose another in a colour panel, or none.
class ColorButton : public QWidget {
public:
    explicit ColorButton(QWidget* parent);

    // Invalid for none.
    void setColor(const QColor& color);
    // Hears the chosen colour, invalid for none.
    void setChosen(std::function<void(const QColor&)> handler) { m_chosen = std::move(handler); }

private:
    void showPanel();

    std::function<void(const QColor&)> m_chosen;
    QColor m_color;
    QPushButton* m_choose;
    QPushButton* m_reset;
};
