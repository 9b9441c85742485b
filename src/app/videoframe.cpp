#include "videoframe.h"

#include "common/paths.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>

namespace quorvel {

QStringList DroppedPaths(const QMimeData *data)
{
    QStringList paths;
    if (!data || !data->hasUrls())
        return paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

namespace {
// A drag is welcome only when it brings at least one media file or a
// folder, which the drop turns into its media files as the list does.
bool offersMedia(const QMimeData *data)
{
    for (const QString &p : DroppedPaths(data)) {
        if (IsSupportedFile(p) || QFileInfo(p).isDir())
            return true;
    }
    return false;
}
} // namespace

VideoFrame::VideoFrame(QWidget *parent) : QWidget(parent), m_surface(new QWidget(this))
{
    setObjectName(QStringLiteral("fraVideo"));
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, Qt::black);
    setPalette(pal);
    m_surface->setObjectName(QStringLiteral("VLCPlayer"));
    m_surface->setAttribute(Qt::WA_NativeWindow);
    m_surface->setAttribute(Qt::WA_DontCreateNativeAncestors);
    m_surface->setAttribute(Qt::WA_OpaquePaintEvent);
    m_surface->setAutoFillBackground(true);
    m_surface->setPalette(pal);
    m_surface->setAcceptDrops(false); // drops reach the frame
    // The engine leaves mouse events to us; they arrive at the surface.
    m_surface->installEventFilter(this);
}

bool VideoFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_surface && event->type() == QEvent::MouseButtonDblClick) {
        emit doubleClicked();
        return true;
    }
    if (watched == m_surface && event->type() == QEvent::MouseButtonPress) {
        auto *press = static_cast<QMouseEvent *>(event);
        if (press->button() == Qt::RightButton) {
            emit rightClicked(m_surface->mapTo(this, press->position().toPoint()));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void VideoFrame::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_surface->setGeometry(rect());
}

void VideoFrame::dragEnterEvent(QDragEnterEvent *event)
{
    if (offersMedia(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void VideoFrame::dragMoveEvent(QDragMoveEvent *event)
{
    if (offersMedia(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void VideoFrame::dropEvent(QDropEvent *event)
{
    const QStringList paths = DroppedPaths(event->mimeData());
    event->acceptProposedAction();
    emit filesDropped(paths);
}

void VideoFrame::showLogo(bool on)
{
    if (on == m_showLogo)
        return;
    m_showLogo = on;
    // The engine draws into the surface; with nothing to draw it steps aside.
    m_surface->setVisible(!on);
    update();
}

void VideoFrame::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), Qt::black);
    if (!m_showLogo || m_logo.isNull())
        return;
    const int side = qMin(qMin(width(), height()) * 2 / 3, 256);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRect((width() - side) / 2, (height() - side) / 2, side, side), m_logo);
}

void VideoFrame::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton)
        emit rightClicked(event->position().toPoint());
    QWidget::mousePressEvent(event);
}

void VideoFrame::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    emit doubleClicked();
}

} // namespace quorvel
