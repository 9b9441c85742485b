#pragma once
// The picture of a file type, as the association list shows it next to each
// extension: the MIME type's icon in the user's icon theme, else the icon of
// the program that handles the type, else the player's own "unknown"
// picture from the program folder. What the lookup asks the desktop stands
// behind DesktopIcons.

#include <QIcon>
#include <QString>
#include <QStringList>

namespace quorvel {

class DesktopIcons {
public:
    virtual ~DesktopIcons() = default;
    // The icon called `name` in the user's icon theme (or the desktop's
    // unthemed pictures), or a null icon.
    virtual QIcon namedIcon(const QString &name) const = 0;
    // The Icon value of the desktop entry `desktopId` ("vlc.desktop"): an
    // icon name or an absolute path; empty when there is no such entry or value.
    virtual QString entryIcon(const QString &desktopId) const = 0;
};

// The freedesktop lookup: Qt's current icon theme and the desktop entries
// of the XDG data folders.
class XdgDesktopIcons : public DesktopIcons {
public:
    // `dataDirs` in the order they take precedence; by default the user's
    // data folder, then the system's.
    explicit XdgDesktopIcons(QStringList dataDirs = {});

    QIcon namedIcon(const QString &name) const override;
    QString entryIcon(const QString &desktopId) const override;

private:
    QStringList m_dataDirs;
};

class FileIcons {
public:
    // A handler's icon stands for a program; the others are file pictures.
    static constexpr int kProgramIconSize = 48;
    static constexpr int kIconFileSize = 32;

    FileIcons(const DesktopIcons &desktop, QString programFolder);

    // The icon of files of `mimeType` whose default handler is the desktop
    // entry `ProgID` ("-1" or empty when there is none; of a list
    // "a.desktop;b.desktop;" the first counts). The icon holds one picture
    // of the fixed size of its kind; it is null only when even the
    // "unknown" picture cannot be read.
    QIcon GetProgIDIcon(const QString &mimeType, const QString &ProgID) const;

private:
    QIcon handlerIcon(const QString &ProgID) const;

    const DesktopIcons &m_desktop;
    QString m_programFolder;
};

} // namespace quorvel
