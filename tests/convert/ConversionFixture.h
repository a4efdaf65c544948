// SPDX-License-Identifier: MIT
#pragma once

#include "convert/EvernoteXMLItem.h"
#include "platform/core/SystemLog.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/xml/XMLDocument.h"

#include "support/ScratchFolder.h"

// A note in an import folder of its own, to be filled and converted.
class ConversionTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    // Begins a new note in the import folder.
    EvernoteXMLItem& newItem(const char* title = "Title");
    void setBody(const QByteArray& enml) { m_item->setContentData(enml); }
    // Adds a resource and returns its MD5 hash.
    QByteArray addResource(const QByteArray& bytes, const char* mime, const char* filename = "");
    static QByteArray media(const QByteArray& hash, const QByteArray& attributes = {});

    platform::manifest::Record convert() { return m_item->itemDictInGroup(m_group, &m_error); }

    // The body's root element, as the driver finds it.
    [[nodiscard]] static platform::XMLElement elementFromBody(const QByteArray& enml);

    test::ScratchFolder m_folder;
    platform::manifest::Record m_group = platform::manifest::makeRecord();
    std::unique_ptr<EvernoteXMLItem> m_item;
    platform::Error m_error;
    QStringList m_systemLog;

private:
    platform::SystemLogObserver m_observer{[this](const QString& message) { m_systemLog += message; }};
};
