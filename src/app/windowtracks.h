#pragma once
// The main window's audio tracks and subtitles: the keeper that picks and
// keeps them, the Play menu's track branches of both trees wired to it, and
// the note over the video that shows a new subtitle delay.

#include "playback/trackkeeper.h"

#include <QObject>

class QWidget;

namespace quorvel {

class CommandDispatcher;
class Player;
class VideoNote;
namespace playlist {
class FileChooser;
}

class WindowTracks : public QObject {
    Q_OBJECT
public:
    struct Parts {
        QWidget *window;
        QWidget *video;
        Engine &engine;
        const PlaybackState &state;
        Player &player;
        CommandDispatcher &dispatcher;
        playlist::FileChooser &chooser;
        ResumeStore &store;             // shared with the position keeper
        TrackKeeper::PrefsSource prefs; // the preferences in force
    };
    explicit WindowTracks(Parts parts);

    TrackKeeper &keeper() { return m_keeper; }

private:
    TrackKeeper m_keeper;
    VideoNote *m_note;
};

} // namespace quorvel
