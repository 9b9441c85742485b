#pragma once
// The playback-state flags and the values that go with the item playing.

#include <QString>
#include <QStringList>

namespace quorvel {

// The argument of `enableMediaControl`.
enum class MediaAction { Playing = 0, Stopped = 1, Paused = 2 };

struct PlaybackState {
    // The four states: nothing loaded / stopped (F,T,T), playing (T,F,F),
    // paused (F,T,F) and ended (F,F,F); the monitor enters "ended" by itself.
    bool MediaLoaded = false;
    bool IsHalted = false;
    bool IsStopped = false;

    QString CurrentFile; // path of the item started last
    double Rate = 1.0;   // speed factor
    bool IsMuted = false;
    QStringList VLCOptions; // the nine engine options
    QString CaptionText = QStringLiteral("Quorvel");

    void apply(MediaAction action)
    {
        MediaLoaded = action == MediaAction::Playing;
        IsHalted = action != MediaAction::Playing;
        IsStopped = action == MediaAction::Stopped;
    }
    bool isEnded() const { return !MediaLoaded && !IsHalted && !IsStopped; }
};

} // namespace quorvel
