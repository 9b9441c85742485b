#pragma once
// The playback engine as the rest of the program sees it: exactly the
// operations the player calls, nothing more.
//
// A "control" is one engine player. The program makes a fresh control for
// every item it starts (createControl after destroyControl), so nothing of
// one item carries over to the next. Without a control every operation does
// nothing and every query answers 0 / false: callers need not check.
//
// The engine never calls back; the program polls it from the user-interface
// thread (the playback monitor), so implementations must answer queries
// without blocking for long.

#include "settings/equalizer.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <optional>

namespace quorvel {

// True when `source` names a location for the engine ("dvd:///dev/sr0",
// "http://host/v.mp4"): a scheme followed by "://" at its very start. Local
// files are passed as paths and never read as addresses, even when a folder
// in them is called "http:" (an absolute path starts with "/").
inline bool IsEngineLocation(const QString &source)
{
    static const QRegularExpression scheme(QStringLiteral("\\A[A-Za-z][A-Za-z0-9+.-]*://"));
    return scheme.match(source).hasMatch();
}

class Engine {
public:
    // What state() answers. Anything below Playing means the item is still
    // opening or buffering.
    enum State {
        Idle = 0,
        Opening = 1,
        Buffering = 2,
        Playing = 3,
        Paused = 4,
        Stopped = 5,
        Ended = 6,
        Error = 7,
    };

    virtual ~Engine() = default;

    // Makes a new control; the previous one, if any, must have been destroyed.
    virtual void createControl() = 0;
    // Drops the control; whatever it was playing ends.
    virtual void destroyControl() = 0;
    virtual bool hasControl() const = 0;
    // Why the engine cannot play anything at all (it could not be started);
    // empty while it works. Without a working engine no control exists.
    virtual QString failure() const { return {}; }

    // Appends an item (a file path or a location such as "dvd://" + device,
    // told apart by IsEngineLocation) with its options
    // ("overlay", "snapshot-path=...", ...). `name` is a display name or empty.
    virtual void playlistAdd(const QString &mrl, const QString &name, const QStringList &options) = 0;
    // Starts or resumes the current item; after stop() it starts again from
    // the beginning.
    virtual void play() = 0;
    // Running <-> paused.
    virtual void togglePause() = 0;
    virtual void stop() = 0;
    // Items in the control's own playlist: 0 or 1 in this program.
    virtual int itemCount() const = 0;

    virtual State state() const = 0;
    // Fraction 0..1 of the item; 0 or less while unknown.
    virtual double position() const = 0;
    virtual void setPosition(double fraction) = 0;
    // Elapsed and total milliseconds; the length is 0 while unknown.
    virtual double time() const = 0;
    virtual double length() const = 0;
    // True when the item shows video.
    virtual bool hasVout() const = 0;
    // Streams the engine found in the item so far; an item that ended with
    // none could not be read (damaged, truncated, not media).
    virtual int streamCount() const = 0;

    // Audio and subtitle tracks of the current item. A track's id is the
    // engine's own and stays the same for the same file from start to start;
    // a subtitle file added while playing gets a new id. The lists are in the
    // file's order, empty without a control and until the engine has opened
    // the item (tracks appear while it opens, subtitle files beside the video
    // with them); they may grow later, when a subtitle file is added.
    struct Track {
        int id = -1;
        QString language;    // as the file has it ("eng", "ja", ...), empty when unknown
        QString description; // the track's title ("Commentary"), often empty
        bool operator==(const Track &) const = default;
    };
    virtual QList<Track> audioTracks() const = 0;
    virtual QList<Track> subtitleTracks() const = 0;
    // The ids of the tracks playing now; -1 for none (subtitles off).
    virtual int audioTrack() const = 0;
    virtual int subtitleTrack() const = 0;
    // Switches to the track of that id while the item plays; -1 turns the
    // subtitles off. An id the item does not have changes nothing.
    virtual void setAudioTrack(int id) = 0;
    virtual void setSubtitleTrack(int id) = 0;
    // Adds a subtitle file (a path) to the playing item and shows it: it
    // joins subtitleTracks() shortly after, while the engine reads it.
    virtual void addSubtitleFile(const QString &path) = 0;
    // Subtitles shown this many milliseconds later (earlier when negative);
    // 0 for every new control.
    virtual qint64 subtitleDelayMs() const = 0;
    virtual void setSubtitleDelayMs(qint64 ms) = 0;

    virtual void setRate(double rate) = 0;
    // 0..100.
    virtual void setVolume(int volume) = 0;
    virtual void toggleMute() = 0;
    virtual void setFullscreen(bool on) = 0;
    virtual void toggleFullscreen() = 0;
    // The equalizer this control and every later one play with; std::nullopt
    // turns it off. Controls made afterwards start with it.
    virtual void setEqualizer(const std::optional<EqualizerBands> &bands) = 0;
};

} // namespace quorvel
