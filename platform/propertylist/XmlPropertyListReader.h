// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QVariant>
#include <QXmlStreamReader>

#include <optional>
#include <vector>

namespace platform {

// Reads the XML form. A document that declares entities of its own is refused: no writer of
// property lists needs them, and they can unfold without end.
class XmlPropertyListReader {
public:
    // The bytes must outlive the reader.
    explicit XmlPropertyListReader(const QByteArray& data);

    [[nodiscard]] std::optional<QVariant> read(Error* error);

private:
    // A list or dictionary that is still open.
    struct Frame {
        bool isDictionary = false;
        QVariantList list;
        QVariantMap dictionary;
        QString key;
        bool hasKey = false;
    };

    bool readRoot();
    bool startElement();
    bool endElement();
    bool openContainer(bool isDictionary);
    bool readKey();
    bool addValue(const QVariant& value);
    std::optional<QVariant> readScalar(const QString& element);
    bool fail(const QString& reason);

    QXmlStreamReader m_reader;
    std::vector<Frame> m_open;
    bool m_isInsidePlist = false;
    bool m_hasRoot = false;
    QVariant m_root;
    QString m_reason;
};

} // namespace platform
