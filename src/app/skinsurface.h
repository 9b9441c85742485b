#pragma once
// The skinned surface of the main window. It watches the window's paint,
// tooltip and mouse events: it paints the window from the skin pictures and
// turns the mouse on it into button looks, commands, seeks, volume changes,
// window moves and edge resizes. The window itself only composes.

#include "app/windowresizer.h"
#include "skin/skincontroller.h"
#include "skin/textellipsis.h"

#include <QObject>
#include <QPoint>
#include <QSize>
#include <memory>

class QHelpEvent;
class QMouseEvent;
class QWidget;

namespace quorvel {

class CommandDispatcher;
class Engine;
class SeekPreview;
class WindowStates;
struct PlaybackState;

class SkinSurface : public QObject {
    Q_OBJECT
public:
    SkinSurface(QWidget &window, const WindowStates &states, const PlaybackState &playback);
    ~SkinSurface() override;

    // Seeks and volume go to `engine`, the buttons' commands to `dispatcher`.
    void attach(Engine &engine, CommandDispatcher &dispatcher);
    // Loads the pictures from the program folder; the window gets its icon.
    void LoadSkinImages();

    SkinController &skin() { return *m_skin; }
    // The pictures, for the dialogs drawn in the same skin.
    const SkinImages &images() const { return m_images; }
    // How the caption is shortened when the title bar is too narrow.
    void setCaptionFlags(int flags) { m_captionFlags = flags; }
    void setButtonsEnabled(const std::vector<std::pair<int, bool>> &buttons);
    void setVolume(int volume);
    void changeVolume(int delta);
    // What the transport shows; the window repaints only on a change.
    void setTimeText(const QString &text);
    void setRateText(const QString &text, bool visible);
    void setProgressPercent(int percent);
    // The seek bar's preview goes once the item no longer plays.
    void followMediaControl(bool playing);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paint();
    void showCaptionTip(const QHelpEvent &help);
    void mouseMove(const QMouseEvent &event);
    void mousePress(const QMouseEvent &event);
    void mouseRelease(const QMouseEvent &event);
    // The preview over the seek bar follows a pointer resting on it.
    void followPointer(const QMouseEvent &event);
    void run(const SkinController::Reaction &reaction);

    QWidget &m_window;
    const WindowStates &m_states;
    const PlaybackState &m_playback;
    Engine *m_engine = nullptr;
    CommandDispatcher *m_dispatcher = nullptr;
    SkinImages m_images;
    std::unique_ptr<SkinController> m_skin;
    std::unique_ptr<SeekPreview> m_preview;
    WindowResizer m_resizer;
    QPoint m_dragFrom; // pointer offset while the title bar moves the window by hand
    bool m_dragging = false;
    QSize m_askedSize; // the size last asked for during an edge drag
    int m_captionFlags = PathEllipsis;
    bool m_painted = false;
};

} // namespace quorvel
