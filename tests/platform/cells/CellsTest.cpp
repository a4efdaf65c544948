// SPDX-License-Identifier: MIT
#include "platform/cells/ButtonCell.h"
#include "platform/core/Bundle.h"

#include "support/ScratchFolder.h"

namespace {

using platform::NamedImage;

class NamedImageTest : public ::testing::Test {
protected:
    void TearDown() override { platform::Bundle::main().setResourceDirectory({}); }

    NamedImage imageOf(const QByteArray& bytes)
    {
        static_cast<void>(m_folder.write(QStringLiteral("Image.png"), bytes));
        platform::Bundle::main().setResourceDirectory(m_folder.path());
        return NamedImage(QStringLiteral("Image"));
    }

    test::ScratchFolder m_folder;
};

TEST_F(NamedImageTest, KnowsItsSizeFromTheFilesHeader)
{
    const NamedImage image = imageOf(QByteArray("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\1\2\0\0\0\x0E", 24));
    EXPECT_EQ(image.size(), QSizeF(258, 14));
    EXPECT_EQ(image.name(), QStringLiteral("Image"));
    EXPECT_EQ(image.path(), m_folder.filePath("Image.png"));
}

TEST_F(NamedImageTest, AFileThatIsNoImageHasNoSize)
{
    EXPECT_EQ(imageOf("").size(), QSizeF(0, 0));
    EXPECT_EQ(imageOf("\x89PNG\r\n\x1A\n").size(), QSizeF(0, 0));
    EXPECT_EQ(imageOf("GIF89a and more than enough bytes").size(), QSizeF(0, 0));
}

TEST_F(NamedImageTest, AMissingImageHasNoSize)
{
    const NamedImage image(QStringLiteral("Nowhere"));
    EXPECT_TRUE(image.path().isEmpty());
    EXPECT_EQ(image.size(), QSizeF(0, 0));
}

} // namespace
