#pragma once
// "Playback preferences...": how files played part way start again, what
// opening a folder does and which audio and subtitle tracks an item starts
// with, in a skinned dialog of the "Options" family. The dialog edits a
// copy; the caller stores it.

#include "app/okcanceldialog.h"
#include "settings/playbackprefs.h"

#include <optional>

class QButtonGroup;
class QCheckBox;
class QLineEdit;

namespace quorvel {

class PlaybackPrefsDialog : public OkCancelDialog {
    Q_OBJECT
public:
    PlaybackPrefsDialog(const SkinImages &images, const PlaybackPrefs &prefs, QWidget *parent = nullptr);
    // What the controls hold now; language lists as ParseLanguageList reads them.
    PlaybackPrefs prefs() const;

    // Shows the dialog; the edited preferences when the user chose OK.
    static std::optional<PlaybackPrefs> edit(const PlaybackPrefs &prefs, const SkinImages &images, QWidget *parent);
    // The same with the skin read from the program folder for this one show.
    static std::optional<PlaybackPrefs> edit(const PlaybackPrefs &prefs, QWidget *parent);

private:
    QWidget *buildTracks(const PlaybackPrefs &prefs);

    QButtonGroup *m_resume = nullptr;
    QCheckBox *m_subfolders = nullptr;
    QCheckBox *m_nextInFolder = nullptr;
    QLineEdit *m_audioLanguages = nullptr;
    QLineEdit *m_subtitleLanguages = nullptr;
    QCheckBox *m_skipCommentary = nullptr;
    QButtonGroup *m_hearingImpaired = nullptr;
};

} // namespace quorvel
