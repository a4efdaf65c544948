// SPDX-License-Identifier: MIT
#include "platform/propertylist/XmlPropertyListStream.h"

namespace platform {

XmlPropertyListStream::XmlPropertyListStream(const QString& path)
    : m_file(path)
    , m_writer(m_file.device())
{
}

bool XmlPropertyListStream::commit(Error* error)
{
    return m_writer.finish(error) && m_file.commit(error);
}

} // namespace platform
