#include "videonote.h"

#include "common/logging.h"

#include <QEvent>

namespace quorvel {

VideoNote::VideoNote(QWidget *window, QWidget *video) : QLabel(window), m_video(video)
{
    setObjectName(QStringLiteral("videoNote"));
    // The engine draws into a native window of its own, which would cover a
    // label drawn into ours: the note gets its own window, stacked above.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyleSheet(QStringLiteral("QLabel#videoNote { background: #1b2027; color: #e6edf3; border: 1px solid #3d4754;"
                                 " border-radius: 4px; padding: 4px 8px; }"));
    m_hide.setSingleShot(true);
    m_hide.setInterval(2'000);
    connect(&m_hide, &QTimer::timeout, this, &QWidget::hide);
    if (m_video)
        m_video->installEventFilter(this);
    hide();
}

void VideoNote::flash(const QString &text)
{
    setText(text);
    adjustSize();
    place();
    show();
    raise();
    m_hide.start();
    qCDebug(lcApp).noquote() << "note shown:" << text;
}

void VideoNote::place()
{
    if (!m_video || !parentWidget())
        return;
    const QPoint corner = m_video->mapTo(parentWidget(), QPoint(10, 10));
    resize(qMin(sizeHint().width(), m_video->width() - 20), sizeHint().height());
    move(corner);
    raise();
}

bool VideoNote::eventFilter(QObject *watched, QEvent *event)
{
    if (isVisible() && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        place();
    return QLabel::eventFilter(watched, event);
}

} // namespace quorvel
