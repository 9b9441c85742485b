#include "menus/menumodel.h"

#include "menus/menukeys.h"

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
    m.AddMenuItem({}, menukey::File, K::Command, QStringLiteral("&File"));
    m.AddMenuItem(menukey::File, menukey::OpenMenu, K::Command, QStringLiteral("&Open"));
    m.AddMenuItem(menukey::OpenMenu, menukey::OpenFile, K::Command, QStringLiteral("Open Media File..."),
                  ctrl(Qt::Key_O));
    m.AddMenuItem(menukey::OpenMenu, menukey::OpenDVD, K::Command, QStringLiteral("Open DVD"));
    m.AddMenuItem(menukey::OpenDVD, menukey::DVDList(0), K::Command, kNoDvdDrivesCaption, {}, false, false);
    for (int i = 1; i <= 5; ++i)
        m.AddMenuItem(menukey::OpenDVD, menukey::DVDList(i), K::Command, QString(), {}, false, true, false);
    // Besides discs: a DVD-Video folder or an image file.
    m.AddMenuItem(menukey::OpenDVD, {}, K::Separator, {});
    m.AddMenuItem(menukey::OpenDVD, menukey::OpenDVDSource, K::Command, QStringLiteral("Open DVD folder or image..."));
    m.AddMenuItem(menukey::File, menukey::RecentMenu, K::Command, QStringLiteral("Recently Played Files"));
    m.AddMenuItem(menukey::RecentMenu, menukey::History(0), K::Command, QStringLiteral("<No History>"), {}, false,
                  false);
    for (int i = 1; i <= 10; ++i)
        m.AddMenuItem(menukey::RecentMenu, menukey::History(i), K::Command, QString(), {}, false, true, false);
    m.AddMenuItem(menukey::File, {}, K::Separator, {});
    m.AddMenuItem(menukey::File, menukey::Exit, K::Command, QStringLiteral("E&xit"), ctrl(Qt::Key_X));
    // Folders and playlist files.
    m.AddMenuItem(menukey::File, {}, K::Separator, {});
    m.AddMenuItem(menukey::File, menukey::OpenFolder, K::Command, QStringLiteral("Open folder..."));
    m.AddMenuItem(menukey::File, menukey::OpenPlaylist, K::Command, QStringLiteral("Open playlist..."));
    m.AddMenuItem(menukey::File, menukey::SavePlaylistAs, K::Command, QStringLiteral("Save playlist as..."));

    m.AddMenuItem({}, menukey::Play, K::Command, QStringLiteral("&Play"));
    m.AddMenuItem(menukey::Play, menukey::PlayPause, K::Command, QStringLiteral("Play/Pause"), ctrl(Qt::Key_P));
    m.AddMenuItem(menukey::Play, menukey::Stop, K::Command, QStringLiteral("Stop"), ctrl(Qt::Key_S));
    m.AddMenuItem(menukey::Play, {}, K::Separator, {});
    m.AddMenuItem(menukey::Play, menukey::PlayMode, K::Command, QStringLiteral("Play Mode"));
    m.AddMenuItem(menukey::PlayMode, menukey::PMNormal, K::Check, QStringLiteral("&Normal"), {}, true);
    m.AddMenuItem(menukey::PlayMode, menukey::PMContinuous, K::Check, QStringLiteral("&Continuous"));
    m.AddMenuItem(menukey::PlayMode, menukey::PMShuffle, K::Check, QStringLiteral("&Shuffle"));
    m.AddMenuItem(menukey::Play, menukey::RepeatMode, K::Command, QStringLiteral("Repeat Mode"));
    m.AddMenuItem(menukey::RepeatMode, menukey::RMNoRepeat, K::Check, QStringLiteral("&No Repeat"));
    m.AddMenuItem(menukey::RepeatMode, menukey::RMSingleRepeat, K::Check, QStringLiteral("&Single Repeat"));
    m.AddMenuItem(menukey::RepeatMode, menukey::RMRepeatAll, K::Check, QStringLiteral("&Repeat All"));
    m.AddMenuItem(menukey::Play, {}, K::Separator, {});
    m.AddMenuItem(menukey::Play, menukey::FullScreen, K::Command, QStringLiteral("Full Screen"), ctrl(Qt::Key_F));
    m.AddMenuItem(menukey::Play, {}, K::Separator, {});
    m.AddMenuItem(menukey::Play, menukey::IncreaseSpeed, K::Command, QStringLiteral("Increase Speed"),
                  ctrl(Qt::Key_Up));
    m.AddMenuItem(menukey::Play, menukey::DecreaseSpeed, K::Command, QStringLiteral("Decrease Speed"),
                  ctrl(Qt::Key_Down));
    m.AddMenuItem(menukey::Play, menukey::ResetSpeed, K::Command, QStringLiteral("Reset Speed"), ctrl(Qt::Key_R));
    m.AddMenuItem(menukey::Play, {}, K::Separator, {});
    m.AddMenuItem(menukey::Play, menukey::AfterPlay, K::Command, QStringLiteral("After file playing finished"),
                  ctrl(Qt::Key_P));
    m.AddMenuItem(menukey::AfterPlay, menukey::Donothing, K::Check, QStringLiteral("Do nothing"));
    m.AddMenuItem(menukey::AfterPlay, menukey::ExitQuorvel, K::Check, QStringLiteral("Exit Quorvel"));
    m.AddMenuItem(menukey::AfterPlay, menukey::RestartTheComputer, K::Check, QStringLiteral("Restart the Computer"));
    m.AddMenuItem(menukey::AfterPlay, menukey::ShutdownTheComputer, K::Check, QStringLiteral("Shutdown the Computer"));
    AddTrackBranches(m, QString());

    m.AddMenuItem({}, menukey::PlayList, K::Command, QStringLiteral("&Play&List"));
    m.AddMenuItem(menukey::PlayList, menukey::AddVideoFile, K::Command, QStringLiteral("Add Media File(s)..."));
    m.AddMenuItem(menukey::PlayList, menukey::Remove, K::Command, QStringLiteral("Remove"));
    m.AddMenuItem(menukey::PlayList, menukey::RemoveAll, K::Command, QStringLiteral("Remove All"));
    m.AddMenuItem(menukey::PlayList, {}, K::Separator, {});
    m.AddMenuItem(menukey::PlayList, menukey::Next, K::Command, QStringLiteral("Next"), QKeySequence(Qt::Key_PageDown));
    m.AddMenuItem(menukey::PlayList, menukey::Previous, K::Command, QStringLiteral("Previous"),
                  QKeySequence(Qt::Key_PageUp));

    m.AddMenuItem({}, menukey::Tools, K::Command, QStringLiteral("&Tools"));
    m.AddMenuItem(menukey::Tools, menukey::Options, K::Command, QStringLiteral("Options"));
    m.AddMenuItem(menukey::Tools, menukey::PlaybackPreferences, K::Command, QStringLiteral("Playback preferences..."));
    m.AddMenuItem(menukey::Tools, menukey::Equalizer, K::Command, QStringLiteral("Equalizer..."));
    m.AddMenuItem({}, menukey::Help, K::Command, QStringLiteral("&Help"));
    m.AddMenuItem(menukey::Help, menukey::About, K::Command, QStringLiteral("&About"));
    m.AddMenuItem(menukey::Help, menukey::HelpTopics, K::Command, QStringLiteral("&Help Topics"),
                  QKeySequence(Qt::Key_F1));
}

void AddTrackBranches(MenuModel &m, const QString &prefix)
{
    using K = MenuItem::Kind;
    auto add = [&](QLatin1StringView parent, const QString &key, int kind, const QString &caption,
                   const QKeySequence &shortcut = {}, bool visible = true, bool enabled = true) {
        m.AddMenuItem(prefix + parent, key.isEmpty() ? key : prefix + key, kind, caption, shortcut, false, enabled,
                      visible);
    };
    const QLatin1StringView play = prefix.isEmpty() ? menukey::Play : QLatin1StringView("PlayBackMenu");
    add(play, {}, K::Separator, {});
    add(play, menukey::AudioTrackMenu, K::Command, QStringLiteral("Audio track"));
    // The first track entry says there are none, disabled, until the window fills it.
    add(menukey::AudioTrackMenu, menukey::AudioTrack(0), K::Check, kNoAudioTracksCaption, {}, true, false);
    for (int i = 1; i < menukey::kTrackSlots; ++i)
        add(menukey::AudioTrackMenu, menukey::AudioTrack(i), K::Check, QString(), {}, false);
    add(play, menukey::SubtitleMenu, K::Command, QStringLiteral("Subtitles"));
    add(menukey::SubtitleMenu, menukey::Subtitle(0), K::Check, kNoSubtitlesCaption, {}, true, false);
    for (int i = 1; i < menukey::kTrackSlots; ++i)
        add(menukey::SubtitleMenu, menukey::Subtitle(i), K::Check, QString(), {}, false);
    add(menukey::SubtitleMenu, {}, K::Separator, {});
    add(menukey::SubtitleMenu, menukey::DisableSubtitles, K::Check, QStringLiteral("Disable subtitles"));
    add(menukey::SubtitleMenu, menukey::LoadSubtitleFile, K::Command, QStringLiteral("Load subtitle file..."));
    add(menukey::SubtitleMenu, {}, K::Separator, {});
    add(menukey::SubtitleMenu, menukey::IncreaseSubtitleDelay, K::Command, QStringLiteral("Increase subtitle delay"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Right));
    add(menukey::SubtitleMenu, menukey::DecreaseSubtitleDelay, K::Command, QStringLiteral("Decrease subtitle delay"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Left));
}

void ShowTracks(MenuModel &menu, const QString &prefix, const TrackEntries &entries)
{
    const auto fill = [&](const QStringList &names, int current, QString (*slot)(int), const QString &none) {
        for (int i = 0; i < menukey::kTrackSlots; ++i) {
            const int position = menu.IndexOfKey(prefix + slot(i));
            const bool shown = i < names.size();
            menu.SetVisible(position, shown || i == 0);
            menu.SetCaption(position, shown ? names[i] : none);
            menu.SetEnabled(position, shown);
            menu.SetChecked(position, shown && i == current);
        }
    };
    fill(entries.audio, entries.audioCurrent, &menukey::AudioTrack, kNoAudioTracksCaption);
    fill(entries.subtitles, entries.subtitleCurrent, &menukey::Subtitle, kNoSubtitlesCaption);
    menu.setChecked(prefix + menukey::DisableSubtitles, entries.usable && entries.subtitleCurrent < 0);
    for (QLatin1StringView key : {menukey::DisableSubtitles, menukey::LoadSubtitleFile, menukey::IncreaseSubtitleDelay,
                                  menukey::DecreaseSubtitleDelay})
        menu.setEnabled(prefix + key, entries.usable);
}

void ShowDvdDrives(MenuModel &menu, const QStringList &captions)
{
    for (int k = 0; k < menukey::kDvdSlots; ++k) {
        const int position = menu.IndexOfKey(menukey::DVDList(k));
        if (k == 0 && captions.isEmpty()) {
            menu.SetCaption(position, kNoDvdDrivesCaption);
            menu.SetEnabled(position, false);
            menu.SetVisible(position, true);
            continue;
        }
        const bool shown = k < captions.size();
        menu.SetVisible(position, shown);
        if (shown) {
            menu.SetCaption(position, captions[k]);
            menu.SetEnabled(position, true);
        }
    }
}

} // namespace quorvel
