// The file-type icon lookup on a temporary icon theme and desktop entries.

#include "media/fileicons.h"
#include "support/files.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

void writePicture(const QString &path, QColor colour, int size)
{
    QDir().mkpath(QFileInfo(path).path());
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(colour);
    ASSERT_TRUE(image.save(path));
}

TEST(FileIcons, ThemeIconThenHandlerIconThenTheUnknownPicture)
{
    QTemporaryDir tmp;
    const QString data = tmp.filePath(u"data"_qs), theme = data + u"/icons/hicolor/"_qs;
    ASSERT_TRUE(test::writeFile(theme + u"index.theme"_qs,
                                "[Icon Theme]\nName=Hicolor\nDirectories=48x48/apps,48x48/mimetypes\n"
                                "[48x48/apps]\nSize=48\n[48x48/mimetypes]\nSize=48\n"));
    writePicture(theme + u"48x48/mimetypes/video-x-matroska.png"_qs, Qt::red, 48);
    writePicture(theme + u"48x48/apps/player.png"_qs, Qt::green, 48);
    writePicture(tmp.filePath(u"pictures/player.png"_qs), Qt::blue, 16);
    writePicture(data + u"/pixmaps/old.xpm"_qs, Qt::cyan, 32);
    writePicture(tmp.filePath(u"program/icons/Unkowen.bmp"_qs), Qt::yellow, 32);
    const std::pair<QString, QByteArray> entries[] = {
        {u"named.desktop"_qs, "[Desktop Entry]\nName=A\nIcon = player\n[Desktop Action X]\nIcon=old\n"},
        {u"kde/path.desktop"_qs, "[Desktop Entry]\nIcon=" + tmp.filePath(u"pictures/player.png"_qs).toUtf8()},
        {u"legacy.desktop"_qs, "[Desktop Entry]\nIcon=old\n"},
        {u"plain.desktop"_qs, "[Desktop Action X]\nIcon=player\n[Desktop Entry]\nName=B\n"}};
    for (const auto &[name, text] : entries)
        ASSERT_TRUE(test::writeFile(data + u"/applications/"_qs + name, text));
    QIcon::setThemeSearchPaths({data + u"/icons"_qs});
    QIcon::setThemeName(u"hicolor"_qs);

    const XdgDesktopIcons desktop({data});
    const FileIcons icons(desktop, tmp.filePath(u"program/"_qs));
    const std::tuple<const char *, const char *, QColor, int> cases[] = {
        {"video/x-matroska", "named.desktop", Qt::red, FileIcons::kIconFileSize},
        {"audio/mpeg", "named.desktop;other.desktop;", Qt::green, FileIcons::kProgramIconSize},
        {"audio/mpeg", "kde-path.desktop", Qt::blue, FileIcons::kProgramIconSize},
        {"audio/mpeg", "legacy.desktop", Qt::cyan, FileIcons::kProgramIconSize},
        {"audio/mpeg", "plain.desktop", Qt::yellow, FileIcons::kIconFileSize},
        {"audio/mpeg", "missing.desktop", Qt::yellow, FileIcons::kIconFileSize},
        {"audio/mpeg", "-1", Qt::yellow, FileIcons::kIconFileSize},
    };
    for (const auto &[type, handler, colour, size] : cases) {
        SCOPED_TRACE(std::string(type) + " " + handler);
        const QIcon icon = icons.GetProgIDIcon(QString::fromLatin1(type), QString::fromLatin1(handler));
        ASSERT_EQ(icon.availableSizes(), QList<QSize>({QSize(size, size)}));
        const QImage image = icon.pixmap(size).toImage();
        EXPECT_EQ(image.pixelColor(size / 2, size / 2), colour);
    }
    EXPECT_TRUE(FileIcons(desktop, tmp.filePath(u"elsewhere/"_qs)).GetProgIDIcon(u"audio/mpeg"_qs, {}).isNull());
}

} // namespace
