#include "libavreader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <chrono>
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
    bool pastDeadline() const { return std::chrono::steady_clock::now() >= m_deadline; }

    AVFormatContext *ctx = nullptr;

private:
    static int interrupted(void *self) { return static_cast<const Input *>(self)->pastDeadline() ? 1 : 0; }
    std::chrono::steady_clock::time_point m_deadline;
};

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

} // namespace quorvel
