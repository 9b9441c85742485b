#pragma once
// One logging category per subsystem: QT_LOGGING_RULES="quorvel.playback.debug=true"
// switches on the trace of one area when a user reports a problem.

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcApp)
Q_DECLARE_LOGGING_CATEGORY(lcPlayback)
Q_DECLARE_LOGGING_CATEGORY(lcPlaylist)
Q_DECLARE_LOGGING_CATEGORY(lcMedia)
Q_DECLARE_LOGGING_CATEGORY(lcSkin)

// Milliseconds on the system's monotonic clock, comparable between processes:
// traces carry it so benchmarks can time a start from the outside.
qint64 MonotonicMs();
