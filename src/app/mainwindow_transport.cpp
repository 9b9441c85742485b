// The transport as the window shows it: the time and rate texts, the
// progress, and a row of buttons for the commands.

#include "mainwindow.h"

#include "common/logging.h"
#include "playback/transport.h"
#include "playlist/listwidgetthumblist.h"
#include "playlist/opendialog.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QStyle>
#include <QToolButton>

namespace quorvel {

void MainWindow::buildControls(QBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(4, 2, 4, 4);
    row->setSpacing(2);
    auto add = [&](const QString &name, QStyle::StandardPixmap icon, const QString &tip) {
        auto *b = new QToolButton(this);
        b->setObjectName(name);
        b->setIcon(style()->standardIcon(icon));
        b->setToolTip(tip);
        b->setAutoRaise(true);
        row->addWidget(b);
        m_buttons.insert(name, b);
        return b;
    };
    add(QStringLiteral("Previous"), QStyle::SP_MediaSkipBackward, tr("Previous"));
    QToolButton *rewind = add(QStringLiteral("Rewind"), QStyle::SP_MediaSeekBackward, tr("Rewind (hold)"));
    add(QStringLiteral("Play"), QStyle::SP_MediaPlay, tr("Play"));
    add(QStringLiteral("Pause"), QStyle::SP_MediaPause, tr("Pause"));
    add(QStringLiteral("Stop"), QStyle::SP_MediaStop, tr("Stop"));
    QToolButton *ff = add(QStringLiteral("ff"), QStyle::SP_MediaSeekForward, tr("Fast forward (hold)"));
    add(QStringLiteral("Next"), QStyle::SP_MediaSkipForward, tr("Next"));
    row->addStretch(1);
    add(QStringLiteral("FullScreen"), QStyle::SP_TitleBarMaxButton, tr("Full screen"));
    add(QStringLiteral("Sound"), QStyle::SP_MediaVolume, tr("Mute"));
    add(QStringLiteral("PlayList"), QStyle::SP_FileDialogListView, tr("Show or hide the playlist"));
    add(QStringLiteral("Open"), QStyle::SP_DialogOpenButton, tr("Open media files"));
    layout->addLayout(row);

    auto click = [this](const QString &name, auto command) {
        connect(m_buttons.value(name), &QToolButton::clicked, this, [this, command] {
            if (m_transport)
                (m_transport.get()->*command)();
        });
    };
    click(QStringLiteral("Previous"), &Transport::cmdPreviousClick);
    click(QStringLiteral("Play"), &Transport::CMDPlayClick);
    click(QStringLiteral("Pause"), &Transport::CMDPauseClick);
    click(QStringLiteral("Next"), &Transport::cmdNextClick);
    click(QStringLiteral("FullScreen"), &Transport::cmdFulScreenClick);
    click(QStringLiteral("Sound"), &Transport::cmdMuteClick);
    click(QStringLiteral("PlayList"), &Transport::cmdPlayListClick);
    connect(m_buttons.value(QStringLiteral("Stop")), &QToolButton::clicked, this, [this] {
        if (m_transport)
            m_transport->cmdStopClick();
    });
    connect(m_buttons.value(QStringLiteral("Open")), &QToolButton::clicked, this, [this] { openFiles(false); });
    connect(rewind, &QToolButton::pressed, this, [this] { m_transport->StartRewind(); });
    connect(rewind, &QToolButton::released, this, [this] { m_transport->StopRewind(); });
    connect(ff, &QToolButton::pressed, this, [this] { m_transport->cmdffMouseDown(); });
    connect(ff, &QToolButton::released, this, [this] { m_transport->cmdffMouseUp(); });
}

void MainWindow::setTimeText(const QString &text)
{
    m_timeLabel->setText(text);
}

void MainWindow::setRateText(const QString &text, bool visible)
{
    m_rateLabel->setText(text);
    m_rateLabel->setVisible(visible);
}

void MainWindow::setProgressPercent(int percent)
{
    m_progress->setValue(qBound(0, percent, 100));
}

void MainWindow::openFiles(bool append)
{
    m_openFiles->OpenFiles(append);
}

void MainWindow::togglePlaylist()
{
    m_listWidget->setVisible(m_listWidget->isHidden());
    SetPlaylistPosition(m_listWidget->isHidden() ? 5 : m_settings.PlaylistPosition);
}

void MainWindow::closeWindow()
{
    close();
}

void MainWindow::controlsChanged()
{
    m_buttons.value(QStringLiteral("Sound"))
        ->setIcon(style()->standardIcon(m_playback.IsMuted ? QStyle::SP_MediaVolumeMuted : QStyle::SP_MediaVolume));
}

} // namespace quorvel
