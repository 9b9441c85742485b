#pragma once
// The small panel over the video's lower left corner after a file resumed:
// "Resume at 12:34" keeps the place, "Start over" goes back to the beginning.
// It only shows and forwards; the keeper decides and closes it.

#include <QFrame>

class QPushButton;

namespace quorvel {

class ResumePrompt : public QFrame {
    Q_OBJECT
public:
    // Shown over `video`, which may hold the engine's own native window.
    ResumePrompt(QWidget *window, QWidget *video);
    // "Resume at 12:34" for `positionMs`; hours when the file has them.
    static QString resumeCaption(qint64 positionMs);
    void offer(qint64 positionMs);
    // Follows the video when the window changes size.
    void place();

signals:
    void resumeChosen();
    void startOverChosen();

private:
    QWidget *m_video;
    QPushButton *m_resume;
    QPushButton *m_startOver;
};

} // namespace quorvel
