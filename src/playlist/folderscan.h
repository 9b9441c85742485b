#pragma once
// The media files of a folder in the order a person reads them: names
// compared as text with their numbers as numbers ("ep2" before "ep10"),
// ignoring case and accents as the user's language does.

#include <QString>
#include <QStringList>

namespace quorvel {

// Sorts names (or paths) in natural order.
void SortNaturally(QStringList &names);
// The full paths of the media files in `folder`, naturally ordered; with
// `subfolders`, each subfolder's files follow, subfolders in natural order.
QStringList MediaFilesIn(const QString &folder, bool subfolders);
// The files of a drop or a command: folders become their media files,
// files with a media extension stay, everything else is left out.
QStringList ExpandFolders(const QStringList &paths, bool subfolders);
// The media file that follows `path` in its folder's natural order and is
// not in `skip`; empty at the end of the folder.
QString NextInFolder(const QString &path, const QStringList &skip = {});

} // namespace quorvel
