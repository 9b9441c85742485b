#pragma once
// The keyed menu: every command of the menu bar as an item with a key, a
// parent key, a kind, a caption, a shortcut and its check, enabled and visible
// states. Other parts of the program change items only through their keys;
// the menu bar widget shows the model and reports choices as positions.

#include <QKeySequence>
#include <QObject>
#include <QString>
#include <QVector>

namespace quorvel {

struct MenuItem {
    enum Kind { Command = 0, Check = 2, Separator = 3 };
    QString key;
    QString parentKey; // empty for the top-level entries
    int kind = Command;
    QString caption; // "&" marks the mnemonic letter
    QKeySequence shortcut;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
};

class MenuModel : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    void AddMenuItem(const QString &parentKey, const QString &key, int kind, const QString &caption,
                     const QKeySequence &shortcut = {}, bool checked = false, bool enabled = true, bool visible = true);
    // Position of the item with `key`, or -1.
    int IndexOfKey(const QString &key) const;
    QString KeyAt(int position) const;
    QString CaptionAt(int position) const;
    void SetCaption(int position, const QString &text);
    void SetEnabled(int position, bool enabled);
    void SetChecked(int position, bool checked);
    void SetVisible(int position, bool visible);

    // Keyed shorthands for the state changes the program makes.
    void setEnabled(const QString &key, bool enabled) { SetEnabled(IndexOfKey(key), enabled); }
    void setChecked(const QString &key, bool checked) { SetChecked(IndexOfKey(key), checked); }
    bool isChecked(const QString &key) const;
    bool isEnabled(const QString &key) const;
    bool isVisible(const QString &key) const;
    QString caption(const QString &key) const { return CaptionAt(IndexOfKey(key)); }

    int count() const { return static_cast<int>(m_items.size()); }
    const MenuItem &item(int position) const { return m_items.at(position); }
    // Reports a choice by the user.
    void choose(int position);
    // Reports that the branch at `position` is about to open.
    void open(int position);

signals:
    void itemChanged(int position);
    void MenuItemClick(int position);
    void branchOpening(int position);

private:
    bool valid(int position) const { return position >= 0 && position < count(); }
    QVector<MenuItem> m_items;
};

inline const QString kNoDvdDrivesCaption = QStringLiteral("<No DVD drives were found>");
// Drive entries of either tree ("DVDList0".."DVDList5", "dvdsList0".."dvdsList5").
inline constexpr int kDvdEntries = 6;

// Builds the program's menu bar in its fixed order.
void BuildMenu(MenuModel &menu);
// Shows the captions of the drives in "DVDList0" ... "DVDList5"; without
// drives, "DVDList0" says so, disabled.
void ShowDvdDrives(MenuModel &menu, const QStringList &captions);
// Adds the Play menu's "Audio track" and "Subtitles" branches (menukeys.h),
// with `prefix` before every key: empty for the menu bar, "mnu" for the
// pop-up tree. The track entries start hidden; the window fills them.
void AddTrackBranches(MenuModel &menu, const QString &prefix);
inline const QString kNoAudioTracksCaption = QStringLiteral("<No audio tracks>");
inline const QString kNoSubtitlesCaption = QStringLiteral("<No subtitles>");
// What the track branches show: the tracks' names in the engine's order, the
// index of the current one in each list (-1 for none), and whether an item
// is loaded, so that subtitle commands can act on it.
struct TrackEntries {
    QStringList audio;
    int audioCurrent = -1;
    QStringList subtitles;
    int subtitleCurrent = -1;
    bool usable = false;
};
// Fills the track entries of one tree (`prefix` as for AddTrackBranches): one
// entry per track, the current one checked; the first entry says there are
// none, disabled, when a list is empty. "Disable subtitles" is checked while
// none shows.
void ShowTracks(MenuModel &menu, const QString &prefix, const TrackEntries &entries);
// Builds the pop-up tree: the same commands under their own names (the keys
// are the entry names, "dvdsList0" for the first drive entry), popped up by
// branch from the tray, the video, the playlist and the DVD button.
void BuildClassicMenu(MenuModel &menu);

} // namespace quorvel
