// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QIODevice>
#include <QVariant>
#include <QXmlStreamWriter>

#include <optional>
#include <vector>

namespace platform {

// Writes the XML form, one element a line, indented by tabs, and holds nothing of what it has
// written.
//
// The first failure lasts: what is written after it goes nowhere, and finish() tells it. Elements
// out of order are such a failure: a value without a key in a dictionary, a key elsewhere, an end
// of what is not open, a second root.
class XmlPropertyListWriter {
public:
    // The device must outlive the writer. One that is not open for writing is the first failure.
    explicit XmlPropertyListWriter(QIODevice& device);

    void beginDictionary();
    void endDictionary();
    void beginArray();
    void endArray();
    // The keys of a dictionary must differ, also after the repair of texts, and are not compared
    // here.
    void writeKey(const QString& key);
    // A value of any kind that property lists have, with everything in it.
    void writeValue(const QVariant& value);

    [[nodiscard]] bool hasFailed() const;
    // Ends the document. The device may still hold some of it in a buffer.
    [[nodiscard]] bool finish(Error* error = nullptr);

    // The whole document of one value.
    [[nodiscard]] static std::optional<QByteArray> data(const QVariant& root, Error* error);

private:
    enum class Container { Array, Dictionary };

    // A list or dictionary given as a value, whose elements are being written.
    struct Frame {
        QVariantList elements;
        // The dictionary's keys, in the order of the elements.
        QStringList keys;
        qsizetype next = 0;
    };

    void begin(Container container);
    void end(Container container);
    [[nodiscard]] bool takePlaceForValue();
    void writeStart();
    void writeScalar(const QVariant& value);
    void writeDate(const QDateTime& date);
    void writeUid(quint32 uid);
    [[nodiscard]] std::optional<Frame> openFrame(const QVariant& container);
    void writeText(const QString& element, const QString& text);
    void fail(const char* reason);

    QXmlStreamWriter m_writer;
    std::vector<Container> m_open;
    bool m_hasKey = false;
    bool m_hasRoot = false;
    std::optional<Error> m_error;
};

} // namespace platform
