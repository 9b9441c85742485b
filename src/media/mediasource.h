#pragma once
// `clsSource`: what a probe found out about one file, one entry per audio or
// video stream, and its conversion to and from ordered maps of values.

#include <QImage>
#include <QList>
#include <QString>
#include <QVariant>
#include <utility>

namespace quorvel {

// An ordered map of values: keys keep the order they were added in.
class OrderedMap {
public:
    void insert(const QString &key, const QVariant &value);
    QVariant value(const QString &key) const;
    bool contains(const QString &key) const;
    QStringList keys() const;
    int size() const { return static_cast<int>(m_items.size()); }
    const QList<std::pair<QString, QVariant>> &items() const { return m_items; }

private:
    QList<std::pair<QString, QVariant>> m_items;
};

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

    QImage StreamImage(int stream) const { return Streams.value(stream).Image; }
    void setStreamImage(int stream, const QImage &image) { Streams[stream].Image = image; }

    // The stream's values: video keys, or audio keys, then the common ones.
    OrderedMap StreamInfo(int stream) const;
    // The record without its pictures: five top-level keys and "Stream0", ...
    OrderedMap Serialize() const;
    // Reads a serialised record; stream entries are appended to the present ones.
    void UnSerialize(const OrderedMap &dict);
};

} // namespace quorvel

Q_DECLARE_METATYPE(quorvel::OrderedMap)
