#pragma once
// "Playback preferences...": how files played part way start again and what
// opening a folder does. The dialog edits a copy; the caller stores it.

#include "settings/playbackprefs.h"

#include <QDialog>
#include <optional>

class QButtonGroup;
class QCheckBox;

namespace quorvel {

class PlaybackPrefsDialog : public QDialog {
    Q_OBJECT
public:
    PlaybackPrefsDialog(const PlaybackPrefs &prefs, QWidget *parent = nullptr);
    PlaybackPrefs prefs() const;
    // Shows the dialog; the edited preferences when the user chose OK.
    static std::optional<PlaybackPrefs> edit(const PlaybackPrefs &prefs, QWidget *parent);

private:
    QButtonGroup *m_resume;
    QCheckBox *m_subfolders;
    QCheckBox *m_nextInFolder;
};

} // namespace quorvel
