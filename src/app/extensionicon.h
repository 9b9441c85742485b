#pragma once
// The icon the association list shows next to a media extension.

#include <QIcon>
#include <QString>

namespace quorvel {

// The icon of files with `extension` ("mkv", no dot) on the user's desktop:
// the type's theme icon, else its default handler's icon, else the
// program's "unknown" picture.
QIcon GetExtensionIcon(const QString &extension);

} // namespace quorvel
