#include "app/seekpreview.h"

#include "common/logging.h"
#include "common/tracelines.h"
#include "playback/engine.h"
#include "playback/playbackstate.h"
#include "skin/theme.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace quorvel {

// The box itself: a window of its own, because the engine's native video
// window would cover anything drawn into ours, and because near the screen's
// edge it may stand outside the player's window.
class SeekPreviewBox : public QWidget {
public:
    explicit SeekPreviewBox(QWidget *window)
        : QWidget(window,
                  Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput)
    {
        setObjectName(QStringLiteral("seekPreview"));
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        m_colours = theme::listPalette(palette());
    }
    void set(const QImage &image, const QString &text)
    {
        m_image = image;
        m_text = text;
        const int textHeight = fontMetrics().height() + 4;
        const int width = image.isNull() ? fontMetrics().horizontalAdvance(text) + 2 * kText : image.width() + 2 * kPad;
        resize(width, (image.isNull() ? 0 : image.height() + kPad) + textHeight + kPad);
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter p(this);
        p.fillRect(rect(), m_colours.color(QPalette::Window));
        p.setPen(m_colours.color(QPalette::Mid));
        p.drawRect(rect().adjusted(0, 0, -1, -1));
        int top = kPad;
        if (!m_image.isNull()) {
            p.drawImage(kPad, kPad, m_image);
            top += m_image.height();
        }
        p.setPen(m_colours.color(QPalette::Text));
        p.drawText(QRect(0, top, width(), height() - top - kPad / 2), Qt::AlignCenter, m_text);
    }

private:
    static constexpr int kPad = 4;
    static constexpr int kText = 8;
    QPalette m_colours;
    QImage m_image;
    QString m_text;
};

SeekPreview::SeekPreview(QWidget &window, const PlaybackState &playback)
    : m_window(window), m_playback(playback), m_box(new SeekPreviewBox(&window))
{
    connect(&m_grabber, &FrameGrabber::frameReady, this, &SeekPreview::frameReady);
    // Straight from the bar onto the video the window gets neither a move
    // nor a leave (the engine's window takes the pointer): look where it is.
    m_watch.setInterval(100);
    connect(&m_watch, &QTimer::timeout, this, [this] {
        if (!m_bar.contains(QCursor::pos()) || !m_window.isVisible() || m_window.isMinimized())
            hide();
    });
}

SeekPreview::~SeekPreview()
{
    delete m_box.data(); // unless the window took it along already
}

QString SeekPreview::timeText(qint64 ms, bool withHours)
{
    const qint64 s = std::max<qint64>(ms, 0) / 1000;
    const QLatin1Char zero('0');
    if (withHours)
        return QStringLiteral("%1:%2:%3").arg(s / 3600).arg(s / 60 % 60, 2, 10, zero).arg(s % 60, 2, 10, zero);
    return QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, zero);
}

void SeekPreview::hover(const QRect &bar, QPoint pointer)
{
    const qint64 length = m_engine && m_playback.MediaLoaded ? qint64(m_engine->length()) : 0;
    // Where a click would seek: not the bar's last two pixels.
    m_bar = bar.adjusted(0, 0, -2, 0);
    if (length <= 0 || !m_box || !m_bar.contains(pointer)) {
        hide();
        return;
    }
    const qint64 ms = qRound64(double(pointer.x() - bar.left()) / bar.width() * double(length));
    m_anchor = QPoint(pointer.x(), bar.top());
    if (ms == m_ms && m_playback.CurrentFile == m_file) {
        place();
        return;
    }
    m_ms = ms;
    m_file = m_playback.CurrentFile;
    qCDebug(lcApp).noquote() << trace::kPreviewHover << ms;
    // DVDs and streams show the time alone.
    if (m_file.isEmpty() || IsEngineLocation(m_file)) {
        show(PreviewFrame{m_file, ms});
        return;
    }
    show(m_grabber.nearestCached(m_file, ms));
    m_grabber.request(m_file, ms);
}

void SeekPreview::hide()
{
    if (m_ms < 0)
        return;
    m_ms = -1;
    m_grabber.cancel();
    m_watch.stop();
    if (m_box)
        m_box->hide();
    qCDebug(lcApp).noquote() << trace::kPreviewHidden;
}

void SeekPreview::frameReady(const PreviewFrame &frame)
{
    if (frame.file != m_file || frame.requestedMs != m_ms) {
        qCDebug(lcApp).noquote() << trace::kPreviewDropped + QString::number(frame.requestedMs)
                                 << u"at="_qs + QString::number(m_ms);
        return;
    }
    show(frame);
}

void SeekPreview::show(const PreviewFrame &frame)
{
    const bool hours = m_engine && m_engine->length() >= 3'600'000;
    m_box->set(frame.image, timeText(m_ms, hours));
    place();
    const QString shown = frame.kind == PreviewFrame::Frame   ? QString::number(frame.keyframeMs)
                          : frame.kind == PreviewFrame::Cover ? u"cover"_qs
                                                              : u"none"_qs;
    qCDebug(lcApp).noquote() << trace::kPreviewShown << m_ms << u"frame="_qs + shown
                             << u"for="_qs + QString::number(frame.requestedMs);
}

void SeekPreview::place()
{
    // Centred above the pointer, kept on the screen.
    QRect box(m_anchor - QPoint(m_box->width() / 2, m_box->height() + 4), m_box->size());
    const QScreen *screen = QGuiApplication::screenAt(m_anchor);
    if (!screen)
        screen = m_window.screen();
    if (screen) {
        const QRect area = screen->availableGeometry();
        box.moveLeft(std::clamp(box.left(), area.left(), std::max(area.left(), area.right() - box.width() + 1)));
        box.moveTop(std::clamp(box.top(), area.top(), std::max(area.top(), area.bottom() - box.height() + 1)));
    }
    m_box->move(box.topLeft());
    if (!m_box->isVisible())
        m_box->show();
    m_box->raise();
    m_watch.start();
}

} // namespace quorvel
