#pragma once
// Whole files in and out, for tests that lay out or inspect files on disk.

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvel::test {

// Writes `bytes` to `path`, making its folder first; false when it could not.
inline bool writeFile(const QString &path, const QByteArray &bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

// The bytes of `path`, or `missing` when it cannot be read.
inline QByteArray readFile(const QString &path, const QByteArray &missing = {})
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : missing;
}

} // namespace quorvel::test
