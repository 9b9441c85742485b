#pragma once
// Plays video DVDs: the disc in a drive of the last enumeration, a DVD-Video
// folder or an ".iso" image. A DVD replaces the playlist with one row
// ("Video DVD", path "dvd://" + device, folder or image) and starts at once.
// The check timer (once a second from start-up) enumerates the drives and
// starts a mounted video DVD by itself; it stops after starting one, and the
// playback monitor turns it on again once playback has ended.

#include "playback/dvddrives.h"

#include <QImage>
#include <QObject>
#include <QTimer>

namespace quorvel {

class MessageNotifier;
class Player;
class Playlist;
class Transport;
class TransportView;

inline const QString kDvdScheme = QStringLiteral("dvd://");
inline const QString kDvdMediaInfo = QStringLiteral("Video DVD");
inline const QString kInvalidDvdMessage = QStringLiteral("Please insert a valid DVD.");

class DvdPlayback : public QObject {
    Q_OBJECT
public:
    // `programFolder` holds "DVD.jpg", the picture of the playlist row.
    DvdPlayback(DriveList &drives, Transport &transport, Player &player, Playlist &playlist, MessageNotifier &notifier,
                TransportView &view, const QString &programFolder, QObject *parent = nullptr);

    // Enumerates the drives again; the menus follow `drivesChanged`.
    void refresh();
    const DvdEnumeration &enumeration() const { return m_drives; }
    QStringList captions() const { return m_drives.captions; }
    bool noDrives() const { return m_drives.noDrives(); }

    // Plays the disc of drive `index` of the last enumeration. Nothing
    // happens without drives or when the drive holds no disc.
    void playDrive(int index);
    // Plays a DVD-Video folder, an ".iso" image or the disc of a drive
    // device. Anything else is answered with "Please insert a valid DVD."
    // and changes nothing. Returns whether playback is under way.
    bool playDvdSource(const QString &folderOrIsoOrDevice);
    // True when `path` is a DVD-Video folder or image or a disc device
    // (files of the command line).
    static bool IsDvdSource(const QString &path);

    // One tick of the check timer: enumerates, then starts the video DVD of
    // the last drive that holds one and stops the timer.
    void checkForDisc();
    QTimer &checkTimer() { return m_checkTimer; }
    // The playback monitor's request: poll again (from the next tick on).
    void enableCheck();

signals:
    // The captions differ from the last enumeration's.
    void drivesChanged();
    // A DVD row replaced the playlist and the engine was asked to play it.
    void started(const QString &caption);

private:
    void start(const QString &caption, const QString &source);
    void fail();

    DriveList &m_driveList;
    Transport &m_transport;
    Player &m_player;
    Playlist &m_playlist;
    MessageNotifier &m_notifier;
    TransportView &m_view;
    QImage m_picture;
    DvdEnumeration m_drives;
    QTimer m_checkTimer;
};

} // namespace quorvel
