// SPDX-License-Identifier: MIT
#include "app/Alert.h"

#include "platform/core/LocalizedStrings.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

void fill(QMessageBox& box, const Alert& alert)
{
    box.setObjectName(QStringLiteral("alert"));
    box.setWindowTitle(platform::localizedString("Vupuge"));
    box.setIcon(QMessageBox::Warning);
    // The texts come from files and programs that may hold anything; none of it is markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(alert.messageText);
    box.setInformativeText(alert.informativeText);
    if (auto* const message = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        QFont bold = message->font();
        bold.setBold(true);
        message->setFont(bold);
    }
    const QString title =
        alert.buttonTitle.isEmpty() ? platform::localizedString("OK") : alert.buttonTitle;
    QPushButton* const button = box.addButton(title, QMessageBox::AcceptRole);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
}

} // namespace

void runModalAlert(const Alert& alert, QWidget* parent)
{
    QMessageBox box(parent);
    fill(box, alert);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}

void beginAlertSheet(const Alert& alert, QWidget& window)
{
    auto* const box = new QMessageBox(&window);
    fill(*box, alert);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::Sheet);
    box->setWindowModality(Qt::WindowModal);
    box->open();
}
