#pragma once
// The small box over the seek bar while the pointer rests on it: the frame
// at the pointer's time and the time itself. It shows the nearest frame it
// already has at once and asks the grabber for the exact one; an answer is
// shown only while the pointer is still at the time it was asked for.

#include "media/framegrabber.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QTimer>

class QWidget;

namespace quorvel {

class Engine;
class SeekPreviewBox;
struct PlaybackState;

class SeekPreview : public QObject {
    Q_OBJECT
public:
    SeekPreview(QWidget &window, const PlaybackState &playback);
    ~SeekPreview() override;
    void attach(const Engine &engine) { m_engine = &engine; }

    // The pointer rests at `pointer` on the seek bar `bar` (both global,
    // no button held); the box stands above it.
    void hover(const QRect &bar, QPoint pointer);
    void hide();
    // "12:34", or "1:02:03" for a file an hour long or more.
    static QString timeText(qint64 ms, bool withHours);

private:
    void show(const PreviewFrame &frame);
    void place();
    void frameReady(const PreviewFrame &frame);

    QWidget &m_window;
    const PlaybackState &m_playback;
    const Engine *m_engine = nullptr;
    QPointer<SeekPreviewBox> m_box;
    FrameGrabber m_grabber;
    QString m_file;   // the file hovered
    qint64 m_ms = -1; // the time under the pointer; -1 while hidden
    QPoint m_anchor;  // the pointer's x on the bar's top edge
    QRect m_bar;      // where the pointer may rest; global
    QTimer m_watch;   // notices the pointer going where the window sees no moves
};

} // namespace quorvel
