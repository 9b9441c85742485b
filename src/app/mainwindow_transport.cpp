// The transport as the window shows it: the time and rate texts and the
// progress on the skin, the playlist and the open command.

#include "mainwindow.h"

#include "app/videoframe.h"
#include "common/logging.h"
#include "playback/transport.h"
#include "playback/vlcengine.h"
#include "playlist/fancylistthumblist.h"
#include "playlist/filechooser.h"
#include "playlist/openfiles.h"

#include "playlist/fancylist.h"

namespace quorvel {

void MainWindow::setTimeText(const QString &text)
{
    // Once the item plays, an item without a picture gets the audio logo.
    if (m_engine->state() == Engine::Playing)
        m_videoFrame->showLogo(!m_engine->hasVout());
    if (m_skin->state().timeText != text) {
        m_skin->state().timeText = text;
        update();
    }
}

void MainWindow::setRateText(const QString &text, bool visible)
{
    const QString shown = visible ? text : QString();
    if (m_skin->state().rateText != shown) {
        m_skin->state().rateText = shown;
        update();
    }
}

void MainWindow::setProgressPercent(int percent)
{
    const int before = m_skin->state().fillWidth;
    m_skin->SetProgressPercent(qBound(0, percent, 100));
    if (m_skin->state().fillWidth != before)
        update();
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
    update(); // the sound button shows the muted picture
}

} // namespace quorvel
