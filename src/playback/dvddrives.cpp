#include "dvddrives.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr qint64 kSector = 2048;
constexpr qint64 kDescriptorOffset = 16 * kSector;

QByteArray readSystemFile(const QString &path)
{
    QFile f(path);
    // Files under /proc report size 0: read until the end.
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Undoes the escapes of the system's tables: octal ("\040" for a blank) in
// the mount table, hexadecimal ("\x20") in the names of udev's label links.
QString unescapeCodes(const QByteArray &in)
{
    QByteArray out;
    for (qsizetype i = 0; i < in.size(); ++i) {
        bool ok = false;
        int code = 0;
        if (in[i] == '\\' && i + 3 < in.size())
            code = in[i + 1] == 'x' ? in.mid(i + 2, 2).toInt(&ok, 16) : in.mid(i + 1, 3).toInt(&ok, 8);
        if (ok) {
            out += char(code);
            i += 3;
        } else {
            out += in[i];
        }
    }
    return QString::fromUtf8(out);
}

QString canonical(const QString &path)
{
    const QString c = QFileInfo(path).canonicalFilePath();
    return c.isEmpty() ? path : c;
}

QString labelFromLinks(const QString &device)
{
    const QFileInfoList links = QDir(QStringLiteral("/dev/disk/by-label")).entryInfoList(QDir::System | QDir::Files);
    for (const QFileInfo &link : links) {
        if (link.canonicalFilePath() == device)
            return unescapeCodes(QFile::encodeName(link.fileName()));
    }
    return {};
}

} // namespace

QStringList CdromDriveNames(const QByteArray &cdromInfo)
{
    QStringList names;
    for (const QByteArray &line : cdromInfo.split('\n')) {
        if (!line.startsWith("drive name:"))
            continue;
        for (const QByteArray &name : line.mid(11).simplified().split(' ')) {
            if (!name.isEmpty())
                names << QString::fromLatin1(name);
        }
    }
    QCollator order;
    order.setNumericMode(true);
    std::sort(names.begin(), names.end(), order);
    return names;
}

QHash<QString, QString> MountPointsBySource(const QByteArray &mountInfo)
{
    // "36 35 98:0 / /media/cd ro,nosuid shared:1 - iso9660 /dev/sr0 ro"
    QHash<QString, QString> points;
    for (const QByteArray &line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf("-");
        if (dash < 6 || dash + 2 >= fields.size() || fields[3] != "/")
            continue; // malformed, or a bind mount of a sub-folder
        const QString source = unescapeCodes(fields[dash + 2]);
        if (!points.contains(source))
            points.insert(source, unescapeCodes(fields[4]));
    }
    return points;
}

QString IsoVolumeLabel(const QString &deviceOrImage, bool *readable)
{
    *readable = false;
    // Without O_NONBLOCK, opening an empty drive would try to close its tray.
    const int fd = ::open(QFile::encodeName(deviceOrImage).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return {};
    char sector[kSector];
    const ssize_t got = ::pread(fd, sector, sizeof sector, kDescriptorOffset);
    ::close(fd);
    if (got != kSector)
        return {};
    const QByteArray id(sector + 1, 5);
    // ISO 9660, or the UDF volume recognition sequence of a UDF-only disc.
    *readable = id == "CD001" || id == "BEA01" || id == "NSR02" || id == "NSR03";
    if (id != "CD001" || sector[0] != 1)
        return {};
    // Padded with blanks, or cut short by a NUL.
    return QString::fromLatin1(QByteArray(sector + 40, 32).split('\0').first()).trimmed();
}

QVector<OpticalDrive> SystemDriveList::drives() const
{
    const QHash<QString, QString> mounts = MountPointsBySource(readSystemFile(QStringLiteral("/proc/self/mountinfo")));
    QHash<QString, QString> mountsByDevice;
    for (auto it = mounts.cbegin(); it != mounts.cend(); ++it) {
        if (it.key().startsWith(u'/') && !mountsByDevice.contains(canonical(it.key())))
            mountsByDevice.insert(canonical(it.key()), it.value());
    }
    QVector<OpticalDrive> drives;
    for (const QString &name : CdromDriveNames(readSystemFile(QStringLiteral("/proc/sys/dev/cdrom/info")))) {
        OpticalDrive d;
        d.device = QStringLiteral("/dev/") + name;
        d.mountPoint = mountsByDevice.value(canonical(d.device));
        d.label = labelFromLinks(canonical(d.device));
        bool readable = false;
        if (d.label.isEmpty())
            d.label = IsoVolumeLabel(d.device, &readable);
        d.hasDisc = !d.mountPoint.isEmpty() || !d.label.isEmpty() || readable;
        drives << d;
    }
    return drives;
}

DvdEnumeration EnumDVDDrives(const DriveList &list)
{
    DvdEnumeration e;
    e.drives = list.drives();
    for (const OpticalDrive &d : std::as_const(e.drives))
        e.captions << (d.hasDisc ? d.label : kInsertDvdCaption) + QStringLiteral(" (") + d.device + u')';
    return e;
}

bool HoldsVideoTs(const QString &folder)
{
    const QStringList subfolders = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    return std::any_of(subfolders.begin(), subfolders.end(),
                       [](const QString &name) { return name.compare(u"VIDEO_TS", Qt::CaseInsensitive) == 0; });
}

QString DvdSourceOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        if (HoldsVideoTs(path))
            return QDir::cleanPath(info.absoluteFilePath());
        // The VIDEO_TS folder itself stands for the folder holding it.
        if (info.fileName().compare(u"VIDEO_TS", Qt::CaseInsensitive) == 0)
            return QDir::cleanPath(info.absolutePath());
        return {};
    }
    if (!info.isFile())
        return {};
    if (info.suffix().compare(u"iso", Qt::CaseInsensitive) == 0) {
        bool readable = false;
        IsoVolumeLabel(path, &readable);
        return readable ? QDir::cleanPath(info.absoluteFilePath()) : QString();
    }
    // A file in a VIDEO_TS folder ("VIDEO_TS.IFO", as file dialogs offer it).
    const QDir parent = info.absoluteDir();
    if (parent.dirName().compare(u"VIDEO_TS", Qt::CaseInsensitive) == 0
        && info.suffix().compare(u"ifo", Qt::CaseInsensitive) == 0)
        return QDir::cleanPath(parent.absolutePath() + QStringLiteral("/.."));
    return {};
}

} // namespace quorvel
