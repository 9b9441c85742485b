#include "app/extensionicon.h"

#include "common/paths.h"
#include "media/fileicons.h"
#include "settings/associations.h"
#include "settings/xdgassociations.h"

#include <QCoreApplication>

namespace quorvel {

QIcon GetExtensionIcon(const QString &extension)
{
    const QString type = FileAssociations::MimeTypeOf(MediaExtensionIndex(u"x."_qs + extension));
    const XdgAssociations associations(QCoreApplication::applicationFilePath(), ProgramFolder() + u"icons"_qs);
    const XdgDesktopIcons desktop;
    return FileIcons(desktop, ProgramFolder()).GetProgIDIcon(type, associations.currentHandler(type));
}

} // namespace quorvel
