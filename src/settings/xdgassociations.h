#pragma once
// The desktop side of the file associations on freedesktop desktops: the
// player's desktop entry "quorvel.desktop" in the user's applications folder
// (open, and the "Add To Playlist" action that passes the add-only marker),
// the default handlers in the user's "mimeapps.list", and a MIME package for
// extensions the shared MIME database lacks. Only files below the user's
// config and data folders are written, each atomically; a "mimeapps.list"
// that cannot be read, written or understood is left exactly as it is.

#include "settings/associations.h"

namespace quorvel {

class XdgAssociations : public DesktopAssociations {
public:
    // `configHome` and `dataHome` default to the user's XDG folders.
    XdgAssociations(QString programPath, QString iconPath, QString configHome = {}, QString dataHome = {});

    QString handlerId() const override;
    std::optional<QString> defaultHandler(const QString &mimeType) const override;
    bool setDefaultHandler(const QString &mimeType, const std::optional<QString> &handler) override;
    void registerHandler(const QStringList &mimeTypes, const QMap<QString, QString> &extraGlobs) override;

    QString mimeAppsPath() const { return m_configHome + u"/mimeapps.list"_qs; }
    QString desktopEntryPath() const { return m_dataHome + u"/applications/"_qs + handlerId(); }

    // The text of the desktop entry for a program at `programPath`.
    static QByteArray desktopEntry(const QString &programPath, const QString &iconPath, const QStringList &mimeTypes);
    // The MIME package that teaches the desktop `extraGlobs` (extension -> type).
    static QByteArray mimePackage(const QMap<QString, QString> &extraGlobs);

private:
    QString m_programPath;
    QString m_iconPath;
    QString m_configHome;
    QString m_dataHome;
};

} // namespace quorvel
