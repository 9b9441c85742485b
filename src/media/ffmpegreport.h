#pragma once
// Reading what ffmpeg and mpgtx print about a file, and writing the report
// the playlist keeps. Pure functions of text, so they can be tested and
// fuzzed without running any tool.
//
// ffmpeg's report has changed over the years: today a codec carries details
// in parentheses ("aac (LC) (mp4a / 0x6134706D)"), pixel formats carry their
// own comma lists ("yuv420p(tv, bt709)"), channel layouts read "5.1(side)"
// and bit rates stand in any later field. The parser reads both that and the
// older form ("mp3, 44100 Hz, stereo, 128 kb/s"; "5:1" channels).

#include "media/mediasource.h"
#include "media/mediatables.h"

#include <QHash>
#include <QSize>
#include <QString>
#include <QStringList>

namespace quorvel {

// `LoadMapFile`: "key, display name" per line, split at the first comma and
// trimmed; lines without a comma are skipped; numeric keys never match a codec.
QHash<QString, QString> LoadMapFile(const QString &path);
QHash<QString, QString> ParseMapText(const QString &text);
QString MapCodec(const QHash<QString, QString> &map, const QString &name);
bool IsUnsupportedAudio(const QString &name);

// Seconds of "hh:mm:ss.t"; only the first digit after the point counts; "N/A" is 0.
float ParseDuration(const QString &text);
QString GetAspectName(float ratio);
// The fields of a stream description, split at ", " outside parentheses and brackets.
QStringList SplitStreamFields(const QString &text);

struct ReportParse {
    bool ok = false;
    QString reason;      // why the file is refused (when !ok)
    QStringList notices; // messages for the user, in order
    clsSource source;    // streams as found, before the completion steps
    QSize coverSize;     // the first attached picture (cover art), when there is one
};
// Parses ffmpeg's report of `fileName`; `report` starts with the command line.
ReportParse ParseFfmpegReport(const QString &report, const QString &fileName, const MediaTables &tables);

struct MpgtxDetails {
    float aspectRatio = 0;
    float fps = 0;
    bool interlaced = false;
};
MpgtxDetails ParseMpgtxReport(const QString &report);

// The report text the playlist keeps for the file.
QString BuildReport(const clsSource &source);

// Text as the report writes a single-precision number ("25", "29.97").
QString SingleText(float value);

inline const QString kUnsupportedFormat = QStringLiteral("Unsupported file format or the file is corrupted.");
inline const QString kIncompleteFile = QStringLiteral("File may be incomplete or corrupted.");

} // namespace quorvel
