#pragma once
// A registry-like store of string values: each value has a name inside a key,
// keys are paths such as "Software/Brenlow/Quorvel/RecentFileNames" ('\' and
// '/' both separate key levels). Failures are silent, as callers expect of the
// registry: a value that cannot be read comes back as the given default.

#include <QString>

namespace quorvel {

class KeyValueStore {
public:
    virtual ~KeyValueStore() = default;
    // Writes the value, creating the key when needed.
    virtual void RegSetString(const QString &key, const QString &name, const QString &data) = 0;
    // The value's text, or `fallback` when the key or value is missing.
    virtual QString RegGetString(const QString &key, const QString &name, const QString &fallback = {}) const = 0;
    virtual void RegDeleteValueAt(const QString &key, const QString &name) = 0;
};

// "a\b//c/" -> "a/b/c", so that both spellings of a key reach the same values.
QString NormalizeStoreKey(const QString &key);

} // namespace quorvel
