#include "resumestore.h"

#include "common/logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>
#include <algorithm>
#include <vector>

namespace quorvel {

bool IsPlayedToEnd(qint64 positionMs, qint64 lengthMs)
{
    return positionMs * 20 >= lengthMs * 19 || positionMs >= lengthMs - 30'000;
}

bool IsWorthResuming(qint64 positionMs, qint64 lengthMs)
{
    // The first seconds are no place worth coming back to.
    return lengthMs > kResumeMinLengthMs && positionMs >= 5'000 && !IsPlayedToEnd(positionMs, lengthMs);
}

ResumeStore::ResumeStore(QString filePath, int capacity) : m_filePath(std::move(filePath)), m_capacity(capacity)
{
    load();
}

QString ResumeStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/quorvel/resume-positions.json");
}

QString ResumeStore::keyOf(const QString &absolutePath, qint64 size)
{
    // A NUL cannot stand in a path, so no two files share a key.
    return absolutePath + QChar(0) + QString::number(size);
}

std::optional<ResumeStore::Entry> ResumeStore::find(const QString &absolutePath, qint64 size) const
{
    const auto it = m_entries.constFind(keyOf(absolutePath, size));
    if (it == m_entries.constEnd() || it->entry.positionMs <= 0)
        return std::nullopt;
    return it->entry;
}

std::optional<ResumeStore::TrackChoice> ResumeStore::findTracks(const QString &absolutePath, qint64 size) const
{
    const auto it = m_entries.constFind(keyOf(absolutePath, size));
    return it == m_entries.constEnd() ? std::nullopt : it->tracks;
}

ResumeStore::Stored &ResumeStore::touch(const QString &key)
{
    Stored &stored = m_entries[key];
    stored.stamp = m_nextStamp++;
    m_dirty = true;
    if (m_entries.size() > m_capacity) {
        std::vector<std::pair<qint64, QString>> byAge;
        byAge.reserve(m_entries.size());
        for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it)
            byAge.emplace_back(it->stamp, it.key());
        std::sort(byAge.begin(), byAge.end());
        for (std::size_t i = 0; m_entries.size() > m_capacity; ++i)
            m_entries.remove(byAge[i].second);
    }
    return m_entries[key]; // the newest entry is never the one dropped
}

void ResumeStore::remember(const QString &absolutePath, qint64 size, Entry entry)
{
    touch(keyOf(absolutePath, size)).entry = entry;
}

void ResumeStore::rememberTracks(const QString &absolutePath, qint64 size, const TrackChoice &tracks)
{
    touch(keyOf(absolutePath, size)).tracks = tracks;
}

void ResumeStore::forget(const QString &absolutePath, qint64 size)
{
    const auto it = m_entries.find(keyOf(absolutePath, size));
    if (it == m_entries.end())
        return;
    if (it->tracks)
        it->entry = {};
    else
        m_entries.erase(it);
    m_dirty = true;
}

void ResumeStore::load()
{
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &error);
    if (!doc.isArray()) {
        qCWarning(lcPlayback) << "resume positions unreadable, starting afresh:" << m_filePath << error.errorString();
        return;
    }
    // The file lists the entries oldest first.
    for (const QJsonValue &v : doc.array()) {
        const QJsonObject o = v.toObject();
        const QString path = o.value(u"path").toString();
        Stored s{{qint64(o.value(u"position").toDouble()), qint64(o.value(u"length").toDouble())}, {}, 0};
        if (o.contains(u"audio")) {
            s.tracks = TrackChoice{o.value(u"audio").toInt(-1), o.value(u"subtitle").toInt(-1),
                                   qint64(o.value(u"subtitleDelay").toDouble()), o.value(u"subtitleFile").toString()};
        }
        if (path.isEmpty() || (s.entry.positionMs <= 0 && !s.tracks))
            continue;
        s.stamp = m_nextStamp++;
        m_entries.insert(keyOf(path, qint64(o.value(u"size").toDouble())), s);
    }
}

bool ResumeStore::save()
{
    if (!m_dirty)
        return true;
    std::vector<std::pair<qint64, QString>> byAge;
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it)
        byAge.emplace_back(it->stamp, it.key());
    std::sort(byAge.begin(), byAge.end());
    QJsonArray list;
    for (const auto &[stamp, key] : byAge) {
        const Stored &s = m_entries[key];
        QJsonObject o{{u"path"_qs, key.section(QChar(0), 0, 0)},
                      {u"size"_qs, double(key.section(QChar(0), 1).toLongLong())},
                      {u"position"_qs, double(s.entry.positionMs)},
                      {u"length"_qs, double(s.entry.lengthMs)}};
        if (s.tracks) {
            o.insert(u"audio"_qs, s.tracks->audioTrack);
            o.insert(u"subtitle"_qs, s.tracks->subtitleTrack);
            o.insert(u"subtitleDelay"_qs, double(s.tracks->subtitleDelayMs));
            if (!s.tracks->subtitleFile.isEmpty())
                o.insert(u"subtitleFile"_qs, s.tracks->subtitleFile);
        }
        list.append(o);
    }
    QDir().mkpath(QFileInfo(m_filePath).path());
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(list).toJson(QJsonDocument::Compact)) < 0
        || !file.commit()) {
        qCWarning(lcPlayback) << "could not write" << m_filePath << file.errorString();
        return false;
    }
    m_dirty = false;
    return true;
}

} // namespace quorvel
