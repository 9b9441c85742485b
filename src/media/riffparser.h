#pragma once
// Walks a RIFF file one item at a time: chunks are stepped over, lists are
// entered, so a caller sees every chunk of the file in order. Every read is
// checked against the real file: a file that ends inside an item header
// reports "eof", a failing device reports a read error, and nothing is taken
// from memory that the file did not supply.

#include <QByteArray>
#include <QFile>
#include <QString>

namespace quorvel {

class clsRIFFParser {
public:
    enum class Item { None, Chunk, List, Eof };

    clsRIFFParser() = default;
    Q_DISABLE_COPY_MOVE(clsRIFFParser)

    // Opens the file for reading and reads its 12-byte header. True when the
    // first four bytes are "RIFF". The file stays open until the parser is
    // destroyed or opened again.
    bool OpenFile(const QString &MyFileName);

    // Reads the next item's header. Returns false only on a read error (no
    // open file, a failing seek or read); the end of the file is an item of
    // its own, "eof". After a chunk the read position is at its data; after a
    // list it is at the list's first item.
    bool GetChunk();

    // Moves the read position forward by ChunkSize from where it stands, so
    // that after a list the next GetChunk reads the item behind the list.
    bool SkipChunk();

    // The header of the file.
    QByteArray FileType() const { return m_fileType; }
    quint32 FileSize() const { return m_fileSize; }
    QString FileName() const { return m_fileName; }

    // The item read last: "chunk", "list" or "eof".
    QString ChunkType() const;
    Item ItemKind() const { return m_item; }
    // For a chunk its data size rounded up to even; for a list its size minus
    // the four bytes of its type (0 for a list too short to hold one).
    qint64 ChunkSize() const { return m_chunkSize; }
    // For a chunk the size as the file declares it, before rounding.
    quint32 DeclaredSize() const { return m_declaredSize; }
    // For a chunk its id, for a list its list type.
    QByteArray ChunkName() const { return m_chunkName; }
    // Items read so far, "eof" included.
    quint32 ChunkCount() const { return m_chunkCount; }

    // Reading inside the current item.
    qint64 Position() const;
    qint64 FileLength() const;
    bool Seek(qint64 position);
    // Reads exactly `count` bytes at the read position; false when the file
    // cannot supply them all.
    bool Read(char *buffer, qint64 count);
    // Reads up to `count` bytes; returns how many were read, -1 on an error.
    qint64 ReadSome(char *buffer, qint64 count);

private:
    QFile m_file;
    QString m_fileName;
    QByteArray m_fileType;
    quint32 m_fileSize = 0;
    Item m_item = Item::None;
    qint64 m_chunkSize = 0;
    quint32 m_declaredSize = 0;
    QByteArray m_chunkName;
    quint32 m_chunkCount = 0;
    qint64 m_nextPosition = 0; // 0: the next item starts where reading stands
};

} // namespace quorvel
