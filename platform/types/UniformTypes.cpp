// SPDX-License-Identifier: MIT
#include "platform/types/UniformTypes.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/types/DeclaredTypes.h"
#include "platform/types/DynamicType.h"

#include <QHash>
#include <QMimeDatabase>
#include <QSet>

namespace platform {

namespace {

using Tag = DynamicType::Tag;

QStringList listOf(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// The declared types by what they are looked up with, all in lower case.
class TypeIndex {
public:
    static const TypeIndex& instance()
    {
        static const TypeIndex index;
        return index;
    }

    [[nodiscard]] const DeclaredType* withIdentifier(QStringView identifier) const
    {
        return m_byIdentifier.value(identifier.toString().toLower());
    }

    [[nodiscard]] const DeclaredType* withTag(Tag tag, const QString& lowerCaseValue) const
    {
        return (tag == Tag::Extension ? m_byExtension : m_byMimeType).value(lowerCaseValue);
    }

private:
    using Types = QHash<QString, const DeclaredType*>;

    TypeIndex()
    {
        for (const DeclaredType& type : declaredTypes()) {
            m_byIdentifier.insert(QString::fromLatin1(type.identifier).toLower(), &type);
            addTags(m_byExtension, type.extensions, type);
            addTags(m_byMimeType, type.mimeTypes, type);
        }
    }

    static void addTags(Types& types, const char* tags, const DeclaredType& type)
    {
        for (const QString& tag : listOf(tags)) {
            if (!types.contains(tag))
                types.insert(tag, &type);
        }
    }

    Types m_byIdentifier;
    Types m_byExtension;
    Types m_byMimeType;
};

QString preferredIdentifier(Tag tag, QStringView value)
{
    if (value.isEmpty())
        return {};
    const QString lowerCaseValue = value.toString().toLower();
    if (const DeclaredType* type = TypeIndex::instance().withTag(tag, lowerCaseValue))
        return QString::fromLatin1(type->identifier);
    return DynamicType{tag, lowerCaseValue}.identifier();
}

std::optional<QString> firstOf(const char* list)
{
    const QStringList members = listOf(list);
    return members.isEmpty() ? std::nullopt : std::optional(members.first());
}

// The system's MIME type; invalid where it has none of its own.
QMimeType systemMimeType(const DynamicType& type)
{
    const QMimeDatabase database;
    if (type.tag == Tag::MimeType)
        return database.mimeTypeForName(type.value);
    const QMimeType found =
        database.mimeTypeForFile(QStringLiteral("x.") + type.value, QMimeDatabase::MatchExtension);
    // The database also looks at what follows a later dot, and at names such as "x.txt~".
    return found.suffixes().contains(type.value) ? found : QMimeType();
}

} // namespace

QString preferredIdentifierForMimeType(QStringView mimeType)
{
    return preferredIdentifier(Tag::MimeType, mimeType);
}

QString preferredIdentifierForExtension(QStringView extension)
{
    return preferredIdentifier(Tag::Extension, extension);
}

bool typeConformsTo(QStringView identifier, QStringView general)
{
    if (identifier.isEmpty() || general.isEmpty())
        return false;
    QSet<QString> seen;
    QStringList open = {identifier.toString()};
    while (!open.isEmpty()) {
        const QString current = open.takeLast();
        if (current.compare(general, Qt::CaseInsensitive) == 0)
            return true;
        const DeclaredType* type = TypeIndex::instance().withIdentifier(current);
        if (type && !seen.contains(current)) {
            seen.insert(current);
            open += listOf(type->conformsTo);
        }
    }
    return false;
}

std::optional<QString> preferredExtensionForType(QStringView identifier)
{
    if (const DeclaredType* type = TypeIndex::instance().withIdentifier(identifier))
        return firstOf(type->extensions);
    const auto type = DynamicType::fromIdentifier(identifier);
    if (!type)
        return std::nullopt;
    const QString extension =
        type->tag == Tag::Extension ? type->value : systemMimeType(*type).preferredSuffix();
    return extension.isEmpty() ? std::nullopt : std::optional(extension);
}

std::optional<QString> mimeTypeForType(QStringView identifier)
{
    if (const DeclaredType* type = TypeIndex::instance().withIdentifier(identifier))
        return firstOf(type->mimeTypes);
    const auto type = DynamicType::fromIdentifier(identifier);
    if (!type || type->tag != Tag::MimeType)
        return std::nullopt;
    return type->value;
}

QString typeDescription(QStringView identifier)
{
    if (const DeclaredType* type = TypeIndex::instance().withIdentifier(identifier)) {
        const std::optional<QString> mimeType = firstOf(type->mimeTypes);
        const QString comment =
            mimeType ? QMimeDatabase().mimeTypeForName(*mimeType).comment() : QString();
        return comment.isEmpty() ? localizedString(type->description) : comment;
    }
    const auto type = DynamicType::fromIdentifier(identifier);
    return type ? systemMimeType(*type).comment() : QString();
}

} // namespace platform
