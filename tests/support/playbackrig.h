#pragma once
// The playback objects a logic test of the transport, the menus or the DVD
// support builds on: a scripted engine, a playlist that keeps its pictures in
// memory and takes every existing file, and the player between them. Fixtures
// derive from it and add the transport with their own view and power control.

#include "playback/playbackstate.h"
#include "playback/player.h"
#include "playlist/playlist.h"
#include "settings/settings.h"
#include "support/existingfileprobe.h"
#include "support/fakeengine.h"
#include "support/memorythumblist.h"
#include "support/recordingnotifier.h"

#include <QTemporaryDir>

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

} // namespace quorvel::test
