#include "media/fileicons.h"

#include "common/logging.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>

#include <utility>

namespace quorvel {

namespace {

// One picture of exactly size x size: a smaller one is scaled up, one of
// another shape is centred, so every row of a list lines up.
QIcon fixedSize(const QIcon &icon, int size)
{
    const QPixmap pixmap = icon.pixmap(QSize(size, size));
    if (pixmap.isNull())
        return {};
    QImage image = pixmap.toImage();
    image.setDevicePixelRatio(1);
    if (image.size() != QSize(size, size)) {
        const QImage fitted = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        image = QImage(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter(&image).drawImage((size - fitted.width()) / 2, (size - fitted.height()) / 2, fitted);
    }
    return QIcon(QPixmap::fromImage(image));
}

QIcon fileIcon(const QString &path)
{
    const QImage image(path);
    return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

// The places a desktop entry id may stand for: "kde-foo.desktop" may be
// "applications/kde/foo.desktop".
QStringList entryPaths(const QString &desktopId)
{
    QStringList paths{desktopId};
    QString path = desktopId;
    for (qsizetype dash = path.indexOf(u'-'); dash > 0; dash = path.indexOf(u'-', dash + 1)) {
        path[dash] = u'/';
        paths << path;
    }
    return paths;
}

// The Icon value of the [Desktop Entry] group of a desktop entry's text.
QString iconValue(const QByteArray &text)
{
    bool inEntry = false;
    for (const QByteArray &raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('[')) {
            inEntry = line == "[Desktop Entry]";
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (!inEntry || equals < 0 || line.left(equals).trimmed() != "Icon")
            continue;
        QString value = QString::fromUtf8(line.mid(equals + 1).trimmed());
        return value.replace(u"\\s"_qs, u" "_qs).replace(u"\\\\"_qs, u"\\"_qs);
    }
    return {};
}

} // namespace

XdgDesktopIcons::XdgDesktopIcons(QStringList dataDirs) : m_dataDirs(std::move(dataDirs))
{
    if (m_dataDirs.isEmpty())
        m_dataDirs = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
}

QIcon XdgDesktopIcons::namedIcon(const QString &name) const
{
    if (name.isEmpty())
        return {};
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    // Older entries name a picture of the unthemed "pixmaps" folder.
    for (const QString &dir : m_dataDirs) {
        for (const QString &suffix : {u""_qs, u".png"_qs, u".xpm"_qs, u".svg"_qs}) {
            const QString path = dir + u"/pixmaps/"_qs + name + suffix;
            if (QFile::exists(path)) {
                if (QIcon icon = fileIcon(path); !icon.isNull())
                    return icon;
            }
        }
    }
    return {};
}

QString XdgDesktopIcons::entryIcon(const QString &desktopId) const
{
    // The first entry found is the one the desktop uses, with or without an icon.
    for (const QString &dir : m_dataDirs) {
        for (const QString &relative : entryPaths(desktopId)) {
            QFile entry(dir + u"/applications/"_qs + relative);
            if (entry.open(QIODevice::ReadOnly))
                return iconValue(entry.readAll());
        }
    }
    return {};
}

FileIcons::FileIcons(const DesktopIcons &desktop, QString programFolder)
    : m_desktop(desktop), m_programFolder(std::move(programFolder))
{
}

QIcon FileIcons::handlerIcon(const QString &ProgID) const
{
    const QString id = ProgID.section(u';', 0, 0).trimmed();
    if (id.isEmpty() || id == u"-1"_qs)
        return {};
    const QString icon = m_desktop.entryIcon(id);
    if (icon.isEmpty())
        return {};
    return fixedSize(QDir::isAbsolutePath(icon) ? fileIcon(icon) : m_desktop.namedIcon(icon), kProgramIconSize);
}

QIcon FileIcons::GetProgIDIcon(const QString &mimeType, const QString &ProgID) const
{
    const QMimeType type = QMimeDatabase().mimeTypeForName(mimeType);
    const QString typeIcon = type.isValid() ? type.iconName() : QString(mimeType).replace(u'/', u'-');
    if (QIcon themed = fixedSize(m_desktop.namedIcon(typeIcon), kIconFileSize); !themed.isNull())
        return themed;
    if (QIcon handler = handlerIcon(ProgID); !handler.isNull())
        return handler;
    const QString unknown = m_programFolder + u"icons/Unkowen.bmp"_qs;
    QIcon picture = fixedSize(fileIcon(unknown), kIconFileSize);
    if (picture.isNull())
        qCWarning(lcMedia) << "cannot read" << unknown;
    return picture;
}

} // namespace quorvel
