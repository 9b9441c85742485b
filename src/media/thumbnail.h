#pragma once
// One frame of a video as a small JPEG picture, made by ffmpeg.

#include <QImage>
#include <QString>
#include <QStringList>

namespace quorvel {

// The offset as ffmpeg reads it: a point as decimal separator, up to seven
// significant digits ("1", "12.5", "0.3").
QString OffsetText(float seconds);

// ffmpeg's arguments for one frame of `fileName` at `offset` seconds, scaled
// to width x height, written to `workFile`. The seek and the analysis length
// are input options (before -i), the frame count and size output options.
QStringList ThumbnailArguments(const QString &fileName, int width, int height, float offset, const QString &workFile);

// `ExtractThumbnail`: the frame, or a null image when none could be made.
// `workFile` must be private to this call; any old file there is removed
// first, so a stale frame is never taken for a new one.
QImage ExtractThumbnail(const QString &fileName, int width, int height, float offset, const QString &workFile);

// The attached picture (cover art) of a sound file, the same way. A seek
// would skip it, so the first picture is taken.
QImage ExtractCoverArt(const QString &fileName, int width, int height, const QString &workFile);

} // namespace quorvel
