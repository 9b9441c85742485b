#include "avidelay.h"

#include "common/logging.h"
#include "riffparser.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorvel {

namespace {

constexpr qint64 kStreamHeaderSize = 56; // "strh" up to and including rcFrame
constexpr qint64 kWaveFormatSize = 18;   // "strf" of audio up to and including cbSize
constexpr qint64 kSearchBlock = 64 * 1024;

// Rounds to the nearest integer with halves going to the even neighbour, the
// rounding every delay uses. False when the value is no number or does not
// fit a delay; a hostile header can ask for either.
bool roundToDelay(double value, qint32 *out)
{
    if (!std::isfinite(value))
        return false;
    double rounded = std::floor(value);
    const double fraction = value - rounded;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(rounded, 2.0) != 0.0))
        rounded += 1.0;
    if (rounded < double(std::numeric_limits<qint32>::min()) || rounded > double(std::numeric_limits<qint32>::max()))
        return false;
    *out = qint32(rounded);
    return true;
}

// The stream's own start in milliseconds, before rounding.
double startTerm(const AviStreamRecord &s)
{
    return double(s.dwStart) * double(s.dwScale) / double(s.dwRate) * 1000.0;
}

bool isSearchedFormat(quint16 tag)
{
    return tag == clsAVIDelay::kTagAC3 || tag == clsAVIDelay::kTagMpeg || tag == clsAVIDelay::kTagMpegLayer3;
}

// Reads the start of the current chunk's data into `buffer` (zeroed first):
// `wanted` bytes, or fewer when the chunk is shorter. Bytes of the next item
// never stand in for a short chunk's missing fields.
bool readChunkStart(clsRIFFParser &parser, char *buffer, qint64 wanted)
{
    std::fill(buffer, buffer + wanted, 0);
    return parser.Read(buffer, std::min<qint64>(wanted, parser.DeclaredSize()));
}

void parseStreamHeader(const char *d, AviStreamRecord &s)
{
    s.fccType = QByteArray(d, 4);
    s.fccHandler = QByteArray(d + 4, 4);
    s.dwFlags = qFromLittleEndian<quint32>(d + 8);
    s.wPriority = qFromLittleEndian<quint16>(d + 12);
    s.wLanguage = qFromLittleEndian<quint16>(d + 14);
    s.dwInitialFrames = qFromLittleEndian<quint32>(d + 16);
    s.dwScale = qFromLittleEndian<quint32>(d + 20);
    s.dwRate = qFromLittleEndian<quint32>(d + 24);
    s.dwStart = qFromLittleEndian<quint32>(d + 28);
    s.dwLength = qFromLittleEndian<quint32>(d + 32);
    s.dwSuggestedBufferSize = qFromLittleEndian<quint32>(d + 36);
    s.dwQuality = qFromLittleEndian<quint32>(d + 40);
    s.dwSampleSize = qFromLittleEndian<quint32>(d + 44);
    for (int i = 0; i < 4; ++i)
        s.rcFrame[i] = qFromLittleEndian<qint16>(d + 48 + 2 * i);
    if (s.dwRate == 0)
        s.dwRate = 1;
}

void parseWaveFormat(const char *d, AviStreamRecord &s)
{
    s.wFormatTag = qFromLittleEndian<quint16>(d);
    s.nChannels = qFromLittleEndian<quint16>(d + 2);
    s.nSamplesPerSec = qFromLittleEndian<quint32>(d + 4);
    s.nAvgBytesPerSec = qFromLittleEndian<quint32>(d + 8);
    s.nBlockAlign = qFromLittleEndian<quint16>(d + 12);
    s.wBitsPerSample = qFromLittleEndian<quint16>(d + 14);
    s.cbSize = qFromLittleEndian<quint16>(d + 16);
}

// Searches the current chunk's data for the first frame sync, block by block
// so that a huge chunk costs no memory. The data must lie in the file (its
// pad byte may be missing at the very end). Returns false on a read error;
// `found` is the position or -1.
bool searchChunk(clsRIFFParser &parser, quint16 formatTag, qint64 *found)
{
    *found = -1;
    const qint64 dataStart = parser.Position();
    const qint64 length = parser.FileLength();
    if (dataStart + qint64(parser.DeclaredSize()) > length)
        return false;
    const qint64 available = std::min(parser.ChunkSize(), length - dataStart);

    QByteArray buffer(kSearchBlock + 1, Qt::Uninitialized);
    qint64 base = 0;    // offset within the data of buffer[0]
    qint64 carried = 0; // bytes kept at the front of the buffer from the last block
    while (base + carried < available) {
        const qint64 n = std::min<qint64>(kSearchBlock, available - base - carried);
        if (!parser.Read(buffer.data() + carried, n))
            return false;
        const qint64 total = carried + n;
        const qint64 p = clsAVIDelay::FindFrameSync(formatTag, buffer.constData(), total);
        if (p >= 0) {
            *found = base + p;
            break;
        }
        // The last byte may be the first of a pair that ends in the next block.
        buffer[0] = buffer[total - 1];
        base += total - 1;
        carried = 1;
    }
    // The read position ends behind the data, as if all of it had been read.
    return parser.Seek(dataStart + parser.ChunkSize());
}

} // namespace

qint64 clsAVIDelay::FindFrameSync(quint16 formatTag, const char *data, qint64 size)
{
    const auto *b = reinterpret_cast<const unsigned char *>(data);
    if (formatTag == kTagAC3) {
        for (qint64 i = 0; i + 1 < size; ++i) {
            if (b[i] == 0x0B && b[i + 1] == 0x77)
                return i;
        }
    } else if (formatTag == kTagMpeg || formatTag == kTagMpegLayer3) {
        for (qint64 i = 0; i + 1 < size; ++i) {
            if (b[i] == 0xFF && (b[i + 1] & 0x03) == 0x03)
                return i;
        }
    }
    return -1;
}

qint32 clsAVIDelay::StreamDelay(int Index) const
{
    if (Index < 0 || Index >= m_streams.size())
        return kDelayUnknown;
    return m_streams.at(Index).Delay;
}

bool clsAVIDelay::StreamIsAudio(int Index) const
{
    if (Index < 0 || Index >= m_streams.size())
        return false;
    return m_streams.at(Index).fccType == "auds";
}

bool clsAVIDelay::fail(const QString &why)
{
    m_errorText = why;
    qCDebug(lcMedia) << "AVI delay scan of" << m_fileName << "stopped:" << why;
    return false;
}

bool clsAVIDelay::OpenFile(const QString &FileName)
{
    m_fileName = FileName;
    m_streams.clear();
    m_errorText.clear();

    clsRIFFParser parser;
    if (!parser.OpenFile(FileName))
        return fail(QStringLiteral("not a readable RIFF file"));
    if (parser.FileType() != "AVI ")
        return fail(QStringLiteral("RIFF form is not AVI"));

    // Every GetChunk starts at least eight bytes further into the file than
    // the one before, and the loop ends at "eof" or past kScanLimit, so the
    // scan always ends.
    for (;;) {
        if (!parser.GetChunk())
            return fail(QStringLiteral("read error at byte %1").arg(parser.Position()));
        if (parser.ItemKind() == clsRIFFParser::Item::Eof)
            break;
        if (parser.ItemKind() == clsRIFFParser::Item::Chunk) {
            const QByteArray id = parser.ChunkName();
            if (id == "strh") {
                char raw[kStreamHeaderSize];
                if (!readChunkStart(parser, raw, kStreamHeaderSize))
                    return fail(QStringLiteral("stream header cut short"));
                AviStreamRecord record;
                parseStreamHeader(raw, record);
                m_streams.append(record);
            } else if (id == "strf") {
                if (!m_streams.isEmpty() && m_streams.last().fccType == "auds") {
                    char raw[kWaveFormatSize];
                    if (!readChunkStart(parser, raw, kWaveFormatSize))
                        return fail(QStringLiteral("stream format cut short"));
                    parseWaveFormat(raw, m_streams.last());
                }
            } else if (id.endsWith("wb")) {
                const char d0 = id.at(0);
                const char d1 = id.at(1);
                if (d0 < '0' || d0 > '9' || d1 < '0' || d1 > '9')
                    return fail(QStringLiteral("audio chunk id without a stream number"));
                const int index = (d0 - '0') * 10 + (d1 - '0');
                if (index >= m_streams.size())
                    return fail(QStringLiteral("audio chunk of stream %1 without a stream header").arg(index));
                AviStreamRecord &s = m_streams[index];
                if (s.Delay == kDelayUnknown) {
                    qint32 delay = 0;
                    if (parser.ChunkSize() > 0 && isSearchedFormat(s.wFormatTag)) {
                        qint64 sync = -1;
                        if (!searchChunk(parser, s.wFormatTag, &sync))
                            return fail(QStringLiteral("audio chunk of stream %1 cut short").arg(index));
                        if (sync >= 0) {
                            s.byteCounter += sync;
                            if (s.nAvgBytesPerSec == 0)
                                return fail(QStringLiteral("stream %1 has a byte rate of 0").arg(index));
                            if (!roundToDelay(double(s.byteCounter) / double(s.nAvgBytesPerSec) * 1000.0, &delay)
                                || !roundToDelay(double(delay) + startTerm(s), &delay))
                                return fail(QStringLiteral("delay of stream %1 out of range").arg(index));
                            s.Delay = delay;
                        }
                        s.byteCounter += parser.ChunkSize();
                        if (s.byteCounter > kSyncLimit)
                            s.Delay = kDelayGivenUp;
                    } else {
                        if (!roundToDelay(startTerm(s), &delay))
                            return fail(QStringLiteral("start of stream %1 out of range").arg(index));
                        s.Delay = delay;
                    }
                }
            }
        }
        if (parser.Position() > kScanLimit)
            break;
    }
    return true;
}

} // namespace quorvel
