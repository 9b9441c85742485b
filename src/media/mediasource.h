#pragma once
// `clsSource`: what a probe found out about one file, one entry per audio or
// video stream.

#include <QImage>
#include <QList>
#include <QString>

namespace quorvel {

struct StreamEntry {
    enum Kind { Audio = 1, Video = 2 };
    qint32 Type = 0;
    qint32 Index = 0;
    qint32 BitRate = 0;
    QString Compression;
    float FPS = 0;
    qint32 Width = 0;
    qint32 Height = 0;
    QImage Image;
    float SourceAR = 0;
    float DisplayAR = 0;
    bool Interlaced = false;
    qint32 Channels = 0;
    qint32 SampleRate = 0;
    qint32 Delay = 0;

    bool isAudio() const { return Type == Audio; }
    bool isVideo() const { return Type == Video; }
};

class clsSource {
public:
    QString FileName;
    float Duration = 0;
    float StartTime = 0;
    QString TimeStamp;
    bool IsAVI = false;
    QList<StreamEntry> Streams;

    int StreamCount() const { return static_cast<int>(Streams.size()); }
    void reset() { *this = clsSource(); }
};

} // namespace quorvel
