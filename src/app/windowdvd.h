#pragma once
// DVDs in the main window: the drives in both Open DVD branches, the check
// timer, "Open DVD folder or image..." and DVD folders or images among the
// files the program is given.

#include "menus/commanddispatcher.h"
#include "playback/dvdplayback.h"

#include <QObject>
#include <memory>

class QWidget;

namespace quorvel {

class WindowMenus;

class WindowDvd : public QObject, public DriveActions {
    Q_OBJECT
public:
    WindowDvd(QWidget &window, WindowMenus &menus, CommandDispatcher &dispatcher, Transport &transport, Player &player,
              Playlist &playlist, MessageNotifier &notifier, TransportView &view, const QString &programFolder);
    ~WindowDvd() override;

    DvdPlayback &playback() { return *m_dvd; }
    void playDrive(int index) override;
    void refreshDrives() override;
    // Asks for a DVD-Video folder or image and plays it.
    void openDvdSource();
    // Plays the first DVD-Video folder or image of `files` and returns the rest.
    QStringList playDvdAmong(const QStringList &files);

private:
    QWidget &m_window;
    std::unique_ptr<DriveList> m_drives;
    std::unique_ptr<DvdPlayback> m_dvd;
    QString m_folder; // where "Open DVD folder or image..." opens
};

} // namespace quorvel
