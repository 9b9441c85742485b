#include "app/windowdvd.h"

#include "app/dvdsourcedialog.h"
#include "app/windowmenus.h"
#include "common/paths.h"
#include "menus/menukeys.h"

#include <QMenu>

namespace quorvel {

WindowDvd::WindowDvd(QWidget &window, WindowMenus &menus, CommandDispatcher &dispatcher, Transport &transport,
                     Player &player, Playlist &playlist, MessageNotifier &notifier, TransportView &view,
                     const QString &programFolder)
    : m_window(window), m_drives(std::make_unique<SystemDriveList>()),
      m_dvd(std::make_unique<DvdPlayback>(*m_drives, transport, player, playlist, notifier, view, programFolder))
{
    dispatcher.setDriveActions(this);
    connect(m_dvd.get(), &DvdPlayback::drivesChanged, this,
            [this, &dispatcher] { dispatcher.setDvdEntries(m_dvd->captions()); });
    MenuModel &bar = menus.menu();
    connect(&bar, &MenuModel::MenuItemClick, this, [this, &bar](int position) {
        if (bar.KeyAt(position) == menukey::OpenDVDSource)
            openDvdSource();
    });
    MenuModel &classic = menus.classicMenu();
    connect(&classic, &MenuModel::MenuItemClick, this, [this, &classic](int position) {
        if (classic.KeyAt(position) == u"mnuOpenDVDSource")
            openDvdSource();
    });
    // Opening the branch (from the menu bar or the DVD button) lists the drives as they are now.
    if (QMenu *branch = menus.barBranch(menukey::OpenDVD))
        connect(branch, &QMenu::aboutToShow, m_dvd.get(), &DvdPlayback::refresh);
}

WindowDvd::~WindowDvd() = default;

void WindowDvd::playDrive(int index)
{
    m_dvd->playDrive(index);
}

void WindowDvd::refreshDrives()
{
    m_dvd->refresh();
}

void WindowDvd::openDvdSource()
{
    const QString chosen = DvdSourceDialog::choose(&m_window, m_folder);
    if (chosen.isEmpty())
        return;
    m_folder = GetFolderOf(chosen);
    m_dvd->playDvdSource(chosen);
}

QStringList WindowDvd::playDvdAmong(const QStringList &files)
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

} // namespace quorvel
