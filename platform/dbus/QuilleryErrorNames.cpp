// SPDX-License-Identifier: MIT
#include "platform/dbus/QuilleryErrorNames.h"

#include "platform/scripting/QuilleryLibraryError.h"

#include <array>

namespace platform {

namespace {

using Code = QuilleryLibraryErrorCode;

struct NamedCode {
    Code code;
    const char* name;
};

constexpr std::array namedCodes = {NamedCode{Code::NotAManifest, "NotAManifest"},
                                   NamedCode{Code::UnreadableManifest, "UnreadableManifest"},
                                   NamedCode{Code::MalformedManifest, "MalformedManifest"},
                                   NamedCode{Code::UnsafeManifest, "UnsafeManifest"},
                                   NamedCode{Code::UnsupportedOption, "UnsupportedOption"},
                                   NamedCode{Code::LibraryNotWritable, "LibraryNotWritable"},
                                   NamedCode{Code::ItemsNotTaken, "ItemsNotTaken"},
                                   NamedCode{Code::UnfinishedImport, "UnfinishedImport"},
                                   NamedCode{Code::IncompleteManifest, "IncompleteManifest"}};

} // namespace

QString quilleryErrorName(const Error& error)
{
    if (error.domain() == QLatin1String(quilleryLibraryErrorDomain)) {
        for (const NamedCode& known : namedCodes) {
            if (error.code() == static_cast<qint64>(known.code))
                return QString::fromLatin1(known.name);
        }
    }
    return QStringLiteral("Failed");
}

std::optional<Error> quilleryErrorNamed(const QString& name, const QString& text)
{
    for (const NamedCode& known : namedCodes) {
        if (name == QLatin1String(known.name))
            return quilleryLibraryError(known.code, text);
    }
    return std::nullopt;
}

} // namespace platform
