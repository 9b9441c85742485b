#include "resumeprompt.h"

#include "common/logging.h"
#include "skin/theme.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace quorvel {

ResumePrompt::ResumePrompt(QWidget *window, QWidget *video) : QFrame(window), m_video(video)
{
    setObjectName(QStringLiteral("resumePrompt"));
    // The engine draws into a native window of its own, which would cover a
    // panel drawn into ours: the panel gets its own window, stacked above.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setStyleSheet(theme::overlayStyleSheet());
    m_resume = new QPushButton(this);
    m_resume->setObjectName(QStringLiteral("resumeButton"));
    m_startOver = new QPushButton(QStringLiteral("Start over"), this);
    m_startOver->setObjectName(QStringLiteral("startOverButton"));
    for (QPushButton *b : {m_resume, m_startOver}) {
        b->setCursor(Qt::PointingHandCursor);
        b->setFocusPolicy(Qt::NoFocus); // the player keys stay with the window
    }
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(6, 6, 6, 6);
    row->setSpacing(6);
    row->addWidget(m_resume);
    row->addWidget(m_startOver);
    connect(m_resume, &QPushButton::clicked, this, &ResumePrompt::resumeChosen);
    connect(m_startOver, &QPushButton::clicked, this, &ResumePrompt::startOverChosen);
    hide();
}

QString ResumePrompt::resumeCaption(qint64 positionMs)
{
    const qint64 s = positionMs / 1000;
    const QString time = s >= 3600 ? QStringLiteral("%1:%2:%3")
                                         .arg(s / 3600)
                                         .arg(s / 60 % 60, 2, 10, QLatin1Char('0'))
                                         .arg(s % 60, 2, 10, QLatin1Char('0'))
                                   : QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, QLatin1Char('0'));
    return QStringLiteral("Resume at ") + time;
}

void ResumePrompt::offer(qint64 positionMs)
{
    m_resume->setText(resumeCaption(positionMs));
    adjustSize();
    place();
    show();
    raise();
    qCDebug(lcApp).noquote() << "resume offered:" << m_resume->text() << "/" << m_startOver->text();
}

void ResumePrompt::place()
{
    if (!m_video || !parentWidget())
        return;
    const QRect area(m_video->mapTo(parentWidget(), QPoint(0, 0)), m_video->size());
    // Centred near the bottom of the picture, never wider than the video.
    const QSize size(qMin(sizeHint().width(), area.width()), sizeHint().height());
    move(area.left() + (area.width() - size.width()) / 2, area.bottom() - size.height() - 10);
    resize(size);
    raise();
}

} // namespace quorvel
