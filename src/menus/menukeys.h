#pragma once
// The keys of the menu items: the one place their names are spelt. The menu
// is built from them and every part of the program that changes or answers
// an item names it through them.

#include <QLatin1StringView>
#include <QString>
#include <array>

namespace quorvel::menukey {

inline constexpr QLatin1StringView File("File");
inline constexpr QLatin1StringView OpenMenu("OpenMenu");
inline constexpr QLatin1StringView OpenFile("OpenFile");
inline constexpr QLatin1StringView OpenDVD("OpenDVD");
inline constexpr QLatin1StringView OpenDVDSource("OpenDVDSource");
inline constexpr QLatin1StringView RecentMenu("RecentMenu");
inline constexpr QLatin1StringView Exit("Exit");
inline constexpr QLatin1StringView Play("Play");
inline constexpr QLatin1StringView PlayPause("PlayPause");
inline constexpr QLatin1StringView Stop("Stop");
inline constexpr QLatin1StringView PlayMode("PlayMode");
inline constexpr QLatin1StringView PMNormal("PMNormal");
inline constexpr QLatin1StringView PMContinuous("PMContinuous");
inline constexpr QLatin1StringView PMShuffle("PMShuffle");
inline constexpr QLatin1StringView RepeatMode("RepeatMode");
inline constexpr QLatin1StringView RMNoRepeat("RMNoRepeat");
inline constexpr QLatin1StringView RMSingleRepeat("RMSingleRepeat");
inline constexpr QLatin1StringView RMRepeatAll("RMRepeatAll");
inline constexpr QLatin1StringView FullScreen("FullScreen");
inline constexpr QLatin1StringView IncreaseSpeed("IncreaseSpeed");
inline constexpr QLatin1StringView DecreaseSpeed("DecreaseSpeed");
inline constexpr QLatin1StringView ResetSpeed("ResetSpeed");
inline constexpr QLatin1StringView AfterPlay("AfterPlay");
inline constexpr QLatin1StringView Donothing("Donothing");
inline constexpr QLatin1StringView ExitQuorvel("ExitQuorvel");
inline constexpr QLatin1StringView RestartTheComputer("RestartTheComputer");
inline constexpr QLatin1StringView ShutdownTheComputer("ShutdownTheComputer");
inline constexpr QLatin1StringView PlayList("PlayList");
inline constexpr QLatin1StringView AddVideoFile("AddVideoFile");
inline constexpr QLatin1StringView Remove("Remove");
inline constexpr QLatin1StringView RemoveAll("RemoveAll");
inline constexpr QLatin1StringView Next("Next");
inline constexpr QLatin1StringView Previous("Previous");
inline constexpr QLatin1StringView Tools("Tools");
inline constexpr QLatin1StringView Options("Options");
inline constexpr QLatin1StringView Help("Help");
inline constexpr QLatin1StringView About("About");
inline constexpr QLatin1StringView HelpTopics("HelpTopics");
// Entries the program adds after the standard ones of their branch.
inline constexpr QLatin1StringView OpenFolder("OpenFolder");
inline constexpr QLatin1StringView OpenPlaylist("OpenPlaylist");
inline constexpr QLatin1StringView SavePlaylistAs("SavePlaylistAs");
inline constexpr QLatin1StringView PlaybackPreferences("PlaybackPreferences");
inline constexpr QLatin1StringView Equalizer("Equalizer");

// The drive entries under "Open DVD" ("DVDList0" ... "DVDList5") and the
// recent files under "Recently Played Files" ("History0" ... "History10").
inline constexpr QLatin1StringView DVDListPrefix("DVDList");
inline constexpr QLatin1StringView HistoryPrefix("History");
inline constexpr int kDvdSlots = 6;
inline constexpr int kHistorySlots = 11;
inline QString DVDList(int slot)
{
    return QString(DVDListPrefix).append(QString::number(slot));
}
inline QString History(int slot)
{
    return QString(HistoryPrefix).append(QString::number(slot));
}

// The Play menu's track branches: one entry per track of the playing item
// ("AudioTrack0" ... "AudioTrack15", "Subtitle0" ... "Subtitle15"), then
// the subtitle commands. The pop-up tree has the same entries with "mnu"
// before each key.
inline constexpr QLatin1StringView AudioTrackMenu("AudioTrackMenu");
inline constexpr QLatin1StringView SubtitleMenu("SubtitleMenu");
inline constexpr QLatin1StringView AudioTrackPrefix("AudioTrack");
inline constexpr QLatin1StringView SubtitlePrefix("Subtitle");
inline constexpr QLatin1StringView DisableSubtitles("DisableSubtitles");
inline constexpr QLatin1StringView LoadSubtitleFile("LoadSubtitleFile");
inline constexpr QLatin1StringView IncreaseSubtitleDelay("IncreaseSubtitleDelay");
inline constexpr QLatin1StringView DecreaseSubtitleDelay("DecreaseSubtitleDelay");
inline constexpr QLatin1StringView kClassicPrefix("mnu");
inline constexpr int kTrackSlots = 16;
inline QString AudioTrack(int slot)
{
    return QString(AudioTrackPrefix).append(QString::number(slot));
}
inline QString Subtitle(int slot)
{
    return QString(SubtitlePrefix).append(QString::number(slot));
}

// The groups of which one item is checked, in the order of their modes.
inline constexpr std::array kPlayModes{PMNormal, PMContinuous, PMShuffle};
inline constexpr std::array kRepeatModes{RMNoRepeat, RMSingleRepeat, RMRepeatAll};
inline constexpr std::array kAfterPlay{Donothing, ExitQuorvel, RestartTheComputer, ShutdownTheComputer};

} // namespace quorvel::menukey
