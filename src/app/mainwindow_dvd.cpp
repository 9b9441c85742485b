// DVDs in the main window: the drives in the Open DVD menu, the check timer,
// "Open DVD folder or image..." and DVD folders or images given as files.

#include "mainwindow.h"

#include "app/dvdsourcedialog.h"
#include "app/videoframe.h"
#include "common/paths.h"
#include "menus/menukeys.h"
#include "menus/menuview.h"
#include "playback/dvdplayback.h"

#include <QMenu>

namespace quorvel {

void MainWindow::setupDvd()
{
    m_drives = std::make_unique<SystemDriveList>();
    m_dvd = std::make_unique<DvdPlayback>(*m_drives, *m_transport, *m_player, *m_playlist, m_notifier, *this,
                                          m_tables.AppPath);
    m_dispatcher->setDriveActions(this);
    connect(m_dvd.get(), &DvdPlayback::drivesChanged, this, [this] { m_dispatcher->setDvdEntries(m_dvd->captions()); });
    connect(m_dvd.get(), &DvdPlayback::started, this, [this] { m_videoFrame->showLogo(false); });
    connect(&m_menu, &MenuModel::MenuItemClick, this, [this](int position) {
        if (m_menu.KeyAt(position) == menukey::OpenDVDSource)
            openDvdSource();
    });
    connect(&m_classicMenu, &MenuModel::MenuItemClick, this, [this](int position) {
        if (m_classicMenu.KeyAt(position) == u"mnuOpenDVDSource")
            openDvdSource();
    });
    // Opening the branch (from the menu bar or the DVD button) lists the drives as they are now.
    if (QMenu *branch = m_menuView ? m_menuView->menuFor(menukey::OpenDVD) : nullptr)
        connect(branch, &QMenu::aboutToShow, m_dvd.get(), &DvdPlayback::refresh);
}

void MainWindow::playDrive(int index)
{
    m_dvd->playDrive(index);
}

void MainWindow::refreshDrives()
{
    m_dvd->refresh();
}

void MainWindow::openDvdSource()
{
    const QString chosen = DvdSourceDialog::choose(this, m_dvdFolder);
    if (chosen.isEmpty())
        return;
    m_dvdFolder = GetFolderOf(chosen);
    m_dvd->playDvdSource(chosen);
}

QStringList MainWindow::playDvdAmong(const QStringList &files)
{
    QStringList others;
    QString dvd;
    for (const QString &path : files) {
        if (!DvdPlayback::IsDvdSource(path))
            others << path;
        else if (dvd.isEmpty())
            dvd = path;
    }
    if (!dvd.isEmpty())
        m_dvd->playDvdSource(dvd);
    return others;
}

void MainWindow::enableDvdCheck()
{
    if (m_dvd)
        m_dvd->enableCheck();
}

} // namespace quorvel
