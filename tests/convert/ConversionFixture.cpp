// SPDX-License-Identifier: MIT
#include "convert/ConversionFixture.h"

#include "resources/Resources.h"

namespace manifest = platform::manifest;

void ConversionTest::SetUp()
{
    registerResources();
    m_group->insert(manifest::groupTypeKey, manifest::importedFolderGroupType);
    newItem();
}

void ConversionTest::TearDown() { platform::UserDefaults::standard().clearOverrides(); }

EvernoteXMLItem& ConversionTest::newItem(const char* title)
{
    m_item = std::make_unique<EvernoteXMLItem>(QUrl::fromLocalFile(m_folder.path()));
    m_item->setTitle(text(title));
    m_error = {};
    return *m_item;
}

QByteArray ConversionTest::addResource(const QByteArray& bytes, const char* mime, const char* filename)
{
    const auto resource = std::make_shared<EvernoteXMLResource>();
    resource->appendBase64Data(QUtf8StringView(bytes.toBase64()));
    resource->setMime(text(mime));
    resource->attributes().setFilename(text(filename));
    m_item->addResource(resource);
    return resource->md5Hash().value_or(QString()).toUtf8();
}

QByteArray ConversionTest::media(const QByteArray& hash, const QByteArray& attributes)
{
    return "<en-media hash=\"" + hash + "\"" + (attributes.isEmpty() ? "" : " " + attributes) + "/>";
}

platform::XMLElement ConversionTest::elementFromBody(const QByteArray& enml)
{
    return platform::XMLDocument::fromData(enml, platform::XMLDocument::Tidy::Yes)->rootElement();
}
