#pragma once
// Where each file was left: a position per file, keyed by the file's absolute
// path and its size, so a file replaced by another of the same name starts
// over. It keeps the newest 1,000 files and is written in one piece (a
// temporary file renamed over the old one), so a crash or power cut leaves
// either the old store or the new one, never half of it.

#include <QHash>
#include <QString>
#include <optional>

namespace quorvel {

// Files of this length or shorter are not worth resuming.
inline constexpr qint64 kResumeMinLengthMs = 60'000;
// A file counts as finished in its last 5 % or last 30 s.
bool IsPlayedToEnd(qint64 positionMs, qint64 lengthMs);
// Whether a position of a file of that length is kept: long enough to
// matter, not at the very start and not finished.
bool IsWorthResuming(qint64 positionMs, qint64 lengthMs);

class ResumeStore {
public:
    struct Entry {
        qint64 positionMs = 0;
        qint64 lengthMs = 0;
    };

    // Reads `filePath`; a missing or damaged file is an empty store.
    explicit ResumeStore(QString filePath, int capacity = 1000);
    // "<XDG config>/quorvel/resume-positions.json".
    static QString defaultPath();

    std::optional<Entry> find(const QString &absolutePath, qint64 size) const;
    // Stores the position as the newest entry, dropping the oldest beyond the capacity.
    void remember(const QString &absolutePath, qint64 size, Entry entry);
    void forget(const QString &absolutePath, qint64 size);
    int count() const { return static_cast<int>(m_entries.size()); }
    // Writes the store when it changed since the last write; false on failure.
    bool save();

private:
    struct Stored {
        Entry entry;
        qint64 stamp = 0; // larger = newer
    };
    static QString keyOf(const QString &absolutePath, qint64 size);
    void load();

    QString m_filePath;
    int m_capacity;
    QHash<QString, Stored> m_entries;
    qint64 m_nextStamp = 1;
    bool m_dirty = false;
};

} // namespace quorvel
