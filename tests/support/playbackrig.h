#pragma once
// The playback objects a logic test of the transport, the menus or the DVD
// support builds on: a scripted engine, a playlist that keeps its pictures in
// memory and takes every existing file, and the player between them; with
// TransportRig also the transport, a view and a power control that record.

#include "playback/playbackstate.h"
#include "playback/player.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playlist/playlist.h"
#include "settings/settings.h"
#include "support/existingfileprobe.h"
#include "support/fakeengine.h"
#include "support/memorythumblist.h"
#include "support/recordingnotifier.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <functional>

namespace quorvel::test {

struct PlaybackRig {
    QTemporaryDir dir;
    Settings settings;
    PlaybackState state;
    FakeEngine engine;
    MemoryThumbList list;
    ExistingFileProbe probe;
    RecordingNotifier notifier;
    Playlist playlist{list, probe, notifier};
    Player player{engine, settings, state, playlist};
};

struct RecordingView final : TransportView {
    QString time, rate;
    bool rateVisible = false;
    QList<bool> opened;
    int closes = 0, repaints = 0;
    std::function<void()> onDvdCheck;
    void setTimeText(const QString &t) override { time = t; }
    void setRateText(const QString &t, bool v) override { std::tie(rate, rateVisible) = std::pair(t, v); }
    void setProgressPercent(int) override {}
    void openFiles(bool append) override { opened << append; }
    void togglePlaylist() override {}
    void closeWindow() override { ++closes; }
    void controlsChanged() override { ++repaints; }
    void enableDvdCheck() override
    {
        if (onDvdCheck)
            onDvdCheck();
    }
};

struct RecordingPower final : playback::PowerControl {
    QStringList requests;
    void reboot() override { requests << QStringLiteral("reboot"); }
    void powerOff() override { requests << QStringLiteral("powerOff"); }
};

// The player starts what the playlist asks for; stops settle at once.
struct TransportRig : PlaybackRig {
    RecordingView view;
    RecordingPower power;
    Transport transport{engine, settings, state, playlist, player, power, view};
    int files = 0;

    TransportRig()
    {
        player.SaveVLCOptions();
        player.setNotifier(&notifier);
        transport.setStopSettleDelay(0);
        player.enableMediaControl(MediaAction::Stopped);
        playlist.setPlayHandler([this](int i, bool fs) { player.PlayItem(i, fs); });
        playlist.setOrderHandler([this] { transport.rebuildOrder(); });
    }
    // Adds `n` new files named clipN.mp4.
    void addFiles(int n)
    {
        for (int i = 0; i < n; ++i) {
            const QString path = dir.filePath(QStringLiteral("clip%1.mp4").arg(files++));
            QFile(path).open(QIODevice::WriteOnly);
            playlist.LoadThumb(GetFileTitle(path), path);
        }
        playlist.waitForAdds();
    }
    // As a double-click on entry i does.
    void start(int i)
    {
        list.setSelectedItem(i);
        transport.sequence().setCursor(i);
        player.PlayItem(i, false);
    }
    // Lets a pending stop settle (at least one pass of the event loop).
    bool settle()
    {
        QCoreApplication::processEvents();
        return waitUntil([&] { return !transport.isStopping(); });
    }
    int playingIndex() const { return playlist.fullPaths().indexOf(state.CurrentFile); }
};

} // namespace quorvel::test
