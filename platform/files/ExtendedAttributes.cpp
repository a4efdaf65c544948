// SPDX-License-Identifier: MIT
#include "platform/files/ExtendedAttributes.h"

#include <cerrno>
#include <sys/xattr.h>

namespace platform::attributes {

std::optional<QByteArray> value(int descriptor, const char* name)
{
    QByteArray bytes(1024, Qt::Uninitialized);
    for (;;) {
        const ssize_t length =
            ::fgetxattr(descriptor, name, bytes.data(), static_cast<size_t>(bytes.size()));
        if (length >= 0) {
            bytes.truncate(length);
            return bytes;
        }
        constexpr qsizetype largest = 65536; // of any attribute on Linux
        if (errno != ERANGE || bytes.size() >= largest)
            return std::nullopt;
        bytes.resize(largest);
    }
}

bool hasAny(int descriptor)
{
    return ::flistxattr(descriptor, nullptr, 0) > 0;
}

int setValue(int descriptor, const char* name, const QByteArray& bytes)
{
    const auto length = static_cast<size_t>(bytes.size());
    return ::fsetxattr(descriptor, name, bytes.constData(), length, 0) == 0 ? 0 : errno;
}

int removeValue(int descriptor, const char* name)
{
    return ::fremovexattr(descriptor, name) == 0 || errno == ENODATA || errno == ENOTSUP ? 0
                                                                                         : errno;
}

QByteArray names(int descriptor)
{
    QByteArray list(65536, Qt::Uninitialized); // the most that Linux lists
    list[0] = '\0';
    const ssize_t length =
        ::flistxattr(descriptor, list.data() + 1, static_cast<size_t>(list.size() - 1));
    list.truncate(1 + std::max<ssize_t>(length, 0));
    return list;
}

} // namespace platform::attributes
