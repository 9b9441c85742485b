#pragma once
// Test media made with ffmpeg's generators. Clips are cached in the build
// folder by name, so a suite makes each one once.

#include <QString>
#include <QStringList>

namespace quorvel::test {

// Runs ffmpeg with `args` (output path appended) unless `name` exists in the
// test media folder; returns the path, or an empty string when ffmpeg failed.
QString makeMedia(const QString &name, const QStringList &args);
// The same with `args` in one line, split at blanks (so none may hold one).
inline QString makeMedia(const QString &name, const QString &args)
{
    return makeMedia(name, args.split(u' ', Qt::SkipEmptyParts));
}

// A clip with picture (testsrc2) and a sine tone of `seconds` length.
QString makeClip(const QString &name, double seconds, const QString &size = QStringLiteral("320x240"));

// A DVD-Video folder (VIDEO_TS with one title) of a `seconds` long NTSC
// clip, made with ffmpeg and dvdauthor; empty when a tool failed.
QString makeDvdFolder(const QString &name, double seconds);

QString testMediaDir();
QString programDir();

// Runs a program and returns its exit code (-1 when it could not start);
// standard output and error go to `output` when given.
int runTool(const QString &program, const QStringList &args, QString *output = nullptr, int timeoutMs = 120000);

} // namespace quorvel::test
