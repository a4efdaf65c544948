// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfdPackage.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/rtfd/RtfReader.h"

#include <QHash>

namespace platform {

namespace {

// A name in the form in which a Mac's disk compares it.
QString comparedForm(const QString& name)
{
    return name.normalized(QString::NormalizationForm_D).toCaseFolded();
}

// Finds a package's files by the names in its text, which may be composed otherwise than those on
// disk.
class PackageChildren {
public:
    explicit PackageChildren(const FileWrapper& package)
        : m_package(package)
    {
    }

    FileWrapper::Pointer file(const QString& name)
    {
        if (FileWrapper::Pointer exact = m_package.childForKey(name))
            return exact;
        if (m_childByForm.isEmpty()) {
            for (const FileWrapper::Child& child : m_package.children())
                m_childByForm.insert(comparedForm(child.key), child.wrapper);
        }
        return m_childByForm.value(comparedForm(name));
    }

private:
    const FileWrapper& m_package;
    QHash<QString, FileWrapper::Pointer> m_childByForm;
};

Error unreadable()
{
    return {cocoaErrorDomain, FileReadCorruptFileError,
            localizedString("The file isn’t in the correct format.")};
}

} // namespace

std::optional<AttributedString>
attributedStringFromRtfd(const FileWrapper& package, DocumentAttributes* attributes, Error* error)
{
    PackageChildren children(package);
    const FileWrapper::Pointer text =
        package.isDirectory() ? children.file(rtfdTextFilename) : nullptr;
    if (!text || !text->isRegularFile()) {
        setError(error, unreadable());
        return std::nullopt;
    }
    Error readError;
    const QByteArray rtf = text->contents(&readError);
    if (!readError.isNull()) {
        setError(error, readError);
        return std::nullopt;
    }
    const auto attachmentFor = [&children](const QString& name) {
        return std::make_shared<TextAttachment>(children.file(name));
    };
    return attributedStringFromRtf(rtf, attachmentFor, attributes, error);
}

std::optional<AttributedString>
attributedStringFromRtfd(const QString& path, DocumentAttributes* attributes, Error* error)
{
    const FileWrapper::Pointer package = FileWrapper::read(path, error);
    return package ? attributedStringFromRtfd(*package, attributes, error) : std::nullopt;
}

} // namespace platform
