#include "app/skinsurface.h"

#include "app/seekpreview.h"
#include "app/windowstates.h"
#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "menus/commanddispatcher.h"
#include "playback/engine.h"
#include "playback/playbackstate.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWidget>
#include <QWindow>

namespace quorvel {

SkinSurface::SkinSurface(QWidget &window, const WindowStates &states, const PlaybackState &playback)
    : m_window(window), m_states(states), m_playback(playback), m_skin(std::make_unique<SkinController>(m_images)),
      m_preview(std::make_unique<SeekPreview>(window, playback))
{
    // The engine starts at full volume; the slider says so from the start.
    m_skin->state().knobLeft = 51;
    m_skin->state().volumeText = QStringLiteral("100");
    m_window.setMouseTracking(true);
    m_window.installEventFilter(this);
}

SkinSurface::~SkinSurface() = default;

void SkinSurface::attach(Engine &engine, CommandDispatcher &dispatcher)
{
    m_engine = &engine;
    m_preview->attach(engine);
    m_dispatcher = &dispatcher;
}

void SkinSurface::LoadSkinImages()
{
    const int loaded = m_images.LoadSkinImages(ProgramFolder());
    m_images.LoadProgressBack(ProgramFolder());
    if (!m_images.isComplete())
        qCWarning(lcSkin) << "skin incomplete:" << loaded << "pictures loaded from" << ProgramFolder();
    const QImage &icon = m_images.single(SkinSingle::WindowIcon);
    if (!icon.isNull())
        m_window.setWindowIcon(QIcon(QPixmap::fromImage(icon)));
}

bool SkinSurface::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != &m_window)
        return false;
    switch (event->type()) {
    case QEvent::Paint:
        paint();
        return true;
    case QEvent::ToolTip:
        if (m_states.isFullScreen())
            return false;
        showCaptionTip(*static_cast<QHelpEvent *>(event));
        return true;
    case QEvent::MouseMove:
        mouseMove(*static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::MouseButtonPress:
        mousePress(*static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::MouseButtonRelease:
        mouseRelease(*static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        run(m_skin->doubleClick(static_cast<QMouseEvent *>(event)->position().toPoint()));
        return true;
    case QEvent::Leave:
        // No button stays lit once the pointer has left the window.
        run(m_skin->mouseMove(QPoint(-1, -1), Qt::NoButton));
        m_preview->hide();
        return false;
    default:
        return false;
    }
}

void SkinSurface::paint()
{
    QPainter painter(&m_window);
    if (m_states.isFullScreen()) {
        painter.fillRect(m_window.rect(), Qt::black);
        return;
    }
    SkinPaintState &s = m_skin->state();
    s.size = m_window.size();
    const SkinLayout l = SkinLayout::Compute(s.size);
    s.captionText = FitTextEllipsis(QFontMetrics(SkinPainter::captionFont()), m_playback.CaptionText, l.caption.width(),
                                    m_captionFlags);
    s.isMuted = m_playback.IsMuted;
    m_skin->paint(painter);
    if (!m_painted) {
        m_painted = true;
        qCDebug(lcApp) << trace::kFirstPaint << MonotonicMs();
    }
}

void SkinSurface::showCaptionTip(const QHelpEvent &help)
{
    // The caption on the title bar may be shortened; its tooltip is whole.
    if (SkinLayout::Compute(m_window.size()).caption.contains(help.pos()))
        QToolTip::showText(help.globalPos(), m_playback.CaptionText, &m_window);
    else
        QToolTip::hideText();
}

void SkinSurface::mouseMove(const QMouseEvent &event)
{
    const QPoint pos = event.position().toPoint();
    if (m_dragging) {
        m_window.move(event.globalPosition().toPoint() - m_dragFrom);
        return;
    }
    followPointer(event);
    m_skin->setMediaLoaded(m_playback.MediaLoaded);
    run(m_skin->mouseMove(pos, event.buttons()));
    if (!m_states.isNormal())
        return;
    // While a drag runs the window system may not have applied the last
    // size yet; the drag goes on from the size asked for.
    const QSize current = m_resizer.isResizing() && m_askedSize.isValid() ? m_askedSize : m_window.size();
    const WindowResizer::Move m = m_resizer.move(pos.x(), pos.y(), current);
    m_window.setCursor(m.cursor);
    if (m.outer != current) {
        m_askedSize = m.outer;
        m_window.resize(m_askedSize);
    }
}

void SkinSurface::followPointer(const QMouseEvent &event)
{
    const QRect bar = SkinLayout::Compute(m_window.size()).seekBar;
    // With no button held: a drag seeks already.
    if (event.buttons() == Qt::NoButton && !m_states.isFullScreen() && bar.contains(event.position().toPoint()))
        m_preview->hover(QRect(m_window.mapToGlobal(bar.topLeft()), bar.size()), event.globalPosition().toPoint());
    else
        m_preview->hide();
}

void SkinSurface::mousePress(const QMouseEvent &event)
{
    m_preview->hide();
    const QPoint pos = event.position().toPoint();
    m_skin->setMediaLoaded(m_playback.MediaLoaded);
    SkinController::Reaction r = m_skin->mousePress(pos, event.button());
    if (m_states.isNormal())
        m_resizer.press(pos.x(), pos.y(), m_window.size());
    if (r.has(SkinCommand::DragWindow) && !m_resizer.isResizing()) {
        // The window system moves the window when it can; without one the
        // window follows the pointer itself.
        QWindow *handle = m_window.windowHandle();
        if (!(handle && handle->startSystemMove())) {
            m_dragging = true;
            m_dragFrom = event.globalPosition().toPoint() - m_window.frameGeometry().topLeft();
        }
    }
    std::erase(r.commands, SkinCommand::DragWindow);
    run(r);
}

void SkinSurface::mouseRelease(const QMouseEvent &event)
{
    m_resizer.release();
    m_askedSize = QSize();
    m_dragging = false;
    run(m_skin->mouseRelease(event.position().toPoint()));
}

void SkinSurface::run(const SkinController::Reaction &r)
{
    if (r.seekTo && m_playback.MediaLoaded && m_engine) {
        m_engine->setPosition(*r.seekTo);
        qCDebug(lcPlayback) << trace::kSeek << *r.seekTo;
    }
    if (r.volume)
        setVolume(*r.volume);
    for (SkinCommand c : r.commands) {
        qCDebug(lcSkin) << "command" << int(c);
        if (m_dispatcher)
            m_dispatcher->runSkinCommand(c);
    }
    if (r.repaint || r.seekTo || r.volume)
        m_window.update();
}

void SkinSurface::followMediaControl(bool playing)
{
    if (!playing)
        m_preview->hide();
}

void SkinSurface::setButtonsEnabled(const std::vector<std::pair<int, bool>> &buttons)
{
    for (const auto &[index, usable] : buttons)
        m_skin->buttons().setEnabled(index, usable);
    if (!buttons.empty())
        m_window.update();
}

void SkinSurface::setVolume(int volume)
{
    if (m_engine)
        m_engine->setVolume(volume);
    m_skin->state().volumeText = QString::number(volume);
    qCDebug(lcPlayback) << trace::kVolume << volume;
}

void SkinSurface::changeVolume(int delta)
{
    const int volume = std::clamp(m_skin->state().volumeText.toInt() + delta, 0, 100);
    m_skin->state().knobLeft = qRound(volume * (SkinLayout::kTrackWidth - SkinLayout::kKnobWidth) / 100.0);
    setVolume(volume);
    m_window.update();
}

void SkinSurface::setTimeText(const QString &text)
{
    if (m_skin->state().timeText != text) {
        m_skin->state().timeText = text;
        m_window.update();
    }
}

void SkinSurface::setRateText(const QString &text, bool visible)
{
    const QString shown = visible ? text : QString();
    if (m_skin->state().rateText != shown) {
        m_skin->state().rateText = shown;
        m_window.update();
    }
}

void SkinSurface::setProgressPercent(int percent)
{
    const int before = m_skin->state().fillWidth;
    m_skin->SetProgressPercent(qBound(0, percent, 100));
    if (m_skin->state().fillWidth != before)
        m_window.update();
}

} // namespace quorvel
