#pragma once
// Playlist files: XSPF and M3U8 (UTF-8 M3U), read and written without a
// window. Paths of files in the playlist's own folder or below it are written
// relative to that folder, so a playlist kept beside its media still works
// after the whole folder moves; everything else is written absolute.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace quorvel {

struct PlaylistDocument {
    QStringList paths;     // in playlist order, absolute (or engine locations)
    int current = -1;      // index of the current item, -1 for none
    qint64 positionMs = 0; // where the current item was
};

enum class PlaylistFormat { Xspf, M3u8 };

// By the file's extension: ".m3u8" and ".m3u" are M3U, anything else XSPF.
PlaylistFormat PlaylistFormatOf(const QString &filePath);

// `baseDir` is the playlist's folder: paths below it are written relative;
// empty writes every path absolute.
QByteArray WritePlaylist(const PlaylistDocument &doc, PlaylistFormat format, const QString &baseDir = {});
// Either format, told apart by the content; relative entries are resolved
// against `baseDir`. Empty with `error` set when the text is no playlist.
std::optional<PlaylistDocument> ReadPlaylist(const QByteArray &data, const QString &baseDir, QString *error = nullptr);

// The same on files; writing goes through a temporary file and a rename.
bool SavePlaylistFile(const QString &filePath, const PlaylistDocument &doc, QString *error = nullptr);
std::optional<PlaylistDocument> LoadPlaylistFile(const QString &filePath, QString *error = nullptr);

} // namespace quorvel
