#pragma once
// The key/value store kept as a JSON file (by default "registry.json" in the
// user's config folder, under "quorvel/"). Every change rewrites the whole file
// through a temporary file and a rename, so a crash never leaves half a file.
// A file that cannot be parsed reads as empty and is replaced by a valid one.

#include "settings/keyvaluestore.h"

#include <QJsonObject>

namespace quorvel {

class FileStore : public KeyValueStore {
public:
    explicit FileStore(QString filePath);
    // "<XDG config>/quorvel/registry.json".
    static QString defaultPath();

    void RegSetString(const QString &key, const QString &name, const QString &data) override;
    QString RegGetString(const QString &key, const QString &name, const QString &fallback = {}) const override;
    void RegDeleteValueAt(const QString &key, const QString &name) override;

    const QString &filePath() const { return m_filePath; }

private:
    // The file is read afresh for every operation: another running instance
    // may have written it since.
    QJsonObject read() const;
    bool write(const QJsonObject &root) const;

    QString m_filePath;
};

} // namespace quorvel
