// SPDX-License-Identifier: MIT
#include "webcapture/TestSite.h"

QByteArray TestSite::pathOf(const QVariantMap& resource) const
{
    QString address = resource.value(text("WebResourceURL")).toString();
    const QString server = m_server.address(QString());
    return (address.startsWith(server) ? address.mid(server.size()) : address).toUtf8();
}

void TestSite::expectArchive(const QVariantMap& found, const ExpectedArchive& expected)
{
    const testing::ScopedTrace trace(__FILE__, __LINE__, expected.address);
    const QVariantMap main = mainResource(found);
    EXPECT_EQ(pathOf(main), QByteArray(expected.address));
    EXPECT_EQ(bytes(main), expected.document);
    if (expected.name) {
        EXPECT_EQ(main.value(text("WebResourceFrameName")).toString(), text(expected.name));
    }
    QList<std::pair<QByteArray, QByteArray>> resources;
    for (const QVariantMap& resource : subresources(found))
        resources.append({pathOf(resource), bytes(resource)});
    EXPECT_EQ(resources, expected.resources);
    const QList<QVariantMap> frames = subframes(found);
    ASSERT_EQ(frames.size(), expected.frames.size());
    // As deep as the test says.
    for (qsizetype index = 0; index < frames.size(); ++index)
        expectArchive(frames[index], expected.frames[index]);
}
