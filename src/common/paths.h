#pragma once
// Path helpers and the media extension table shared by every subsystem.
// Paths are split at the platform's separator only; the text is never
// normalised, so a path comes back exactly as it went in.

#include <QString>
#include <QStringList>
#include <array>

namespace quorvel {

#ifdef Q_OS_WIN
inline constexpr QChar kPathSeparator = u'\\';
#else
inline constexpr QChar kPathSeparator = u'/';
#endif

// The 24 media extensions in their fixed order. The index of an extension is
// also its index in the association flags of the settings.
inline constexpr int kMediaExtensionCount = 24;
const std::array<QString, kMediaExtensionCount> &MediaExtensions();

// The text after the last separator, or the whole path when there is none.
QString GetFileTitle(const QString &path);
// The text before the last separator, or the whole path when there is none.
QString GetFolderOf(const QString &path);
// True when the lower-cased text after the last dot of the last path
// component is one of the media extensions.
bool IsSupportedFile(const QString &path);
// Index of the path's extension in the table, or -1.
int MediaExtensionIndex(const QString &path);
// Removes a file when it exists; returns false only when removal failed.
bool DeleteIfExists(const QString &path);

// Folder of the running executable, always ending in one separator.
QString ProgramFolder();

} // namespace quorvel
