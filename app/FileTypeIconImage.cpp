// SPDX-License-Identifier: MIT
#include "app/FileTypeIconImage.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyle>

#include <algorithm>

QImage imageForFileTypeIcon(const platform::FileTypeIcon& icon, double devicePixelRatio)
{
    const auto name = std::find_if(icon.names.begin(), icon.names.end(),
                                   [](const QString& each) { return QIcon::hasThemeIcon(each); });
    const QIcon found = name != icon.names.end()
                            ? QIcon::fromTheme(*name)
                            : QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    const QSize size = (QSizeF(icon.width, icon.height) * devicePixelRatio).toSize();
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    // Icons are not drawn larger than their largest picture.
    const QPixmap picture = found.pixmap(size, 1.0);
    QRect place(QPoint(), picture.size().scaled(size, Qt::KeepAspectRatio));
    place.moveCenter(image.rect().center());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture);
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}
