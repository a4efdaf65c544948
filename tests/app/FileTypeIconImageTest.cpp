// SPDX-License-Identifier: MIT
#include "app/FileTypeIconImage.h"

#include "formats/QLWebBookmarkFile.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QIcon>

namespace {

using namespace Qt::StringLiterals;

class FileTypeIconImageTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_paths = QIcon::themeSearchPaths();
        m_theme = QIcon::themeName();
        m_folder.write(u"plain/index.theme"_s,
                       "[Icon Theme]\nName=plain\nDirectories=64x64/mimetypes\n"
                       "[64x64/mimetypes]\nSize=64\nType=Fixed\n");
        EXPECT_TRUE(QDir().mkpath(m_folder.filePath("plain/64x64/mimetypes")));
        QImage page(64, 64, QImage::Format_RGB32);
        page.fill(Qt::red);
        EXPECT_TRUE(page.save(m_folder.filePath("plain/64x64/mimetypes/text-html.png")));
        QIcon::setThemeSearchPaths({m_folder.path()});
    }
    void TearDown() override
    {
        QIcon::setThemeSearchPaths(m_paths);
        QIcon::setThemeName(m_theme);
    }

    [[nodiscard]] static platform::FileTypeIcon iconOf(const QString& address)
    {
        return QLWebBookmarkFile::bookmarkWithName(QString(), QUrl(address))->iconImage();
    }

    test::ScratchFolder m_folder;
    QStringList m_paths;
    QString m_theme;
};

TEST_F(FileTypeIconImageTest, ABookmarkHasTheThemesPictureOfAPageInItsOwnSize)
{
    QIcon::setThemeName(u"plain"_s);
    const QImage image = imageForFileTypeIcon(iconOf(u"http://a.example/"_s));
    EXPECT_EQ(image.size(), QSize(96, 96));
    EXPECT_EQ(image.pixelColor(48, 48), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::red));
}

TEST_F(FileTypeIconImageTest, OnADenseDisplayItHasMorePixelsInTheSameSize)
{
    QIcon::setThemeName(u"plain"_s);
    const QImage image = imageForFileTypeIcon(iconOf(u"mailto:me@a.example"_s), 2);
    EXPECT_EQ(image.size(), QSize(192, 192));
    EXPECT_EQ(image.deviceIndependentSize(), QSizeF(96, 96));
    EXPECT_EQ(image.pixelColor(96, 96), QColor(Qt::red));
}

TEST_F(FileTypeIconImageTest, WithoutAThemeItIsTheStylesFile)
{
    QIcon::setThemeName(u"nothing"_s);
    const QImage image = imageForFileTypeIcon(iconOf(u"http://a.example/"_s));
    EXPECT_EQ(image.size(), QSize(96, 96));
    bool isDrawn = false;
    for (int x = 0; x < 96; ++x)
        isDrawn = isDrawn || image.pixelColor(x, 48).alpha() > 0;
    EXPECT_TRUE(isDrawn);
}

} // namespace
