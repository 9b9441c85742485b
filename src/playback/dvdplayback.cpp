#include "dvdplayback.h"

#include "common/logging.h"
#include "common/notifier.h"
#include "common/paths.h"
#include "playback/engine.h"
#include "playback/player.h"
#include "playback/transport.h"
#include "playlist/playlist.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace quorvel {

DvdPlayback::DvdPlayback(DriveList &drives, Transport &transport, Player &player, Playlist &playlist,
                         MessageNotifier &notifier, TransportView &view, const QString &programFolder, QObject *parent)
    : QObject(parent), m_driveList(drives), m_transport(transport), m_player(player), m_playlist(playlist),
      m_notifier(notifier), m_view(view), m_picture(programFolder + QStringLiteral("DVD.jpg"))
{
    m_checkTimer.setObjectName(QStringLiteral("tmrCheckDVD"));
    m_checkTimer.setInterval(1000);
    connect(&m_checkTimer, &QTimer::timeout, this, &DvdPlayback::checkForDisc);
}

void DvdPlayback::refresh()
{
    DvdEnumeration drives = EnumDVDDrives(m_driveList);
    const bool changed = drives.captions != m_drives.captions;
    m_drives = std::move(drives);
    // The timer enumerates every second: the menus change only when the drives did.
    if (!changed)
        return;
    qCDebug(lcPlayback) << "DVD drives:" << m_drives.captions;
    emit drivesChanged();
}

void DvdPlayback::playDrive(int index)
{
    if (index < 0 || index >= m_drives.drives.size())
        return; // also "<No DVD drives were found>"
    const OpticalDrive &drive = m_drives.drives[index];
    if (!drive.hasDisc)
        return; // "<Please insert a DVD>"
    start(m_drives.captions[index], drive.device);
}

bool DvdPlayback::playDvdSource(const QString &folderOrIsoOrDevice)
{
    const QString path = folderOrIsoOrDevice.startsWith(kDvdScheme) ? folderOrIsoOrDevice.mid(kDvdScheme.size())
                                                                    : folderOrIsoOrDevice;
    const QString device = QFileInfo(path).canonicalFilePath();
    if (device.startsWith(QStringLiteral("/dev/"))) {
        refresh();
        for (int i = 0; i < m_drives.drives.size(); ++i) {
            if (QFileInfo(m_drives.drives[i].device).canonicalFilePath() == device && m_drives.drives[i].hasDisc) {
                playDrive(i);
                return true;
            }
        }
        fail();
        return false;
    }
    const QString source = DvdSourceOf(path);
    if (source.isEmpty()) {
        qCDebug(lcPlayback) << "not a video DVD:" << path;
        fail();
        return false;
    }
    start(GetFileTitle(source), source);
    return true;
}

bool DvdPlayback::IsDvdSource(const QString &path)
{
    struct stat info {};
    return !DvdSourceOf(path).isEmpty()
           || (::stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISBLK(info.st_mode));
}

void DvdPlayback::checkForDisc()
{
    refresh();
    // With several video DVDs in, the last one is what stays playing.
    int found = -1;
    for (int i = 0; i < m_drives.drives.size(); ++i) {
        const OpticalDrive &d = m_drives.drives[i];
        if (d.hasDisc && !d.mountPoint.isEmpty() && HoldsVideoTs(d.mountPoint))
            found = i;
    }
    if (found < 0)
        return;
    qCDebug(lcPlayback) << "video DVD found in" << m_drives.drives[found].device;
    playDrive(found);
}

void DvdPlayback::enableCheck()
{
    if (!m_checkTimer.isActive())
        m_checkTimer.start();
}

void DvdPlayback::start(const QString &caption, const QString &source)
{
    const QString path = kDvdScheme + source;
    qCDebug(lcPlayback) << "DVD start" << path;
    // Whatever started a DVD, polling would only start it again.
    m_checkTimer.stop();
    m_transport.stop([this, caption, path] {
        m_player.destroyEngine();
        m_player.createEngine();
        m_view.setTimeText(QStringLiteral("LOADING..."));
        m_playlist.removeAll();
        m_playlist.addEntry(caption, m_picture, path, kDvdMediaInfo);
        if (m_playlist.list().selectedItem() < 0)
            m_playlist.list().setSelectedItem(0);
        m_transport.sequence().setCursor(0);
        PlaybackState &state = m_player.state();
        state.CurrentFile = path;
        Engine &engine = m_player.engine();
        engine.playlistAdd(path, caption, state.VLCOptions);
        if (!engine.failure().isEmpty() || engine.itemCount() < 1) {
            m_player.enableMediaControl(MediaAction::Stopped);
            fail();
            return;
        }
        engine.play();
        state.Rate = 1.0;
        m_player.restartedByUser();
        m_player.enableMediaControl(MediaAction::Playing);
        m_player.refreshCaption();
        emit started(caption);
    });
}

void DvdPlayback::fail()
{
    m_view.setTimeText(QString());
    m_notifier.notify(MessageNotifier::Icon::Critical, kInvalidDvdMessage);
}

} // namespace quorvel
