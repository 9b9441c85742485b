#pragma once
// In-memory key/value store for tests: the same key rules as the file store,
// and the values open to inspection.

#include "settings/keyvaluestore.h"

#include <QMap>

namespace quorvel::test {

class MemoryStore : public KeyValueStore {
public:
    void RegSetString(const QString &key, const QString &name, const QString &data) override
    {
        values[NormalizeStoreKey(key)][name] = data;
    }
    QString RegGetString(const QString &key, const QString &name, const QString &fallback = {}) const override
    {
        return values.value(NormalizeStoreKey(key)).value(name, fallback);
    }
    void RegDeleteValueAt(const QString &key, const QString &name) override
    {
        values[NormalizeStoreKey(key)].remove(name);
    }

    QMap<QString, QMap<QString, QString>> values;
};

} // namespace quorvel::test
