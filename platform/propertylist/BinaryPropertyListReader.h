// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArrayView>
#include <QVariant>

#include <optional>
#include <vector>

namespace platform {

// Reads the binary form, whose objects refer to each other by number and so can lie: about sizes,
// in circles, over each other, or sharing parts until a few bytes unfold to more than memory holds.
//
// Time and memory are bounded by the size of the data: objects may not overlap, circles and depth
// beyond the limit are refused, and so is sharing that would unfold beyond a multiple of the size.
class BinaryPropertyListReader {
public:
    explicit BinaryPropertyListReader(QByteArrayView data);

    [[nodiscard]] std::optional<QVariant> read(Error* error);

private:
    enum class State : char { Unread, Open, Read };

    struct Object {
        State state = State::Unread;
        // Levels of containers from this one down; 0 for a scalar.
        int height = 0;
        // What the object would take in memory without sharing, roughly in bytes.
        double weight = 0;
        QVariant value;
    };

    // A container whose elements are being read.
    struct Frame {
        quint64 index = 0;
        bool isDictionary = false;
        quint64 count = 0;
        quint64 referencesOffset = 0;
        quint64 next = 0;
    };

    // A marker byte taken apart.
    struct Header {
        int kind = 0;
        quint64 count = 0;
        // Where the contents begin.
        quint64 offset = 0;
    };

    bool readTrailer();
    bool readObject(quint64 index);
    bool openContainer(quint64 index, const Header& header);
    bool closeContainer(const Frame& frame);
    bool readElements();
    std::optional<QVariant> readScalar(const Header& header);
    std::optional<QVariant> readString(const Header& header);
    std::optional<QVariant> readInteger(quint64 offset, quint64 size);
    std::optional<QVariant> readReal(const Header& header);
    std::optional<QVariant> readDate(quint64 offset);
    std::optional<Header> readHeader(quint64 offset) const;
    [[nodiscard]] bool takeBytes(quint64 offset, quint64 size);
    [[nodiscard]] quint64 numberAt(quint64 offset, quint64 size) const;
    [[nodiscard]] quint64 referenceAt(const Frame& frame, quint64 position) const;

    QByteArrayView m_data;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_objectCount = 0;
    quint64 m_root = 0;
    quint64 m_tableOffset = 0;
    // What is left for objects that do not overlap.
    quint64 m_bytesLeft = 0;
    std::vector<Object> m_objects;
    std::vector<Frame> m_open;
};

} // namespace platform
