#include "logging.h"

#include <chrono>

Q_LOGGING_CATEGORY(lcApp, "quorvel.app", QtWarningMsg)
Q_LOGGING_CATEGORY(lcPlayback, "quorvel.playback", QtWarningMsg)
Q_LOGGING_CATEGORY(lcPlaylist, "quorvel.playlist", QtWarningMsg)
Q_LOGGING_CATEGORY(lcMedia, "quorvel.media", QtWarningMsg)
Q_LOGGING_CATEGORY(lcSkin, "quorvel.skin", QtWarningMsg)

qint64 MonotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
