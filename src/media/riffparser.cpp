#include "riffparser.h"

#include <QtEndian>

namespace quorvel {

namespace {

constexpr qint64 kFileHeaderSize = 12; // "RIFF", size, form type
constexpr qint64 kItemHeaderSize = 8;  // id, size

} // namespace

bool clsRIFFParser::OpenFile(const QString &MyFileName)
{
    if (m_file.isOpen())
        m_file.close();
    m_fileName = MyFileName;
    m_fileType.clear();
    m_fileSize = 0;
    m_item = Item::None;
    m_chunkSize = 0;
    m_declaredSize = 0;
    m_chunkName.clear();
    m_chunkCount = 0;
    m_nextPosition = 0;

    m_file.setFileName(MyFileName);
    if (!m_file.open(QIODevice::ReadOnly))
        return false;
    char header[kFileHeaderSize];
    if (!Read(header, kFileHeaderSize))
        return false;
    m_fileSize = qFromLittleEndian<quint32>(header + 4);
    m_fileType = QByteArray(header + 8, 4);
    return QByteArrayView(header, 4) == "RIFF";
}

QString clsRIFFParser::ChunkType() const
{
    switch (m_item) {
    case Item::Chunk:
        return QStringLiteral("chunk");
    case Item::List:
        return QStringLiteral("list");
    case Item::Eof:
        return QStringLiteral("eof");
    case Item::None:
        break;
    }
    return {};
}

bool clsRIFFParser::GetChunk()
{
    if (!m_file.isOpen())
        return false;
    if (m_nextPosition != 0) {
        if (!Seek(m_nextPosition))
            return false;
        m_nextPosition = 0;
    }
    ++m_chunkCount;
    m_chunkSize = 0;
    m_declaredSize = 0;
    m_chunkName.clear();

    // Each item starts at least eight bytes after the one before it, so a
    // caller that loops until "eof" always gets there.
    char header[kItemHeaderSize];
    const qint64 got = ReadSome(header, kItemHeaderSize);
    if (got < 0)
        return false;
    if (got < kItemHeaderSize) {
        m_item = Item::Eof;
        return true;
    }
    const quint32 size = qFromLittleEndian<quint32>(header + 4);
    if (QByteArrayView(header, 4) != "LIST") {
        m_item = Item::Chunk;
        m_declaredSize = size;
        m_chunkSize = qint64(size) + (size & 1);
        m_chunkName = QByteArray(header, 4);
        m_nextPosition = Position() + m_chunkSize;
        return true;
    }
    char listType[4];
    const qint64 gotType = ReadSome(listType, 4);
    if (gotType < 0)
        return false;
    if (gotType < 4) {
        m_item = Item::Eof;
        return true;
    }
    m_item = Item::List;
    m_declaredSize = size;
    m_chunkSize = size >= 4 ? qint64(size) - 4 : 0;
    m_chunkName = QByteArray(listType, 4);
    return true;
}

bool clsRIFFParser::SkipChunk()
{
    if (!m_file.isOpen())
        return false;
    return Seek(Position() + m_chunkSize);
}

qint64 clsRIFFParser::Position() const
{
    return m_file.pos();
}

qint64 clsRIFFParser::FileLength() const
{
    return m_file.size();
}

bool clsRIFFParser::Seek(qint64 position)
{
    // Seeking past the end is allowed; the next read then finds nothing.
    return position >= 0 && m_file.isOpen() && m_file.seek(position);
}

bool clsRIFFParser::Read(char *buffer, qint64 count)
{
    return ReadSome(buffer, count) == count;
}

qint64 clsRIFFParser::ReadSome(char *buffer, qint64 count)
{
    if (!m_file.isOpen() || count < 0)
        return -1;
    qint64 done = 0;
    while (done < count) {
        const qint64 n = m_file.read(buffer + done, count - done);
        if (n < 0)
            return -1;
        if (n == 0)
            break;
        done += n;
    }
    return done;
}

} // namespace quorvel
