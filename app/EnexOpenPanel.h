// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteXMLFileExportOperation.h"

#include <QFileDialog>
#include <QPointer>

class QCheckBox;

// The panel in which a person picks an ENEX file, with the choice how a file of today's Evernote is
// read. The choice is preset for each file that is looked at, by the file's header.
//
// The system's own panel has no place for the choice, so it is not used.
class EnexOpenPanel : public QFileDialog {
public:
    using ModernFiles = EvernoteXMLFileExportOperation::ModernFiles;

    explicit EnexOpenPanel(QWidget* parent);

    // How a file that was picked is to be read.
    [[nodiscard]] ModernFiles modernFiles(const QUrl& picked);

private:
    void presetFor(const QString& path);

    QCheckBox* m_readWhole;
    // The file that the choice was last preset for.
    QString m_presetPath;
    // The person has made it since.
    bool m_isChosen = false;
};
