#pragma once
// A short line over the video's upper left corner ("Subtitle delay: 300 ms")
// that goes away by itself after two seconds. It only shows text.

#include <QLabel>
#include <QTimer>

namespace quorvel {

class VideoNote : public QLabel {
    Q_OBJECT
public:
    // Shown over `video`, which may hold the engine's own native window.
    VideoNote(QWidget *window, QWidget *video);
    void flash(const QString &text);
    // Follows the video when the window changes size.
    void place();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_video;
    QTimer m_hide;
};

} // namespace quorvel
