#include "ffmpegreport.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace quorvel {

namespace {

// The whole number at the start of `text` (after blanks); false when there is none.
bool leadingInt(const QString &text, qint64 *out)
{
    const QString t = text.trimmed();
    qsizetype end = 0;
    if (end < t.size() && (t[end] == u'-' || t[end] == u'+'))
        ++end;
    const qsizetype digits = end;
    while (end < t.size() && t[end].isDigit())
        ++end;
    if (end == digits)
        return false;
    bool ok = false;
    *out = t.left(end).toLongLong(&ok);
    return ok;
}

bool leadingNumber(const QString &text, double *out)
{
    static const QRegularExpression re(QStringLiteral("^\\s*([-+]?(\\d+\\.?\\d*|\\.\\d+))"));
    const auto m = re.match(text);
    if (!m.hasMatch())
        return false;
    *out = m.captured(1).toDouble();
    return true;
}

qint32 clampInt(qint64 v)
{
    return static_cast<qint32>(std::clamp<qint64>(v, INT32_MIN, INT32_MAX));
}

// "aac (LC) (mp4a / 0x6134706D)" -> "aac": the details are ffmpeg's, the
// codec is the first word.
QString codecOf(const QString &field)
{
    const qsizetype cut = field.indexOf(QLatin1String(" ("));
    return (cut < 0 ? field : field.left(cut)).trimmed();
}

// Channels of a layout: "stereo", "mono", "5:1" (older reports), "5.1(side)",
// "7.1", "quad", "6 channels".
bool channelsOf(const QString &field, qint32 *out)
{
    QString f = field.trimmed();
    if (f == u"stereo" || f == u"downmix") {
        *out = 2;
        return true;
    }
    if (f == u"mono") {
        *out = 1;
        return true;
    }
    qint64 v = 0;
    if (f.contains(u':')) {
        if (!leadingInt(f.left(f.indexOf(u':')), &v))
            return false;
        // Older reports wrote 5.1 as "5:1": five there means six.
        if (v == 5)
            v = 6;
    } else if (f.contains(QLatin1String("channel"))) {
        if (!leadingInt(f, &v))
            return false;
    } else {
        const qsizetype paren = f.indexOf(u'(');
        if (paren >= 0)
            f = f.left(paren);
        static const QRegularExpression layout(QStringLiteral("^(\\d+)\\.(\\d+)$"));
        const auto m = layout.match(f);
        if (m.hasMatch()) {
            v = m.captured(1).toInt() + m.captured(2).toInt();
        } else if (f == u"quad" || f.startsWith(QLatin1String("4.0"))) {
            v = 4;
        } else if (f == u"hexagonal") {
            v = 6;
        } else if (f == u"octagonal") {
            v = 8;
        } else if (!leadingInt(f, &v)) {
            return false;
        }
    }
    *out = clampInt(v);
    return true;
}

// A rate as the report prints it: "29.97 fps", "25 fps", and from a
// thousand on "1k fps".
bool rateOf(const QString &field, const char *unit, double *out)
{
    static const QRegularExpression re(QStringLiteral("^\\s*(\\d+\\.?\\d*|\\.\\d+)(k?) (\\w+)"));
    const auto m = re.match(field);
    if (!m.hasMatch() || m.captured(3) != QLatin1String(unit))
        return false;
    *out = m.captured(1).toDouble() * (m.captured(2).isEmpty() ? 1 : 1000);
    return true;
}

bool isPixelFormat(const QString &field)
{
    static const char *const marks[] = {"yuv", "rgb",  "bgr",  "uyvy", "gray", "pal",  "mono", "nv1",
                                        "nv2", "p010", "p016", "gbr",  "ya8",  "ya16", "xyz",  "bayer"};
    for (const char *m : marks) {
        if (field.contains(QLatin1String(m)))
            return true;
    }
    return false;
}

} // namespace

QHash<QString, QString> ParseMapText(const QString &text)
{
    QHash<QString, QString> map;
    for (const QString &line : text.split(u'\n')) {
        const qsizetype comma = line.indexOf(u',');
        if (comma < 0)
            continue;
        const QString key = line.left(comma).trimmed();
        const QString name = line.mid(comma + 1).trimmed();
        bool numeric = false;
        key.toDouble(&numeric);
        if (numeric || key.isEmpty())
            continue; // a numeric key could never match a codec's text
        map.insert(key, name);
    }
    return map;
}

QHash<QString, QString> LoadMapFile(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly) || f.size() > (1 << 20))
        return {};
    return ParseMapText(QString::fromUtf8(f.readAll()));
}

QString MapCodec(const QHash<QString, QString> &map, const QString &name)
{
    return map.value(name, name);
}

bool IsUnsupportedAudio(const QString &name)
{
    return name == u"Windows Media Audio Professional v9" || name == u"Windows Media Audio v9"
           || name.contains(QLatin1String(" / ")) || name.contains(QLatin1String("0x"));
}

float ParseDuration(const QString &text)
{
    const QString t = text.trimmed();
    if (t.startsWith(QLatin1String("N/A")))
        return 0;
    static const QRegularExpression re(QStringLiteral("^(\\d+):(\\d\\d):(\\d\\d)(?:\\.(\\d))?"));
    const auto m = re.match(t);
    if (!m.hasMatch())
        return 0;
    return float(m.captured(1).toLongLong() * 3600 + m.captured(2).toInt() * 60 + m.captured(3).toInt())
           + (m.captured(4).isEmpty() ? 0.0f : m.captured(4).toInt() * 0.1f);
}

QString SingleText(float value)
{
    return QString::number(double(value), 'g', 7);
}

QString GetAspectName(float ratio)
{
    if (ratio == float(16.0 / 9.0))
        return QStringLiteral("Widescreen (16:9)");
    if (ratio == float(4.0 / 3.0))
        return QStringLiteral("Normal (4:3)");
    if (ratio == 2.21f)
        return QStringLiteral("Panavision (2.21:1)");
    return QString::number(std::round(double(ratio) * 100) / 100, 'g', 7) + QStringLiteral(":1");
}

QStringList SplitStreamFields(const QString &text)
{
    QStringList fields;
    int depth = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'(' || c == u'[')
            ++depth;
        else if ((c == u')' || c == u']') && depth > 0)
            --depth;
        else if (c == u',' && depth == 0 && i + 1 < text.size() && text[i + 1] == u' ') {
            fields << text.mid(start, i - start);
            start = i + 2;
            ++i;
        }
    }
    fields << text.mid(start);
    return fields;
}

ReportParse ParseFfmpegReport(const QString &report, const QString &fileName, const MediaTables &tables)
{
    ReportParse r;
    bool sawInput = false;
    int streamNumber = 0;
    auto fail = [&r](const QString &reason) {
        r.ok = false;
        r.reason = reason;
        return r;
    };
    // The file's name appears in the command line, the "Input #0" line and
    // error lines; whatever it holds ("Input", "Audio: ", "Unknown format")
    // must not change the verdict, so it is blanked out before any search.
    QStringList names{QFileInfo(fileName).absoluteFilePath(), fileName};
    names.removeAll(QString());
    names.removeDuplicates();
    const QStringList lines = report.split(u'\n');
    for (QString line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        for (const QString &name : std::as_const(names))
            line.replace(name, QStringLiteral("<file>"));
        if (line.startsWith(QLatin1String("Input #")))
            sawInput = true;
        if (line.contains(QLatin1String("Unknown format"))
            || line.contains(QLatin1String("could not find codec parameters")))
            return fail(kUnsupportedFormat);
        if (line.startsWith(u'['))
            line.clear();
        const qsizetype audioAt = line.indexOf(QLatin1String("Audio: "));
        const qsizetype videoAt = line.indexOf(QLatin1String("Video: "));
        const qsizetype streamAt = line.indexOf(QLatin1String("Stream #"));
        if (streamAt >= 0 && streamAt + 10 < line.size() && line[streamAt + 10].isDigit())
            streamNumber = line[streamAt + 10].digitValue();

        if (audioAt >= 0) {
            StreamEntry e;
            e.Type = StreamEntry::Audio;
            e.Index = streamNumber;
            const QStringList f = SplitStreamFields(line.mid(audioAt + 7));
            e.Compression = MapCodec(tables.audioCodecMap, codecOf(f.value(0)));
            qint64 v = 0;
            if (f.size() > 1) {
                if (!leadingInt(f[1], &v))
                    return fail(kUnsupportedFormat);
                e.SampleRate = clampInt(v);
            }
            if (f.size() > 2 && !channelsOf(f[2], &e.Channels))
                return fail(kUnsupportedFormat);
            for (int k = 3; k < f.size(); ++k) {
                if (f[k].contains(QLatin1String(" kb/s")) && leadingInt(f[k], &v)) {
                    e.BitRate = clampInt(v);
                    break;
                }
            }
            if (IsUnsupportedAudio(e.Compression)) {
                r.notices << QStringLiteral("The audio format ") + e.Compression + QStringLiteral(" in file ")
                                 + fileName
                                 + QStringLiteral(" is currently unsupported. It will not be added to the project.");
            } else {
                r.source.Streams.append(e);
            }
        } else if (videoAt >= 0) {
            const bool attachedPicture = line.mid(videoAt).contains(QLatin1String("(attached pic)"));
            StreamEntry e;
            e.Type = StreamEntry::Video;
            e.Index = streamNumber;
            const QStringList f = SplitStreamFields(line.mid(videoAt + 7));
            e.Compression = MapCodec(tables.videoCodecMap, codecOf(f.value(0)));
            int k = isPixelFormat(f.value(1)) ? 2 : 1;
            static const QRegularExpression size(QStringLiteral("^\\s*(\\d+)x(\\d+)"));
            static const QRegularExpression dar(QStringLiteral("DAR (\\d+):(\\d+)"));
            // The size normally follows the pixel format; look further when an
            // unknown format or an extra field stands in between.
            for (int at = k; at < f.size(); ++at) {
                const auto m = size.match(f[at]);
                if (m.hasMatch()) {
                    e.Width = clampInt(m.captured(1).toLongLong());
                    e.Height = clampInt(m.captured(2).toLongLong());
                    const auto d = dar.match(f[at]);
                    if (d.hasMatch() && d.captured(2).toDouble() > 0)
                        e.DisplayAR = float(d.captured(1).toDouble() / d.captured(2).toDouble());
                    k = at + 1;
                    break;
                }
            }
            for (int at = k; at < f.size(); ++at) {
                qint64 v = 0;
                double fps = 0;
                if (f[at].contains(QLatin1String(" kb/s")) && e.BitRate == 0 && leadingInt(f[at], &v))
                    e.BitRate = clampInt(v);
                if (rateOf(f[at], "fps", &fps)) {
                    e.FPS = float(fps);
                    break;
                }
            }
            // Cover art is a picture stored with the sound, not a video:
            // the file stays audio and the picture may become its thumbnail.
            if (attachedPicture) {
                if (!r.coverSize.isValid())
                    r.coverSize = QSize(e.Width, e.Height);
            } else {
                r.source.Streams.append(e);
            }
        }

        if (line.startsWith(QLatin1String("  Duration: "))) {
            const qsizetype comma = line.indexOf(u',');
            if (comma >= 0)
                r.source.Duration = ParseDuration(line.mid(12, comma - 12));
            if (r.source.Duration == 0)
                return fail(kIncompleteFile);
        }
        const qsizetype startAt = line.indexOf(QLatin1String("start: "));
        if (startAt >= 0) {
            const qsizetype from = startAt + 7;
            const qsizetype comma = line.indexOf(u',', from);
            double v = 0;
            if (leadingNumber(line.mid(from, comma < 0 ? -1 : comma - from), &v))
                r.source.StartTime = float(v);
        }
    }
    if (!sawInput)
        return fail(kUnsupportedFormat);
    r.ok = true;
    return r;
}

MpgtxDetails ParseMpgtxReport(const QString &report)
{
    MpgtxDetails d;
    for (QString line : report.split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.startsWith(QLatin1String("  Aspect ratio "))) {
            const QString a = line.mid(15);
            if (a.startsWith(QLatin1String("4/3")))
                d.aspectRatio = 4.0f / 3.0f;
            else if (a.startsWith(QLatin1String("16/9")))
                d.aspectRatio = 16.0f / 9.0f;
            else if (a.startsWith(QLatin1String("1/1")))
                d.aspectRatio = 1;
            else if (a.startsWith(QLatin1String("2.21/1")))
                d.aspectRatio = 2.21f;
        }
        const qsizetype fpsAt = line.indexOf(QLatin1String(" fps"));
        if (fpsAt > 0) {
            const qsizetype space = line.lastIndexOf(u' ', fpsAt - 1);
            double v = 0;
            if (leadingNumber(line.mid(space + 1, fpsAt - space - 1), &v))
                d.fps = float(v);
        }
        // mpgtx writes "Interlaced" or "Not interlaced".
        if (line.contains(QLatin1String("interlaced"), Qt::CaseInsensitive) && !line.contains(QLatin1String("Not ")))
            d.interlaced = true;
    }
    return d;
}

QString BuildReport(const clsSource &s)
{
    QStringList lines;
    lines << QStringLiteral("Stream information of ") + s.FileName;
    lines << QStringLiteral("Duration  : ") + SingleText(s.Duration);
    lines << QStringLiteral("Starttime : ") + SingleText(s.StartTime);
    for (int i = 0; i < s.StreamCount(); ++i) {
        const StreamEntry &e = s.Streams[i];
        if (e.isAudio()) {
            lines << QStringLiteral("Stream %1 (Audio)").arg(i);
            lines << QStringLiteral("Channels    : ") + QString::number(e.Channels);
            lines << QStringLiteral("Samplerate  : ") + QString::number(e.SampleRate) + QStringLiteral(" Hz");
            lines << QStringLiteral("Compression : ") + e.Compression;
        } else {
            lines << QStringLiteral("Stream %1 (Video)").arg(i);
            lines << QStringLiteral("Width       : ") + QString::number(e.Width) + QStringLiteral(" pixels");
            lines << QStringLiteral("Height      : ") + QString::number(e.Height) + QStringLiteral(" pixels");
            lines << QStringLiteral("Framerate   : ") + SingleText(e.FPS);
            lines << QStringLiteral("Compression : ") + e.Compression;
            lines << QStringLiteral("Source AR   : ") + GetAspectName(e.SourceAR);
            lines << QStringLiteral("DIsplay AR  : ") + GetAspectName(e.DisplayAR);
        }
        lines << QStringLiteral("BitRate     : ") + QString::number(e.BitRate) + QStringLiteral(" Kbit\\s");
    }
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace quorvel
