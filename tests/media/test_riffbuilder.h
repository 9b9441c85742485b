#pragma once
// Hand-made RIFF and AVI files for the parser tests: little-endian pieces put
// together byte by byte, so a test states exactly what the file holds.

#include "support/files.h"
#include <QByteArray>
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
    return le32(v).left(2);
}

// A chunk with its pad byte when the data size is odd.
inline QByteArray chunk(const char *id, const QByteArray &data)
{
    return QByteArray(id, 4) + le32(quint32(data.size())) + data + QByteArray(data.size() % 2, '\0');
}

inline QByteArray list(const char *type, const QByteArray &contents)
{
    return "LIST" + le32(quint32(contents.size() + 4)) + QByteArray(type, 4) + contents;
}

inline QByteArray riff(const char *form, const QByteArray &contents)
{
    return "RIFF" + le32(quint32(contents.size() + 4)) + QByteArray(form, 4) + contents;
}

// "strh": type, handler, flags, priority and language, initial frames, then
// scale, rate and start; length, buffer size, quality, sample size, frame.
inline QByteArray streamHeader(const char *fccType, quint32 scale, quint32 rate, quint32 start)
{
    return QByteArray(fccType, 4) + QByteArray(12, '\0') + le32(0) + le32(scale) + le32(rate) + le32(start) + le32(0)
           + le32(0) + le32(0xFFFFFFFF) + le32(0) + QByteArray(8, '\0');
}

inline QByteArray audioStreamList(quint16 tag, quint32 avgBytesPerSec, quint32 scale = 1, quint32 rate = 48000,
                                  quint32 start = 0)
{
    const QByteArray wave = le16(tag) + le16(2) + le32(48000) + le32(avgBytesPerSec) + le16(1) + le16(16) + le16(0);
    return list("strl", chunk("strh", streamHeader("auds", scale, rate, start)) + chunk("strf", wave));
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

} // namespace quorvel::test
