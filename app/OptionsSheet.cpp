// SPDX-License-Identifier: MIT
#include "app/OptionsSheet.h"

#include "app/OptionsPages.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using platform::localizedString;

OptionsSheet::OptionsSheet(QWidget& window, std::function<void()> close)
    : QDialog(&window, Qt::Sheet | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_close(std::move(close))
    , m_tabs(new QTabWidget(this))
{
    // The notes application's own choices show through where the person has made none here.
    platform::UserDefaults::standard().addSuiteNamed(platform::quillery::identifier);
    platform::UserDefaults::standard().addSuiteNamed(platform::quillery::storeIdentifier);
    setObjectName(QStringLiteral("optionsSheet"));
    setWindowTitle(localizedString("Options"));
    setWindowModality(Qt::WindowModal);
    addPage(new ImportOptionsPage, localizedString("&Import"));
    addPage(new NoteOptionsPage, localizedString("&Notes"));
    addPage(new WebOptionsPage, localizedString("&Web Pages"));
    addPage(new FileOptionsPage, localizedString("&ENEX Files"));

    auto* const restore = new QPushButton(localizedString("&Restore Defaults"), this);
    restore->setObjectName(QStringLiteral("restoreDefaults"));
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, [this] {
        for (OptionsPage* const page : m_pages)
            page->restoreDefaults();
    });
    auto* const done = new QPushButton(localizedString("&Close"), this);
    done->setObjectName(QStringLiteral("close"));
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, [this] { m_close(); });

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(restore);
    buttons->addStretch();
    buttons->addWidget(done);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(buttons);
}

void OptionsSheet::addPage(OptionsPage* page, const QString& title)
{
    m_pages.push_back(page);
    m_tabs->addTab(page, title);
}
