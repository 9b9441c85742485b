#pragma once
// The computer's CD/DVD drives as the Open DVD menus list them, and what
// counts as a video DVD: a disc, folder or image holding a VIDEO_TS folder.
//
// The drives come from a DriveList: the system's one reads the kernel's
// optical drive table, the mount table and the label links; tests describe
// drives instead.

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace quorvel {

inline const QString kInsertDvdCaption = QStringLiteral("<Please insert a DVD>");

// One optical drive as the system reports it.
struct OpticalDrive {
    QString device;       // "/dev/sr0"
    bool hasDisc = false; // the disc's volume information could be read
    QString label;        // the disc's volume label, possibly empty
    QString mountPoint;   // where the disc is mounted; empty when it is not
};

class DriveList {
public:
    virtual ~DriveList() = default;
    // The drives in the order the menus show them.
    virtual QVector<OpticalDrive> drives() const = 0;
};

// Drives from /proc/sys/dev/cdrom/info, mount points from /proc/self/mountinfo,
// labels from /dev/disk/by-label or, failing that, the disc's ISO 9660
// volume descriptor.
class SystemDriveList final : public DriveList {
public:
    QVector<OpticalDrive> drives() const override;
};

// The drive names of the kernel's table ("sr0", "sr1", ...) in number order
// (the kernel lists the newest first).
QStringList CdromDriveNames(const QByteArray &cdromInfo);
// Mount source -> mount point of whole file systems in /proc/self/mountinfo
// text; the first mount of a source wins.
QHash<QString, QString> MountPointsBySource(const QByteArray &mountInfo);
// The volume label of the ISO 9660 descriptor of a disc device or image;
// `readable` tells whether a DVD or CD file system was found at all.
QString IsoVolumeLabel(const QString &deviceOrImage, bool *readable);

// The result of one enumeration: entry k of `drives` and `captions` stands
// for menu entry k of the Open DVD menus.
struct DvdEnumeration {
    QVector<OpticalDrive> drives;
    QStringList captions; // "MOVIE (/dev/sr1)", "<Please insert a DVD> (/dev/sr0)"
    bool noDrives() const { return drives.isEmpty(); }
};

DvdEnumeration EnumDVDDrives(const DriveList &list);

// True when `folder` holds a VIDEO_TS folder, in any letter case.
bool HoldsVideoTs(const QString &folder);
// What a DVD-Video path plays as: the folder holding VIDEO_TS for that
// folder, its VIDEO_TS folder or a file in it; the image for a readable
// ".iso"; empty for anything else.
QString DvdSourceOf(const QString &path);

} // namespace quorvel
