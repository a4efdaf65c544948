// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfdPackage.h"

#include "platform/rtfd/AttachmentNames.h"
#include "platform/rtfd/RtfWriter.h"

#include <QHash>

namespace platform {

const QString rtfdTextFilename = QStringLiteral("TXT.rtf");

namespace {

// Adds the attachments' files to the package in the order of the text, and tells their names.
class PackageFiles {
public:
    PackageFiles(FileWrapper& package, const QStringList& reservedNames)
        : m_package(package)
        , m_names(QStringList(reservedNames) << rtfdTextFilename)
    {
    }

    QString nameOf(const TextAttachment& attachment)
    {
        const FileWrapper::Pointer& file = attachment.fileWrapper();
        const void* identity = file ? static_cast<const void*>(file.get()) : &attachment;
        if (const auto known = m_nameByIdentity.constFind(identity);
            known != m_nameByIdentity.cend())
            return *known;
        QString name = m_names.uniqueName(file ? file->preferredFilename() : QString());
        if (file)
            add(file, name);
        m_nameByIdentity.insert(identity, name);
        return name;
    }

private:
    // The file keeps the name that it was given; only its key in the package is the safe one.
    void add(const FileWrapper::Pointer& file, const QString& name)
    {
        const QString preferred = file->preferredFilename();
        file->setPreferredFilename(name);
        m_package.addFileWrapper(file);
        file->setPreferredFilename(preferred);
    }

    FileWrapper& m_package;
    AttachmentNames m_names;
    QHash<const void*, QString> m_nameByIdentity;
};

} // namespace

FileWrapper::Pointer rtfdFileWrapper(const AttributedString& text, TextRange range,
                                     const DocumentAttributes& attributes,
                                     const QStringList& reservedNames, Error*)
{
    const bool isWhole = range == TextRange{0, text.length()};
    const AttributedString written = isWhole ? text : text.substring(range);

    FileWrapper::Pointer package = FileWrapper::directory();
    PackageFiles files(*package, reservedNames);
    const QByteArray rtf =
        rtfWithAttachments(written, attributes, [&files](const TextAttachment& attachment) {
            return files.nameOf(attachment);
        });
    package->addFileWrapper(FileWrapper::regularFile(rtf, rtfdTextFilename));
    return package;
}

FileWrapper::Pointer rtfdFileWrapper(const AttributedString& text, TextRange range,
                                     const DocumentAttributes& attributes, Error* error)
{
    return rtfdFileWrapper(text, range, attributes, QStringList(), error);
}

} // namespace platform
