// The transport as the window shows it: the time and rate texts and the
// progress on the skin, the playlist and the open command.

#include "mainwindow.h"

#include "app/playlistplacement.h"
#include "app/skinsurface.h"
#include "app/videoframe.h"
#include "playback/vlcengine.h"
#include "playlist/fancylist.h"
#include "playlist/openfiles.h"

namespace quorvel {

void MainWindow::setTimeText(const QString &text)
{
    // Once the item plays, an item without a picture gets the audio logo.
    if (m_engine->state() == Engine::Playing)
        m_videoFrame->showLogo(!m_engine->hasVout());
    m_surface->setTimeText(text);
}

void MainWindow::setRateText(const QString &text, bool visible)
{
    m_surface->setRateText(text, visible);
}

void MainWindow::setProgressPercent(int percent)
{
    m_surface->setProgressPercent(percent);
}

void MainWindow::openFiles(bool append)
{
    m_openFiles->OpenFiles(append);
}

void MainWindow::togglePlaylist()
{
    m_listWidget->setVisible(m_listWidget->isHidden());
    m_placement->SetPlaylistPosition(m_listWidget->isHidden() ? 5 : m_settings.PlaylistPosition);
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
