// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/PropertyListFile.h"
#include "platform/propertylist/XmlPropertyListWriter.h"

namespace platform {

// An XML property list that goes to its file element by element, for lists that need not be in
// memory at once. The file is there after a commit that succeeded and not before; what was there
// stays until then.
class XmlPropertyListStream {
public:
    explicit XmlPropertyListStream(const QString& path);

    // The first failure lasts until the commit, which tells it.
    void beginDictionary() { m_writer.beginDictionary(); }
    void endDictionary() { m_writer.endDictionary(); }
    void beginArray() { m_writer.beginArray(); }
    void endArray() { m_writer.endArray(); }
    // The keys of a dictionary must differ, also after the repair of texts; they should come in
    // code unit order, as they do in a list written whole.
    void writeKey(const QString& key) { m_writer.writeKey(key); }
    void writeValue(const QVariant& value) { m_writer.writeValue(value); }
    [[nodiscard]] bool hasFailed() const { return m_writer.hasFailed(); }

    // False when an element could not be written, the list is not complete, or the file could not
    // be written whole. To be called once.
    [[nodiscard]] bool commit(Error* error = nullptr);

private:
    PropertyListFile m_file;
    XmlPropertyListWriter m_writer;
};

} // namespace platform
