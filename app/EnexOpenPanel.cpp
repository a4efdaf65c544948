// SPDX-License-Identifier: MIT
#include "app/EnexOpenPanel.h"

#include "enex/EnexCensus.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/defaults/UserDefaults.h"

#include <QCheckBox>
#include <QGridLayout>

using platform::localizedString;

namespace {

bool isSet()
{
    return platform::UserDefaults::standard().boolForKey(QStringLiteral("ModernENEX"));
}

} // namespace

EnexOpenPanel::EnexOpenPanel(QWidget* parent)
    : QFileDialog(parent, localizedString("Import ENEX File"))
    , m_readWhole(new QCheckBox(localizedString("&Read files of today's Evernote whole"), this))
{
    setObjectName(QStringLiteral("openPanel"));
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setNameFilter(localizedString("Evernote export files (%1)").arg(QStringLiteral("*.enex")));
    setWindowModality(Qt::WindowModal);

    m_readWhole->setObjectName(QStringLiteral("readWhole"));
    m_readWhole->setToolTip(localizedString(
        "Keeps dates, tags and tasks of files that Evernote 10 or later has written."));
    m_readWhole->setAccessibleDescription(m_readWhole->toolTip());
    m_readWhole->setChecked(isSet());
    if (auto* const grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(m_readWhole, grid->rowCount(), 0, 1, grid->columnCount());
    connect(this, &QFileDialog::currentChanged, this,
            [this](const QString& path) { presetFor(path); });
    connect(m_readWhole, &QCheckBox::clicked, this, [this] { m_isChosen = true; });
}

void EnexOpenPanel::presetFor(const QString& path)
{
    if (path == m_presetPath || !QFileInfo(path).isFile())
        return;
    m_presetPath = path;
    m_isChosen = false;
    m_readWhole->setChecked(isSet() || EnexCensus::hasModernHeader(path));
}

EnexOpenPanel::ModernFiles EnexOpenPanel::modernFiles(const QUrl& picked)
{
    // A name that was typed has not been looked at yet.
    if (!m_isChosen)
        presetFor(picked.toLocalFile());
    return m_readWhole->isChecked() ? ModernFiles::ReadWhole : ModernFiles::ReadAsItStands;
}
