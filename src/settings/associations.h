#pragma once
// The player as the desktop's handler of the media extensions. Each extension
// stands for its MIME type: associating it makes the player the type's
// default handler and saves the default it replaces, so that removing the
// association gives exactly that handler back (or none when there was none).
// Extensions that share a type ("mpg", "mpe", "mpeg") share one association.
// The saved defaults live in the key/value store and survive restarts; the
// desktop side (entry, default handlers) stands behind DesktopAssociations.

#include "common/paths.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <optional>

namespace quorvel {

class KeyValueStore;

class DesktopAssociations {
public:
    virtual ~DesktopAssociations() = default;
    // The name the desktop knows the player by ("quorvel.desktop").
    virtual QString handlerId() const = 0;
    // The user's default handler of `mimeType` as written, or nullopt when the
    // user has chosen none.
    virtual std::optional<QString> defaultHandler(const QString &mimeType) const = 0;
    // Sets the user's default handler of `mimeType`, or removes the user's
    // choice when `handler` is nullopt. False when nothing could be changed.
    virtual bool setDefaultHandler(const QString &mimeType, const std::optional<QString> &handler) = 0;
    // Installs or refreshes the player's handler entry for `mimeTypes`, and
    // teaches the desktop the `extraGlobs` (extension -> type) it lacks.
    virtual void registerHandler(const QStringList &mimeTypes, const QMap<QString, QString> &extraGlobs) = 0;
    // While the player is the default handler of `mimeType` (`shown`), files
    // of that type show the player's icon of `extension`; otherwise they get
    // back the icon they had.
    virtual void showTypeIcon(const QString & /*mimeType*/, const QString & /*extension*/, bool /*shown*/) {}
};

class FileAssociations {
public:
    FileAssociations(KeyValueStore &store, DesktopAssociations &desktop) : m_store(store), m_desktop(desktop) {}

    // The MIME type of media extension `index` (empty outside 0 ... 23).
    static QString MimeTypeOf(int index);
    // The extensions of the table that share the type of extension `index`, itself included.
    static QStringList ExtensionsSharingType(int index);
    // Every type the player handles, once each in table order, and the
    // extensions (-> type) the MIME database lacks.
    struct HandledTypes {
        QStringList mimeTypes;
        QMap<QString, QString> extraGlobs;
    };
    static HandledTypes AllHandledTypes();

    bool IsAssociated(int index) const;
    // Both act on the extension's whole type and do nothing for an index
    // outside 0 ... 23.
    void RegisterExtension(int index);
    void UnregisterExtension(int index);
    // A type is associated when the flag of any of its extensions is set.
    // Whoever stores all flags at once (the start, the settings dialog) uses
    // this: one call per extension would undo a shared type's association.
    // ExtensionsSharingType() tells which flags go together.
    void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &AssocFlags);
    // The current default handler of extension `e`'s type, or "-1" when there is none.
    QString GetExtensionProgID(const QString &e) const;

private:
    void registerHandler();
    void Associate(const QString &mimeType);
    void Unassociate(const QString &mimeType);
    void showTypeIcon(int first);
    static int firstOfType(int index);
    bool ownsDefault(const QString &mimeType) const;

    KeyValueStore &m_store;
    DesktopAssociations &m_desktop;
};

// Applies the association flags to the user's desktop: the store file and
// the user's XDG folders, the handler being this program.
void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &AssocFlags);

} // namespace quorvel
