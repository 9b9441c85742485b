#pragma once
// Hand-made RIFF and AVI files for the parser tests: little-endian pieces put
// together byte by byte, so a test states exactly what the file holds.

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtEndian>

namespace quorvel::test {

inline QByteArray le32(quint32 v)
{
    QByteArray b(4, '\0');
    qToLittleEndian<quint32>(v, b.data());
    return b;
}

inline QByteArray le16(quint16 v)
{
    QByteArray b(2, '\0');
    qToLittleEndian<quint16>(v, b.data());
    return b;
}

// A chunk with its pad byte when the data size is odd.
inline QByteArray chunk(const char *id, const QByteArray &data)
{
    QByteArray b = QByteArray(id, 4) + le32(quint32(data.size())) + data;
    if (data.size() % 2)
        b.append('\0');
    return b;
}

inline QByteArray list(const char *type, const QByteArray &contents)
{
    return QByteArray("LIST") + le32(quint32(contents.size() + 4)) + QByteArray(type, 4) + contents;
}

inline QByteArray riff(const char *form, const QByteArray &contents)
{
    return QByteArray("RIFF") + le32(quint32(contents.size() + 4)) + QByteArray(form, 4) + contents;
}

inline QByteArray streamHeader(const char *fccType, quint32 scale, quint32 rate, quint32 start)
{
    QByteArray b = QByteArray(fccType, 4) + QByteArray(4, '\0'); // fccType, fccHandler
    b += le32(0) + le16(0) + le16(0) + le32(0);                   // flags, priority, language, initial frames
    b += le32(scale) + le32(rate) + le32(start);
    b += le32(0) + le32(0) + le32(0xFFFFFFFF) + le32(0); // length, buffer size, quality, sample size
    b += le16(0) + le16(0) + le16(0) + le16(0);          // rcFrame
    return b;
}

inline QByteArray waveFormat(quint16 tag, quint32 avgBytesPerSec, quint32 sampleRate = 48000, quint16 channels = 2)
{
    return le16(tag) + le16(channels) + le32(sampleRate) + le32(avgBytesPerSec) + le16(1) + le16(16) + le16(0);
}

inline QByteArray audioStreamList(quint16 tag, quint32 avgBytesPerSec, quint32 scale = 1, quint32 rate = 48000,
                                  quint32 start = 0)
{
    return list("strl", chunk("strh", streamHeader("auds", scale, rate, start))
                            + chunk("strf", waveFormat(tag, avgBytesPerSec)));
}

inline QByteArray videoStreamList()
{
    return list("strl", chunk("strh", streamHeader("vids", 1, 25, 0)) + chunk("strf", QByteArray(40, '\0')));
}

// RIFF "AVI " with a header list of the given stream lists and a movi list.
inline QByteArray avi(const QByteArray &streamLists, const QByteArray &movi)
{
    return riff("AVI ", list("hdrl", chunk("avih", QByteArray(56, '\0')) + streamLists) + list("movi", movi));
}

// Bytes that hold neither an AC-3 nor an MPEG frame sync.
inline QByteArray junk(int size)
{
    QByteArray b(size, '\0');
    for (int i = 0; i < size; ++i)
        b[i] = char(0x10 + (i * 37) % 0xC0);
    return b;
}

inline bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

inline QByteArray readBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace quorvel::test
