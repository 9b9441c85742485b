// The pop-up tree. Its shortcuts are shown beside the captions only: the keys
// themselves belong to the menu bar, so a key press has one owner.

#include "menus/menumodel.h"

namespace quorvel {

void BuildClassicMenu(MenuModel &m)
{
    using K = MenuItem::Kind;
    auto add = [&m](const char *parent, const char *key, int kind, const QString &caption,
                    const QKeySequence &shortcut = {}) {
        m.AddMenuItem(QString::fromLatin1(parent), QString::fromLatin1(key), kind, caption, shortcut);
    };
    auto separator = [&m](const char *parent) { m.AddMenuItem(QString::fromLatin1(parent), {}, K::Separator, {}); };
    auto ctrl = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };

    add("", "mnuFileMenu", K::Command, QStringLiteral("&File"));
    add("mnuFileMenu", "mnuOpenMenu", K::Command, QStringLiteral("&Open"));
    add("mnuOpenMenu", "mnuOpenFile", K::Command, QStringLiteral("Open Video File..."), ctrl(Qt::Key_O));
    add("mnuOpenMenu", "mnuOpenDVD", K::Command, QStringLiteral("Open DVD"));
    m.AddMenuItem(QStringLiteral("mnuOpenDVD"), QStringLiteral("dvdsList0"), K::Command,
                  QStringLiteral("<No DVD drives were found>"));
    for (int i = 1; i < kDvdEntries; ++i)
        m.AddMenuItem(QStringLiteral("mnuOpenDVD"), QStringLiteral("dvdsList%1").arg(i), K::Command, {}, {}, false,
                      true, false);
    separator("mnuOpenDVD");
    add("mnuOpenDVD", "mnuOpenDVDSource", K::Command, QStringLiteral("Open DVD folder or image..."));
    add("mnuFileMenu", "mnuRecentMenu", K::Command, QStringLiteral("&Recently Played files"));
    m.AddMenuItem(QStringLiteral("mnuRecentMenu"), QStringLiteral("mnuRecent0"), K::Command,
                  QStringLiteral("<No History>"), {}, false, false);
    separator("mnuFileMenu");
    add("mnuFileMenu", "mnuExit", K::Command, QStringLiteral("E&xit"));
    separator("mnuFileMenu");
    add("mnuFileMenu", "mnuOpenFolder", K::Command, QStringLiteral("Open folder..."));
    add("mnuFileMenu", "mnuOpenPlaylist", K::Command, QStringLiteral("Open playlist..."));
    add("mnuFileMenu", "mnuSavePlaylistAs", K::Command, QStringLiteral("Save playlist as..."));

    add("", "mnuPlayBackMenu", K::Command, QStringLiteral("&Play"));
    add("mnuPlayBackMenu", "mnuplay", K::Command, QStringLiteral("Play/Pause"), ctrl(Qt::Key_P));
    add("mnuPlayBackMenu", "mnustop", K::Command, QStringLiteral("Stop"), ctrl(Qt::Key_S));
    separator("mnuPlayBackMenu");
    add("mnuPlayBackMenu", "mnuPlayModeMenu", K::Command, QStringLiteral("Play Mode"));
    add("mnuPlayModeMenu", "mnuPBNormal", K::Check, QStringLiteral("&Normal"));
    add("mnuPlayModeMenu", "mnuPBCont", K::Check, QStringLiteral("&Continuous"));
    add("mnuPlayModeMenu", "mnuPBShuffle", K::Check, QStringLiteral("&Shuffle"));
    add("mnuPlayBackMenu", "mnuRepeatMode", K::Command, QStringLiteral("Repeat Mode"));
    add("mnuRepeatMode", "mnuRMNoRepeat", K::Check, QStringLiteral("&No Repeat"));
    add("mnuRepeatMode", "mnuRMSingleRepeat", K::Check, QStringLiteral("&Single Repeat"));
    add("mnuRepeatMode", "mnuRMRepeatAll", K::Check, QStringLiteral("&Repeat All"));
    separator("mnuPlayBackMenu");
    add("mnuPlayBackMenu", "mnufullscreen", K::Command, QStringLiteral("Full Screen"), ctrl(Qt::Key_F));
    separator("mnuPlayBackMenu");
    add("mnuPlayBackMenu", "mnuincspeed", K::Command, QStringLiteral("Increase Speed"), ctrl(Qt::Key_Up));
    add("mnuPlayBackMenu", "mnudecSpeed", K::Command, QStringLiteral("Decrease Speed"), ctrl(Qt::Key_Down));
    add("mnuPlayBackMenu", "mnuresSpeed", K::Command, QStringLiteral("Reset Speed"), ctrl(Qt::Key_R));
    separator("mnuPlayBackMenu");
    add("mnuPlayBackMenu", "mnuAfterMenu", K::Command, QStringLiteral("After playing finish"));
    add("mnuAfterMenu", "mnuAfterPlaying0", K::Check, QStringLiteral("Do nothing"));
    add("mnuAfterMenu", "mnuAfterPlaying1", K::Check, QStringLiteral("Exit Quorvel"));
    add("mnuAfterMenu", "mnuAfterPlaying2", K::Check, QStringLiteral("Restart the Computer"));
    add("mnuAfterMenu", "mnuAfterPlaying3", K::Check, QStringLiteral("Shutdown the Computer"));
    AddTrackBranches(m, QStringLiteral("mnu"));

    add("", "mnuPlayListmenu", K::Command, QStringLiteral("Play &List"));
    add("mnuPlayListmenu", "mnuPlayListAdd", K::Command, QStringLiteral("Add Media File(s)..."));
    add("mnuPlayListmenu", "mnuPlayListRemove", K::Command, QStringLiteral("Remove"));
    add("mnuPlayListmenu", "mnuPlayListRemoveAll", K::Command, QStringLiteral("Remove All"));
    separator("mnuPlayListmenu");
    add("mnuPlayListmenu", "mnuNext", K::Command, QStringLiteral("Next"), QKeySequence(Qt::Key_PageDown));
    add("mnuPlayListmenu", "mnuPrev", K::Command, QStringLiteral("Previous"), QKeySequence(Qt::Key_PageUp));

    add("", "mnuToolsMenu", K::Command, QStringLiteral("&Tools"));
    add("mnuToolsMenu", "mnuSettings", K::Command, QStringLiteral("&Options..."));
    add("mnuToolsMenu", "mnuPlaybackPreferences", K::Command, QStringLiteral("Playback preferences..."));
    add("mnuToolsMenu", "mnuEqualizer", K::Command, QStringLiteral("Equalizer..."));
    add("", "mnuHelpMenu", K::Command, QStringLiteral("&Help"));
    add("mnuHelpMenu", "mnuAbout", K::Command, QStringLiteral("&About"));
    add("mnuHelpMenu", "mnuHelp", K::Command, QStringLiteral("Help Topics"), QKeySequence(Qt::Key_F1));
}

} // namespace quorvel
