// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QVariant>
#include <QXmlStreamWriter>

#include <optional>
#include <vector>

namespace platform {

// Writes the XML form, one element a line, indented by tabs.
class XmlPropertyListWriter {
public:
    XmlPropertyListWriter();

    [[nodiscard]] std::optional<QByteArray> write(const QVariant& root, Error* error);

private:
    // A list or dictionary whose elements are being written.
    struct Frame {
        QVariantList elements;
        // The dictionary's keys, in the order of the elements.
        QStringList keys;
        qsizetype next = 0;
    };

    bool writeValue(const QVariant& value);
    bool writeScalar(const QVariant& value);
    bool writeDate(const QDateTime& date);
    void writeUid(quint32 uid);
    bool openContainer(const QVariant& container);
    bool writeElements();
    void writeText(const QString& element, const QString& text);
    bool fail(const char* reason);

    QByteArray m_bytes;
    QXmlStreamWriter m_writer;
    std::vector<Frame> m_open;
    Error m_error;
};

} // namespace platform
