#include "menumodel.h"

namespace quorvel {

void MenuModel::AddMenuItem(const QString &parentKey, const QString &key, int kind, const QString &caption,
                            const QKeySequence &shortcut, bool checked, bool enabled, bool visible)
{
    m_items.push_back({key, parentKey, kind, caption, shortcut, checked, enabled, visible});
}

int MenuModel::IndexOfKey(const QString &key) const
{
    if (key.isEmpty())
        return -1; // separators share the empty key
    for (int i = 0; i < count(); ++i) {
        if (m_items[i].key == key)
            return i;
    }
    return -1;
}

QString MenuModel::KeyAt(int position) const
{
    return valid(position) ? m_items[position].key : QString();
}

QString MenuModel::CaptionAt(int position) const
{
    return valid(position) ? m_items[position].caption : QString();
}

void MenuModel::SetCaption(int position, const QString &text)
{
    if (!valid(position) || m_items[position].caption == text)
        return;
    m_items[position].caption = text;
    emit itemChanged(position);
}

void MenuModel::SetEnabled(int position, bool enabled)
{
    if (!valid(position) || m_items[position].enabled == enabled)
        return;
    m_items[position].enabled = enabled;
    emit itemChanged(position);
}

void MenuModel::SetChecked(int position, bool checked)
{
    if (!valid(position) || m_items[position].checked == checked)
        return;
    m_items[position].checked = checked;
    emit itemChanged(position);
}

void MenuModel::SetVisible(int position, bool visible)
{
    if (!valid(position) || m_items[position].visible == visible)
        return;
    m_items[position].visible = visible;
    emit itemChanged(position);
}

bool MenuModel::isChecked(const QString &key) const
{
    const int i = IndexOfKey(key);
    return valid(i) && m_items[i].checked;
}

bool MenuModel::isEnabled(const QString &key) const
{
    const int i = IndexOfKey(key);
    return valid(i) && m_items[i].enabled;
}

bool MenuModel::isVisible(const QString &key) const
{
    const int i = IndexOfKey(key);
    return valid(i) && m_items[i].visible;
}

void MenuModel::checkOneOf(const QStringList &group, const QString &key)
{
    for (const QString &k : group)
        setChecked(k, k == key);
}

void MenuModel::choose(int position)
{
    if (valid(position) && m_items[position].enabled && m_items[position].kind != MenuItem::Separator)
        emit MenuItemClick(position);
}

void MenuModel::open(int position)
{
    if (valid(position))
        emit branchOpening(position);
}

void BuildMenu(MenuModel &m)
{
    using K = MenuItem::Kind;
    auto ctrl = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };
    m.AddMenuItem({}, QStringLiteral("File"), K::Command, QStringLiteral("&File"));
    m.AddMenuItem(QStringLiteral("File"), QStringLiteral("OpenMenu"), K::Command, QStringLiteral("&Open"));
    m.AddMenuItem(QStringLiteral("OpenMenu"), QStringLiteral("OpenFile"), K::Command,
                  QStringLiteral("Open Media File..."), ctrl(Qt::Key_O));
    m.AddMenuItem(QStringLiteral("OpenMenu"), QStringLiteral("OpenDVD"), K::Command, QStringLiteral("Open DVD"));
    m.AddMenuItem(QStringLiteral("OpenDVD"), QStringLiteral("DVDList0"), K::Command,
                  QStringLiteral("<No DVD drives were found>"), {}, false, false);
    for (int i = 1; i <= 5; ++i)
        m.AddMenuItem(QStringLiteral("OpenDVD"), QStringLiteral("DVDList%1").arg(i), K::Command, QString(), {}, false,
                      true, false);
    m.AddMenuItem(QStringLiteral("File"), QStringLiteral("RecentMenu"), K::Command,
                  QStringLiteral("Recently Played Files"));
    m.AddMenuItem(QStringLiteral("RecentMenu"), QStringLiteral("History0"), K::Command, QStringLiteral("<No History>"),
                  {}, false, false);
    for (int i = 1; i <= 10; ++i)
        m.AddMenuItem(QStringLiteral("RecentMenu"), QStringLiteral("History%1").arg(i), K::Command, QString(), {},
                      false, true, false);
    m.AddMenuItem(QStringLiteral("File"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("File"), QStringLiteral("Exit"), K::Command, QStringLiteral("E&xit"), ctrl(Qt::Key_X));

    m.AddMenuItem({}, QStringLiteral("Play"), K::Command, QStringLiteral("&Play"));
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("PlayPause"), K::Command, QStringLiteral("Play/Pause"),
                  ctrl(Qt::Key_P));
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("Stop"), K::Command, QStringLiteral("Stop"), ctrl(Qt::Key_S));
    m.AddMenuItem(QStringLiteral("Play"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("PlayMode"), K::Command, QStringLiteral("Play Mode"));
    m.AddMenuItem(QStringLiteral("PlayMode"), QStringLiteral("PMNormal"), K::Check, QStringLiteral("&Normal"), {},
                  true);
    m.AddMenuItem(QStringLiteral("PlayMode"), QStringLiteral("PMContinuous"), K::Check, QStringLiteral("&Continuous"));
    m.AddMenuItem(QStringLiteral("PlayMode"), QStringLiteral("PMShuffle"), K::Check, QStringLiteral("&Shuffle"));
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("RepeatMode"), K::Command, QStringLiteral("Repeat Mode"));
    m.AddMenuItem(QStringLiteral("RepeatMode"), QStringLiteral("RMNoRepeat"), K::Check, QStringLiteral("&No Repeat"));
    m.AddMenuItem(QStringLiteral("RepeatMode"), QStringLiteral("RMSingleRepeat"), K::Check,
                  QStringLiteral("&Single Repeat"));
    m.AddMenuItem(QStringLiteral("RepeatMode"), QStringLiteral("RMRepeatAll"), K::Check, QStringLiteral("&Repeat All"));
    m.AddMenuItem(QStringLiteral("Play"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("FullScreen"), K::Command, QStringLiteral("Full Screen"),
                  ctrl(Qt::Key_F));
    m.AddMenuItem(QStringLiteral("Play"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("IncreaseSpeed"), K::Command, QStringLiteral("Increase Speed"),
                  ctrl(Qt::Key_Up));
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("DecreaseSpeed"), K::Command, QStringLiteral("Decrease Speed"),
                  ctrl(Qt::Key_Down));
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("ResetSpeed"), K::Command, QStringLiteral("Reset Speed"),
                  ctrl(Qt::Key_R));
    m.AddMenuItem(QStringLiteral("Play"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("Play"), QStringLiteral("AfterPlay"), K::Command,
                  QStringLiteral("After file playing finished"), ctrl(Qt::Key_P));
    m.AddMenuItem(QStringLiteral("AfterPlay"), QStringLiteral("Donothing"), K::Check, QStringLiteral("Do nothing"));
    m.AddMenuItem(QStringLiteral("AfterPlay"), QStringLiteral("ExitQuorvel"), K::Check, QStringLiteral("Exit Quorvel"));
    m.AddMenuItem(QStringLiteral("AfterPlay"), QStringLiteral("RestartTheComputer"), K::Check,
                  QStringLiteral("Restart the Computer"));
    m.AddMenuItem(QStringLiteral("AfterPlay"), QStringLiteral("ShutdownTheComputer"), K::Check,
                  QStringLiteral("Shutdown the Computer"));

    m.AddMenuItem({}, QStringLiteral("PlayList"), K::Command, QStringLiteral("&Play&List"));
    m.AddMenuItem(QStringLiteral("PlayList"), QStringLiteral("AddVideoFile"), K::Command,
                  QStringLiteral("Add Media File(s)..."));
    m.AddMenuItem(QStringLiteral("PlayList"), QStringLiteral("Remove"), K::Command, QStringLiteral("Remove"));
    m.AddMenuItem(QStringLiteral("PlayList"), QStringLiteral("RemoveAll"), K::Command, QStringLiteral("Remove All"));
    m.AddMenuItem(QStringLiteral("PlayList"), {}, K::Separator, {});
    m.AddMenuItem(QStringLiteral("PlayList"), QStringLiteral("Next"), K::Command, QStringLiteral("Next"),
                  QKeySequence(Qt::Key_PageDown));
    m.AddMenuItem(QStringLiteral("PlayList"), QStringLiteral("Previous"), K::Command, QStringLiteral("Previous"),
                  QKeySequence(Qt::Key_PageUp));

    m.AddMenuItem({}, QStringLiteral("Tools"), K::Command, QStringLiteral("&Tools"));
    m.AddMenuItem(QStringLiteral("Tools"), QStringLiteral("Options"), K::Command, QStringLiteral("Options"));
    m.AddMenuItem({}, QStringLiteral("Help"), K::Command, QStringLiteral("&Help"));
    m.AddMenuItem(QStringLiteral("Help"), QStringLiteral("About"), K::Command, QStringLiteral("&About"));
    m.AddMenuItem(QStringLiteral("Help"), QStringLiteral("HelpTopics"), K::Command, QStringLiteral("&Help Topics"),
                  QKeySequence(Qt::Key_F1));
}

} // namespace quorvel
