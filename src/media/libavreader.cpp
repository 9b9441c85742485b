#include "libavreader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdarg>
#include <mutex>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/error.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

namespace quorvel {

namespace {

// Lines logged on this thread while a capture runs; other threads' and
// uncaptured logging go on to the library's own handler.
thread_local QByteArray *t_capture = nullptr;
thread_local int t_printPrefix = 1;

void logCallback(void *avcl, int level, const char *fmt, va_list vl)
{
    if (!t_capture) {
        av_log_default_callback(avcl, level, fmt, vl);
        return;
    }
    if (level > AV_LOG_INFO)
        return;
    char line[2048];
    av_log_format_line2(avcl, level, fmt, vl, line, sizeof line, &t_printPrefix);
    t_capture->append(line);
}

void installLogCapture()
{
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_callback(logCallback); });
}

class Capture {
public:
    explicit Capture(QByteArray *into)
    {
        installLogCapture();
        t_printPrefix = 1;
        t_capture = into;
    }
    ~Capture() { t_capture = nullptr; }
};

// An opened input whose every blocking step (open, probing, reading) is cut
// off by the library once the deadline has passed.
class Input {
public:
    explicit Input(int timeoutMs)
        : m_deadline(std::chrono::steady_clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0)))
    {
        ctx = avformat_alloc_context();
        if (ctx)
            ctx->interrupt_callback = {&Input::interrupted, this};
    }
    ~Input() { avformat_close_input(&ctx); } // also frees a context that never opened
    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;

    // avformat_open_input's result; the context is freed on failure.
    int open(const QByteArray &url)
    {
        if (!ctx)
            return AVERROR(ENOMEM);
        return avformat_open_input(&ctx, url.constData(), nullptr, nullptr);
    }
    bool pastDeadline() const { return (cancel && cancel->load()) || std::chrono::steady_clock::now() >= m_deadline; }
    // A context kept open gives each later step a deadline of its own.
    void restart(int timeoutMs)
    {
        m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
    }

    AVFormatContext *ctx = nullptr;
    const std::atomic<bool> *cancel = nullptr; // cuts every step short once set

private:
    static int interrupted(void *self) { return static_cast<const Input *>(self)->pastDeadline() ? 1 : 0; }
    std::chrono::steady_clock::time_point m_deadline;
};

// `wanted` pixels wide and as high as the picture's shape gives (even, at
// least 2), the pixels' own aspect included.
QSize scaledSize(int width, int height, AVRational sampleAspect, int wanted)
{
    double shown = width;
    if (sampleAspect.num > 0 && sampleAspect.den > 0)
        shown = width * av_q2d(sampleAspect);
    const int h = shown > 0 ? int(std::lround(wanted * height / shown)) & ~1 : 0;
    return {wanted, std::max(h, 2)};
}

QString errorText(int err)
{
    char buf[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(err, buf, sizeof buf);
    return QString::fromUtf8(buf);
}

// The library reads "proto:..." as a protocol, like the tool: name the file
// by its absolute path, marked as a file.
QByteArray urlOf(const QString &fileName)
{
    return "file:" + QFile::encodeName(QFileInfo(fileName).absoluteFilePath());
}

} // namespace

QString LibavReport(const QString &fileName, int timeoutMs, bool *timedOut)
{
    QByteArray text;
    Capture capture(&text);
    Input in(timeoutMs);
    const QByteArray path = urlOf(fileName);
    int err = in.open(path);
    if (timedOut)
        *timedOut = err == AVERROR_EXIT || (err < 0 && in.pastDeadline());
    if (err < 0)
        return QString::fromUtf8(text) + fileName + QStringLiteral(": ") + errorText(err) + u'\n';
    err = avformat_find_stream_info(in.ctx, nullptr);
    if (in.pastDeadline()) {
        if (timedOut)
            *timedOut = true;
        return QString::fromUtf8(text) + fileName + QStringLiteral(": ") + errorText(AVERROR_EXIT) + u'\n';
    }
    if (err < 0)
        text += path + ": could not find codec parameters\n";
    av_dump_format(in.ctx, 0, path.constData(), 0);
    return QString::fromUtf8(text);
}

QImage LibavCoverArt(const QString &fileName, int width, int height, int timeoutMs)
{
    if (width <= 0 || height <= 0)
        return {};
    QByteArray quiet;
    Capture capture(&quiet);
    Input in(timeoutMs);
    if (in.open(urlOf(fileName)) < 0)
        return {};
    // The demuxer reads attached pictures while opening; no probing needed.
    for (unsigned i = 0; i < in.ctx->nb_streams; ++i) {
        const AVStream *st = in.ctx->streams[i];
        if (!(st->disposition & AV_DISPOSITION_ATTACHED_PIC) || st->attached_pic.size <= 0)
            continue;
        const QImage picture = QImage::fromData(st->attached_pic.data, st->attached_pic.size);
        if (!picture.isNull())
            return picture.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return {};
}

QImage LibavFrame(const QString &fileName, int width, int height, float offset, int timeoutMs)
{
    if (width <= 0 || height <= 0)
        return {};
    QByteArray quiet;
    Capture capture(&quiet); // decoder chatter stays out of the terminal
    Input f(timeoutMs);
    if (f.open(urlOf(fileName)) < 0 || avformat_find_stream_info(f.ctx, nullptr) < 0)
        return {};
    const AVCodec *codec = nullptr;
    const int index = av_find_best_stream(f.ctx, AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
    if (index < 0 || !codec)
        return {};
    AVStream *stream = f.ctx->streams[index];
    AVCodecContext *dec = avcodec_alloc_context3(codec);
    AVFrame *frame = av_frame_alloc();
    AVPacket *pkt = av_packet_alloc();
    SwsContext *sws = nullptr;
    QImage result;
    do {
        if (!dec || !frame || !pkt || avcodec_parameters_to_context(dec, stream->codecpar) < 0
            || avcodec_open2(dec, codec, nullptr) < 0)
            break;
        // Seek to the key frame before the offset, then decode up to it, as
        // the tool's input seek does.
        const int64_t target = av_rescale_q(int64_t(double(offset) * AV_TIME_BASE), AV_TIME_BASE_Q, stream->time_base)
                               + (stream->start_time != AV_NOPTS_VALUE ? stream->start_time : 0);
        av_seek_frame(f.ctx, index, target, AVSEEK_FLAG_BACKWARD);
        bool have = false;
        bool draining = false;
        while (!have) {
            int r = draining ? AVERROR_EOF : av_read_frame(f.ctx, pkt);
            if (r == AVERROR_EOF && !draining) {
                draining = true;
                avcodec_send_packet(dec, nullptr);
            } else if (r < 0 && !draining) {
                break;
            } else if (!draining) {
                if (pkt->stream_index == index)
                    avcodec_send_packet(dec, pkt);
                av_packet_unref(pkt);
            }
            while (avcodec_receive_frame(dec, frame) == 0) {
                const int64_t pts = frame->best_effort_timestamp;
                if (pts == AV_NOPTS_VALUE || pts >= target || draining) {
                    have = true;
                    break;
                }
                av_frame_unref(frame);
            }
            if (draining && !have)
                break;
        }
        if (!have)
            break;
        sws = sws_getContext(frame->width, frame->height, AVPixelFormat(frame->format), width, height, AV_PIX_FMT_RGB32,
                             SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
        if (!sws)
            break;
        QImage img(width, height, QImage::Format_RGB32);
        uint8_t *dst[4] = {img.bits(), nullptr, nullptr, nullptr};
        const int dstStride[4] = {int(img.bytesPerLine()), 0, 0, 0};
        if (sws_scale(sws, frame->data, frame->linesize, 0, frame->height, dst, dstStride) > 0)
            result = img;
    } while (false);
    sws_freeContext(sws);
    av_packet_free(&pkt);
    av_frame_free(&frame);
    avcodec_free_context(&dec);
    return result;
}

struct LibavFrameReader::Private {
    ~Private()
    {
        sws_freeContext(sws);
        av_packet_free(&key);
        av_packet_free(&pkt);
        av_frame_free(&frame);
        avcodec_free_context(&dec);
    }
    int64_t origin() const { return stream->start_time != AV_NOPTS_VALUE ? stream->start_time : 0; }
    qint64 msOf(int64_t pts) const
    {
        return std::max<qint64>(0, av_rescale_q(pts - origin(), stream->time_base, AVRational{1, 1000}));
    }
    // Decodes on from the key packet until the first picture comes out.
    bool decodeOn()
    {
        for (int read = 0; read < 2000 && !in->pastDeadline();) {
            const int r = avcodec_receive_frame(dec, frame);
            if (r == 0)
                return true;
            if (r != AVERROR(EAGAIN))
                return false;
            if (av_read_frame(in->ctx, pkt) < 0) {
                avcodec_send_packet(dec, nullptr);
                continue;
            }
            if (pkt->stream_index == index) {
                avcodec_send_packet(dec, pkt);
                ++read;
            }
            av_packet_unref(pkt);
        }
        return false;
    }

    std::unique_ptr<Input> in;
    int index = -1;
    AVStream *stream = nullptr;
    AVCodecContext *dec = nullptr;
    AVPacket *key = av_packet_alloc(); // the key frame's packet the last seek found
    AVPacket *pkt = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    SwsContext *sws = nullptr;
    bool haveKey = false;
    QImage cover;
};

LibavFrameReader::LibavFrameReader() = default;
LibavFrameReader::~LibavFrameReader() = default;

bool LibavFrameReader::open(const QString &fileName, int timeoutMs, const std::atomic<bool> *cancel)
{
    d = std::make_unique<Private>();
    QByteArray quiet;
    Capture capture(&quiet);
    d->in = std::make_unique<Input>(timeoutMs);
    d->in->cancel = cancel;
    if (!d->key || !d->pkt || !d->frame || d->in->open(urlOf(fileName)) < 0) {
        d.reset();
        return false;
    }
    AVFormatContext *ctx = d->in->ctx;
    for (unsigned i = 0; i < ctx->nb_streams && d->cover.isNull(); ++i) {
        const AVStream *st = ctx->streams[i];
        if ((st->disposition & AV_DISPOSITION_ATTACHED_PIC) && st->attached_pic.size > 0)
            d->cover = QImage::fromData(st->attached_pic.data, st->attached_pic.size);
    }
    if (avformat_find_stream_info(ctx, nullptr) < 0 && d->in->pastDeadline())
        return !d->cover.isNull();
    // A song's cover art is a video stream of one picture: not a film.
    int index = av_find_best_stream(ctx, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index >= 0 && (ctx->streams[index]->disposition & AV_DISPOSITION_ATTACHED_PIC)) {
        index = -1;
        for (unsigned i = 0; i < ctx->nb_streams && index < 0; ++i) {
            const AVStream *st = ctx->streams[i];
            if (st->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && !(st->disposition & AV_DISPOSITION_ATTACHED_PIC))
                index = int(i);
        }
    }
    const AVCodec *codec = index >= 0 ? avcodec_find_decoder(ctx->streams[index]->codecpar->codec_id) : nullptr;
    if (!codec)
        return true;
    d->dec = avcodec_alloc_context3(codec);
    if (!d->dec || avcodec_parameters_to_context(d->dec, ctx->streams[index]->codecpar) < 0)
        return true;
    // One picture per answer: threads would only add their start-up.
    d->dec->thread_count = 1;
    if (avcodec_open2(d->dec, codec, nullptr) < 0) {
        avcodec_free_context(&d->dec);
        return true;
    }
    d->index = index;
    d->stream = ctx->streams[index];
    return true;
}

bool LibavFrameReader::hasVideo() const
{
    return d && d->dec;
}

QImage LibavFrameReader::coverArt(int width) const
{
    if (!d || d->cover.isNull() || width <= 0)
        return {};
    return d->cover.scaledToWidth(width, Qt::SmoothTransformation);
}

qint64 LibavFrameReader::seekKeyframe(qint64 ms, int timeoutMs)
{
    if (!hasVideo())
        return -1;
    QByteArray quiet;
    Capture capture(&quiet);
    d->in->restart(timeoutMs);
    d->haveKey = false;
    av_packet_unref(d->key);
    AVFormatContext *ctx = d->in->ctx;
    const int64_t ts = av_rescale_q(std::max<qint64>(ms, 0), AVRational{1, 1000}, d->stream->time_base) + d->origin();
    // Before the first key frame there is none further back: take the first.
    if (av_seek_frame(ctx, d->index, ts, AVSEEK_FLAG_BACKWARD) < 0 && av_seek_frame(ctx, d->index, ts, 0) < 0)
        return -1;
    // Some demuxers land a little before the key frame.
    for (int n = 0; n < 5000 && !d->in->pastDeadline(); ++n) {
        if (av_read_frame(ctx, d->key) < 0)
            break;
        if (d->key->stream_index == d->index && (d->key->flags & AV_PKT_FLAG_KEY)) {
            d->haveKey = true;
            const int64_t pts = d->key->pts != AV_NOPTS_VALUE ? d->key->pts : d->key->dts;
            return pts != AV_NOPTS_VALUE ? d->msOf(pts) : ms;
        }
        av_packet_unref(d->key);
    }
    av_packet_unref(d->key);
    return -1;
}

QImage LibavFrameReader::decodeKeyframe(int width, int timeoutMs)
{
    if (!hasVideo() || !d->haveKey || width <= 0)
        return {};
    QByteArray quiet;
    Capture capture(&quiet);
    d->in->restart(timeoutMs);
    AVCodecContext *dec = d->dec;
    // The key frame alone, then the end of input, makes the decoder hand
    // out that one picture without waiting for the frames after it.
    avcodec_flush_buffers(dec);
    bool have = avcodec_send_packet(dec, d->key) >= 0 && avcodec_send_packet(dec, nullptr) >= 0
                && avcodec_receive_frame(dec, d->frame) == 0;
    if (!have) {
        // A picture split over packets (fields, slices) needs those after it.
        avcodec_flush_buffers(dec);
        have = avcodec_send_packet(dec, d->key) >= 0 && d->decodeOn();
    }
    d->haveKey = false;
    if (!have)
        return {};
    AVFrame *f = d->frame;
    const AVRational sar = f->sample_aspect_ratio.num > 0 ? f->sample_aspect_ratio : d->stream->sample_aspect_ratio;
    const QSize size = scaledSize(f->width, f->height, sar, width);
    QImage img(size, QImage::Format_RGB32);
    d->sws = sws_getCachedContext(d->sws, f->width, f->height, AVPixelFormat(f->format), size.width(), size.height(),
                                  AV_PIX_FMT_RGB32, SWS_AREA, nullptr, nullptr, nullptr);
    uint8_t *dst[4] = {img.bits(), nullptr, nullptr, nullptr};
    const int dstStride[4] = {int(img.bytesPerLine()), 0, 0, 0};
    const bool scaled = d->sws && sws_scale(d->sws, f->data, f->linesize, 0, f->height, dst, dstStride) > 0;
    av_frame_unref(f);
    return scaled ? img : QImage();
}

} // namespace quorvel
