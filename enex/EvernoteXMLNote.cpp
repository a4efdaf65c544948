// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLNote.h"

#include "platform/core/Uuid.h"

EvernoteXMLNote::EvernoteXMLNote(const QUrl& directoryURL)
    : m_directoryURL(directoryURL)
    , m_identifier(platform::newUuidString())
{
}

EvernoteXMLNote::~EvernoteXMLNote() = default;
