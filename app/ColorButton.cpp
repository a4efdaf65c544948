// SPDX-License-Identifier: MIT
#include "app/ColorButton.h"

#include "platform/core/LocalizedStrings.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

using platform::localizedString;

ColorButton::ColorButton(QWidget* parent)
    : QWidget(parent)
    , m_choose(new QPushButton(this))
    , m_reset(new QPushButton(localizedString("Use Default"), this))
{
    m_choose->setObjectName(QStringLiteral("chooseColor"));
    m_choose->setAutoDefault(false);
    m_reset->setObjectName(QStringLiteral("resetColor"));
    m_reset->setAutoDefault(false);
    setFocusProxy(m_choose);
    connect(m_choose, &QPushButton::clicked, this, [this] { showPanel(); });
    connect(m_reset, &QPushButton::clicked, this, [this] { m_chosen({}); });
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_choose);
    layout->addWidget(m_reset);
    layout->addStretch();
}

void ColorButton::setColor(const QColor& color)
{
    m_color = color;
    m_reset->setEnabled(color.isValid());
    m_choose->setAccessibleName(accessibleName());
    m_choose->setText(color.isValid() ? color.name().toUpper() : localizedString("Default"));
    const int size = m_choose->iconSize().height();
    const qreal ratio = devicePixelRatioF();
    QPixmap swatch(QSize(size, size) * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(Qt::transparent);
    if (color.isValid()) {
        QPainter painter(&swatch);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setBrush(color);
        painter.drawRect(0, 0, size - 1, size - 1);
    }
    m_choose->setIcon(color.isValid() ? QIcon(swatch) : QIcon());
}

void ColorButton::showPanel()
{
    auto* const panel = new QColorDialog(m_color.isValid() ? m_color : QColor(Qt::white), window());
    panel->setObjectName(QStringLiteral("colorPanel"));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    connect(panel, &QColorDialog::colorSelected, this,
            [this](const QColor& color) { m_chosen(color); });
    panel->open();
}
