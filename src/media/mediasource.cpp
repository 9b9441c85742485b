#include "mediasource.h"

namespace quorvel {

void OrderedMap::insert(const QString &key, const QVariant &value)
{
    for (auto &item : m_items) {
        if (item.first == key) {
            item.second = value;
            return;
        }
    }
    m_items.append({key, value});
}

QVariant OrderedMap::value(const QString &key) const
{
    for (const auto &item : m_items) {
        if (item.first == key)
            return item.second;
    }
    return {};
}

bool OrderedMap::contains(const QString &key) const
{
    for (const auto &item : m_items) {
        if (item.first == key)
            return true;
    }
    return false;
}

QStringList OrderedMap::keys() const
{
    QStringList out;
    for (const auto &item : m_items)
        out << item.first;
    return out;
}

OrderedMap clsSource::StreamInfo(int stream) const
{
    const StreamEntry &e = Streams.at(stream);
    OrderedMap m;
    if (e.isVideo()) {
        m.insert(QStringLiteral("FPS"), e.FPS);
        m.insert(QStringLiteral("Width"), e.Width);
        m.insert(QStringLiteral("Height"), e.Height);
        m.insert(QStringLiteral("SourceAR"), e.SourceAR);
        m.insert(QStringLiteral("DisplayAR"), e.DisplayAR);
        m.insert(QStringLiteral("Interlaced"), e.Interlaced);
    }
    if (e.isAudio()) {
        m.insert(QStringLiteral("Channels"), e.Channels);
        m.insert(QStringLiteral("SampleRate"), e.SampleRate);
        m.insert(QStringLiteral("Delay"), e.Delay);
    }
    m.insert(QStringLiteral("Type"), e.Type);
    m.insert(QStringLiteral("Index"), e.Index);
    m.insert(QStringLiteral("Duration"), Duration);
    m.insert(QStringLiteral("StartTime"), StartTime);
    m.insert(QStringLiteral("Compression"), e.Compression);
    m.insert(QStringLiteral("BitRate"), e.BitRate);
    return m;
}

OrderedMap clsSource::Serialize() const
{
    OrderedMap m;
    m.insert(QStringLiteral("FileName"), FileName);
    m.insert(QStringLiteral("Duration"), Duration);
    m.insert(QStringLiteral("StartTime"), StartTime);
    m.insert(QStringLiteral("TimeStamp"), TimeStamp);
    m.insert(QStringLiteral("IsAVI"), IsAVI);
    for (int i = 0; i < StreamCount(); ++i) {
        const StreamEntry &e = Streams[i];
        OrderedMap s;
        s.insert(QStringLiteral("Type"), e.Type);
        s.insert(QStringLiteral("Index"), e.Index);
        s.insert(QStringLiteral("Compression"), e.Compression);
        s.insert(QStringLiteral("BitRate"), e.BitRate);
        s.insert(QStringLiteral("FPS"), e.FPS);
        s.insert(QStringLiteral("Width"), e.Width);
        s.insert(QStringLiteral("Height"), e.Height);
        s.insert(QStringLiteral("Channels"), e.Channels);
        s.insert(QStringLiteral("SampleRate"), e.SampleRate);
        s.insert(QStringLiteral("Delay"), e.Delay);
        s.insert(QStringLiteral("SourceAR"), e.SourceAR);
        s.insert(QStringLiteral("DisplayAR"), e.DisplayAR);
        s.insert(QStringLiteral("Interlaced"), e.Interlaced);
        m.insert(QStringLiteral("Stream") + QString::number(i), QVariant::fromValue(s));
    }
    return m;
}

void clsSource::UnSerialize(const OrderedMap &dict)
{
    FileName = dict.value(QStringLiteral("FileName")).toString();
    Duration = dict.value(QStringLiteral("Duration")).toFloat();
    StartTime = dict.value(QStringLiteral("StartTime")).toFloat();
    TimeStamp = dict.value(QStringLiteral("TimeStamp")).toString();
    IsAVI = dict.value(QStringLiteral("IsAVI")).toBool();
    for (const auto &[key, value] : dict.items()) {
        if (!key.startsWith(QLatin1String("Stream")))
            continue;
        const OrderedMap s = value.value<OrderedMap>();
        StreamEntry e;
        e.Type = s.value(QStringLiteral("Type")).toInt();
        e.Index = s.value(QStringLiteral("Index")).toInt();
        e.Compression = s.value(QStringLiteral("Compression")).toString();
        e.BitRate = s.value(QStringLiteral("BitRate")).toInt();
        e.FPS = s.value(QStringLiteral("FPS")).toFloat();
        e.Width = s.value(QStringLiteral("Width")).toInt();
        e.Height = s.value(QStringLiteral("Height")).toInt();
        e.Channels = s.value(QStringLiteral("Channels")).toInt();
        e.SampleRate = s.value(QStringLiteral("SampleRate")).toInt();
        e.Delay = s.value(QStringLiteral("Delay")).toInt();
        e.SourceAR = s.value(QStringLiteral("SourceAR")).toFloat();
        e.DisplayAR = s.value(QStringLiteral("DisplayAR")).toFloat();
        e.Interlaced = s.value(QStringLiteral("Interlaced")).toBool();
        Streams.append(e);
    }
}

} // namespace quorvel
