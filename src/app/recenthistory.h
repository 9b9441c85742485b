#pragma once
// The recently played files: up to eleven slots of path and title, oldest
// first, kept in the key/value store under RecentFileNames and RecentFileTitles
// (value "0" ... "10") and shown as the menu items "History0" ... "History10".

#include <QString>
#include <QStringList>

namespace quorvel {

class KeyValueStore;
class MenuModel;

class RecentHistory {
public:
    static constexpr int kSlots = 11;
    static const QString kNamesKey;
    static const QString kTitlesKey;

    explicit RecentHistory(KeyValueStore &store) : m_store(store) {}

    // Reads the stored slots from 0 up to the first one without a path.
    void LoadRecentFiles();
    // Records a file that started. A path already in the history (compared
    // case-sensitively) changes nothing and gives false. When all eleven slots
    // are taken the oldest entry goes and the new one takes slot 10.
    bool AddRecentFile(const QString &path, const QString &title);
    // Number of stored slots holding a path, counted from slot 0.
    int CountRecentFiles() const;

    int size() const { return static_cast<int>(m_paths.size()); }
    QString path(int slot) const { return m_paths.value(slot); }
    QString title(int slot) const { return m_titles.value(slot); }

private:
    void writeSlot(int slot);

    KeyValueStore &m_store;
    QStringList m_paths;  // RecentFiles
    QStringList m_titles; // captions of the history items
};

// Shows the history in the items "History0" ... "History10": a filled slot is
// visible and enabled with its title; with no history "History0" reads
// "<No History>" and is disabled; the other empty slots are hidden.
void ShowRecentFiles(const RecentHistory &history, MenuModel &menu);

} // namespace quorvel
