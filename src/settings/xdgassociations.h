#pragma once
// The desktop side of the file associations on freedesktop desktops: the
// player's desktop entry "quorvel.desktop" in the user's applications folder
// (open, and the "Add To Playlist" action that passes the add-only marker),
// the default handlers in the user's "mimeapps.list", and a MIME package for
// extensions the shared MIME database lacks, and the player's icons in the
// user's icon theme (the program's own, and a file type's while the player
// is its default). Only files below the user's config and data folders are
// written, each atomically; a "mimeapps.list" that cannot be read, written or
// understood is left exactly as it is, and an icon of the user's theme that
// the player did not put there is never replaced or removed.

#include "settings/associations.h"

namespace quorvel {

class XdgAssociations : public DesktopAssociations {
public:
    // `iconFolder` is the program folder's "icons" folder, whose "hicolor"
    // tree holds the icons to install. `configHome` and `dataHome` default
    // to the user's XDG folders.
    XdgAssociations(QString programPath, QString iconFolder, QString configHome = {}, QString dataHome = {});

    QString handlerId() const override;
    std::optional<QString> defaultHandler(const QString &mimeType) const override;
    // The handler the desktop opens `mimeType` with: the user's choice, else
    // the system's default, else the first program that says it takes the
    // type; empty when there is none.
    QString currentHandler(const QString &mimeType) const;
    bool setDefaultHandler(const QString &mimeType, const std::optional<QString> &handler) override;
    void registerHandler(const QStringList &mimeTypes, const QMap<QString, QString> &extraGlobs) override;
    void showTypeIcon(const QString &mimeType, const QString &extension, bool shown) override;

    QString mimeAppsPath() const { return m_configHome + u"/mimeapps.list"_qs; }
    QString desktopEntryPath() const { return m_dataHome + u"/applications/"_qs + handlerId(); }

    // The text of the desktop entry for a program at `programPath`.
    static QByteArray desktopEntry(const QString &programPath, const QString &icon, const QStringList &mimeTypes);
    // The MIME package that teaches the desktop `extraGlobs` (extension -> type).
    static QByteArray mimePackage(const QMap<QString, QString> &extraGlobs);

private:
    QString themePath() const { return m_dataHome + u"/icons/hicolor"_qs; }
    void installProgramIcon();

    QString m_programPath;
    QString m_iconFolder;
    QString m_configHome;
    QString m_dataHome;
};

} // namespace quorvel
