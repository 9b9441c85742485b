#include "app/recenthistory.h"

#include "menus/menukeys.h"
#include "menus/menumodel.h"
#include "settings/keyvaluestore.h"

namespace quorvel {

const QString RecentHistory::kNamesKey = QStringLiteral("Software/Brenlow/Quorvel/RecentFileNames");
const QString RecentHistory::kTitlesKey = QStringLiteral("Software/Brenlow/Quorvel/RecentFileTitles");

int RecentHistory::CountRecentFiles() const
{
    int count = 0;
    while (count < kSlots && !m_store.RegGetString(kNamesKey, QString::number(count)).isEmpty())
        ++count;
    return count;
}

void RecentHistory::LoadRecentFiles()
{
    m_paths.clear();
    m_titles.clear();
    const int count = CountRecentFiles();
    for (int n = 0; n < count; ++n) {
        m_paths.append(m_store.RegGetString(kNamesKey, QString::number(n)));
        m_titles.append(m_store.RegGetString(kTitlesKey, QString::number(n)));
    }
}

bool RecentHistory::AddRecentFile(const QString &path, const QString &title)
{
    if (path.isEmpty() || m_paths.contains(path, Qt::CaseSensitive))
        return false;
    if (size() < kSlots) {
        m_paths.append(path);
        m_titles.append(title);
        writeSlot(size() - 1);
        return true;
    }
    m_paths.removeFirst();
    m_titles.removeFirst();
    m_paths.append(path);
    m_titles.append(title);
    for (int n = 0; n < kSlots; ++n)
        writeSlot(n);
    return true;
}

void RecentHistory::writeSlot(int slot)
{
    m_store.RegSetString(kNamesKey, QString::number(slot), m_paths.at(slot));
    m_store.RegSetString(kTitlesKey, QString::number(slot), m_titles.at(slot));
}

void ShowRecentFiles(const RecentHistory &history, MenuModel &menu)
{
    for (int n = 0; n < RecentHistory::kSlots; ++n) {
        const int position = menu.IndexOfKey(menukey::History(n));
        const bool filled = n < history.size();
        if (filled) {
            // "&" in a file name is text, not a mnemonic mark.
            QString caption = history.title(n);
            menu.SetCaption(position, caption.replace(u'&', QStringLiteral("&&")));
        } else if (n == 0) {
            menu.SetCaption(position, QStringLiteral("<No History>"));
        }
        menu.SetEnabled(position, filled);
        menu.SetVisible(position, filled || n == 0);
    }
}

} // namespace quorvel
