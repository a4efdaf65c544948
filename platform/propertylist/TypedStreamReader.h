// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/TypedStream.h"
#include "platform/propertylist/TypedStreamBytes.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

namespace platform {

// Reads a legacy archive.
//
// After a header come groups: a string of type letters, as the Objective-C compiler encodes types,
// and a value for each letter. Objects nest; each holds groups up to an end mark. Strings of
// letters and class names are written once and then referred to by number, and so are, in a second
// table, objects and classes.
class TypedStreamReader {
public:
    explicit TypedStreamReader(QByteArrayView data);

    [[nodiscard]] std::optional<TypedStream> read();

private:
    // Something in the second table; C strings count there but nobody asks for them.
    struct Shared {
        enum class Kind { Object, Class, Text };

        Kind kind = Kind::Object;
        std::size_t index = 0;
    };

    // A class's name and its ancestors'; empty while these are still being read.
    using Class = QStringList;

    // The object whose groups are being read, or none for the top level, and the group in hand.
    struct Frame {
        std::optional<std::size_t> object;
        QByteArray types;
        qsizetype next = 0;
    };

    bool readHeader();
    bool readStep();
    bool readGroupStart(Frame& frame);
    bool readValue(Frame& frame);
    bool readObject();
    bool readArray(Frame& frame);
    bool skipStructName(Frame& frame);
    bool readCString();
    std::optional<TypedStream::Value> readScalar(char type);
    // An empty list for no class.
    std::optional<QStringList> readClass();
    std::optional<QStringList> readClassReference();
    std::optional<QByteArray> readSharedString();
    std::optional<std::size_t> readReference(std::size_t tableSize);
    void add(const TypedStream::Value& value);

    TypedStreamBytes m_bytes;
    // Every value takes a byte or more, but brackets and empty arrays take none.
    qsizetype m_stepsLeft = 0;
    TypedStream m_stream;
    std::vector<QByteArray> m_strings;
    std::vector<Shared> m_shared;
    std::vector<Class> m_classes;
    std::vector<Frame> m_frames;
};

} // namespace platform
