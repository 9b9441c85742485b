// The skinned surface of the main window: painting from the skin pictures,
// placing the child widgets in the skin's bands, and turning mouse events on
// the surface into button looks, commands, window moves and resizes.

#include "mainwindow.h"

#include "app/panesplitter.h"
#include "app/videoframe.h"
#include "common/logging.h"
#include "playback/vlcengine.h"
#include "skin/textellipsis.h"

#include "common/tracelines.h"
#include "playlist/fancylist.h"
#include <QCoreApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QToolTip>
#include <QWindow>

namespace quorvel {

void MainWindow::LoadSkinImages()
{
    const int loaded = m_skinImages.LoadSkinImages(ProgramFolder());
    m_skinImages.LoadProgressBack(ProgramFolder());
    if (!m_skinImages.isComplete())
        qCWarning(lcSkin) << "skin incomplete:" << loaded << "pictures loaded from" << ProgramFolder();
    const QImage &icon = m_skinImages.single(SkinSingle::WindowIcon);
    if (!icon.isNull())
        setWindowIcon(QIcon(QPixmap::fromImage(icon)));
}

void MainWindow::layoutChildren()
{
    if (m_windowStates.isFullScreen()) {
        m_splitter->setGeometry(rect());
        return;
    }
    const SkinLayout l = SkinLayout::Compute(size());
    m_menuBar->setGeometry(l.menuStrip.adjusted(0, 0, -15, 0));
    m_splitter->setGeometry(l.videoArea);
    // Adding several files shows its progress on the title bar.
    m_addProgress->setGeometry(width() - 176, 12, 90, 8);
}

void MainWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_windowStates.isFullScreen()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    SkinPaintState &s = m_skin->state();
    s.size = size();
    const SkinLayout l = SkinLayout::Compute(size());
    s.captionText = FitTextEllipsis(QFontMetrics(SkinPainter::captionFont()), m_playback.CaptionText, l.caption.width(),
                                    m_captionFlags);
    s.isMuted = m_playback.IsMuted;
    m_skin->paint(painter);
    if (!m_painted) {
        m_painted = true;
        qCDebug(lcApp) << trace::kFirstPaint << MonotonicMs();
    }
}

bool MainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !m_windowStates.isFullScreen()) {
        // The caption on the title bar may be shortened; its tooltip is whole.
        auto *help = static_cast<QHelpEvent *>(event);
        if (SkinLayout::Compute(size()).caption.contains(help->pos()))
            QToolTip::showText(help->globalPos(), m_playback.CaptionText, this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

void MainWindow::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    if (m_dragging) {
        move(event->globalPosition().toPoint() - m_dragFrom);
        return;
    }
    m_skin->setMediaLoaded(m_playback.MediaLoaded);
    runSkinReaction(m_skin->mouseMove(pos, event->buttons()));
    if (!m_windowStates.isNormal())
        return;
    // While a drag runs the window system may not have applied the last
    // size yet; the drag goes on from the size asked for.
    const QSize current = m_resizer.isResizing() && m_askedSize.isValid() ? m_askedSize : size();
    const WindowResizer::Move m = m_resizer.move(pos.x(), pos.y(), current);
    setCursor(m.cursor);
    if (m.outer != current) {
        m_askedSize = m.outer;
        resize(m_askedSize);
    }
}

void MainWindow::mousePressEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    m_skin->setMediaLoaded(m_playback.MediaLoaded);
    const SkinController::Reaction r = m_skin->mousePress(pos, event->button());
    if (m_windowStates.isNormal())
        m_resizer.press(pos.x(), pos.y(), size());
    if (r.has(SkinCommand::DragWindow) && !m_resizer.isResizing()) {
        // The window system moves the window when it can; without one the
        // window follows the pointer itself.
        if (!(windowHandle() && windowHandle()->startSystemMove())) {
            m_dragging = true;
            m_dragFrom = event->globalPosition().toPoint() - frameGeometry().topLeft();
        }
    }
    SkinController::Reaction rest = r;
    std::erase(rest.commands, SkinCommand::DragWindow);
    runSkinReaction(rest);
}

void MainWindow::mouseReleaseEvent(QMouseEvent *event)
{
    m_resizer.release();
    m_askedSize = QSize();
    m_dragging = false;
    runSkinReaction(m_skin->mouseRelease(event->position().toPoint()));
}

void MainWindow::mouseDoubleClickEvent(QMouseEvent *event)
{
    runSkinReaction(m_skin->doubleClick(event->position().toPoint()));
}

void MainWindow::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    // No button stays lit once the pointer has left the window.
    runSkinReaction(m_skin->mouseMove(QPoint(-1, -1), Qt::NoButton));
}

void MainWindow::runSkinReaction(const SkinController::Reaction &r)
{
    if (r.seekTo && m_playback.MediaLoaded) {
        m_engine->setPosition(*r.seekTo);
        qCDebug(lcPlayback) << trace::kSeek << *r.seekTo;
    }
    if (r.volume)
        setVolume(*r.volume);
    for (SkinCommand c : r.commands) {
        qCDebug(lcSkin) << "command" << int(c);
        m_dispatcher->runSkinCommand(c);
    }
    if (r.repaint || r.seekTo || r.volume)
        update();
}

void MainWindow::setVolume(int volume)
{
    m_engine->setVolume(volume);
    m_skin->state().volumeText = QString::number(volume);
    qCDebug(lcPlayback) << trace::kVolume << volume;
}

} // namespace quorvel
