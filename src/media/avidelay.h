#pragma once
// Finds out how late each audio stream of an AVI file starts: its start time
// from the stream header plus the time of the audio bytes in front of the
// first decodable frame of its first data chunk. Reads the file directly with
// clsRIFFParser; no decoder is involved. Instances share nothing, so probes on
// several threads may each use their own.

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvel {

// One "strh" of the file, with the wave format of an audio stream.
struct AviStreamRecord {
    // stream header
    QByteArray fccType;
    QByteArray fccHandler;
    quint32 dwFlags = 0;
    quint16 wPriority = 0;
    quint16 wLanguage = 0;
    quint32 dwInitialFrames = 0;
    quint32 dwScale = 0;
    quint32 dwRate = 1; // a rate of 0 in the file is taken as 1
    quint32 dwStart = 0;
    quint32 dwLength = 0;
    quint32 dwSuggestedBufferSize = 0;
    quint32 dwQuality = 0;
    quint32 dwSampleSize = 0;
    qint16 rcFrame[4] = {0, 0, 0, 0};
    // wave format (audio streams only)
    quint16 wFormatTag = 0;
    quint16 nChannels = 0;
    quint32 nSamplesPerSec = 0;
    quint32 nAvgBytesPerSec = 1; // until a "strf" gives the real rate
    quint16 nBlockAlign = 0;
    quint16 wBitsPerSample = 0;
    quint16 cbSize = 0;
    // scan state
    qint64 byteCounter = 0;
    qint32 Delay = -1;
};

class clsAVIDelay {
public:
    static constexpr qint32 kDelayUnknown = -1; // the stream's data lies beyond the scan
    static constexpr qint32 kDelayGivenUp = -2; // no frame sync in the first audio bytes

    // Audio format tags whose frames are searched for a sync.
    static constexpr quint16 kTagAC3 = 0x2000;
    static constexpr quint16 kTagMpeg = 0x50;
    static constexpr quint16 kTagMpegLayer3 = 0x55;

    // The scan stops once it has read past this byte of the file...
    static constexpr qint64 kScanLimit = 2'500'000;
    // ...and gives up on a stream after this many audio bytes without a sync.
    static constexpr qint64 kSyncLimit = 1'500'000;

    // Parses the file. True when it is a RIFF "AVI " file that could be read
    // to the end of the scan; the stream records are kept either way.
    bool OpenFile(const QString &FileName);

    QString FileName() const { return m_fileName; }
    // Number of "strh" chunks seen.
    int StreamCount() const { return int(m_streams.size()); }
    // Delay of stream Index in milliseconds, or kDelayUnknown / kDelayGivenUp.
    // Out-of-range indices give kDelayUnknown.
    qint32 StreamDelay(int Index) const;
    // True when stream Index is an audio stream ("auds").
    bool StreamIsAudio(int Index) const;
    const QList<AviStreamRecord> &Streams() const { return m_streams; }
    // Why the last OpenFile returned false (for the log), empty after success.
    QString ErrorText() const { return m_errorText; }

    // The position of the first frame sync for the given format tag within
    // `data`, or -1. Only pairs that lie wholly inside `data` count.
    static qint64 FindFrameSync(quint16 formatTag, const char *data, qint64 size);

private:
    bool fail(const QString &why);

    QString m_fileName;
    QList<AviStreamRecord> m_streams;
    QString m_errorText;
};

} // namespace quorvel
