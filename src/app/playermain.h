#pragma once
// The part of the program a start runs once it is to become the player (or
// print a media report): it needs the window system, the engine and ffmpeg,
// whose libraries a start that only hands its files over never loads. It
// lives in a module beside the program ("libquorvel_player.so") that main()
// loads after the decision.

#include "app/commandline.h"
#include "app/startup.h"

namespace quorvel {

struct PlayerStart {
    int argc = 1;
    char **argv = nullptr;
    QString reportFile; // set: print this file's media report instead
    StartupDecision decision;
    bool forcePlay = true;
};

inline constexpr char kPlayerModule[] = "libquorvel_player.so";
inline constexpr char kPlayerEntry[] = "QuorvelPlayerMain";
using PlayerMainFunction = int (*)(PlayerStart &start);
// libVLC's version text ("3.0.21 Vetinari").
inline constexpr char kEngineVersionEntry[] = "QuorvelEngineVersion";
using EngineVersionFunction = const char *(*)();

} // namespace quorvel

extern "C" int QuorvelPlayerMain(quorvel::PlayerStart &start);
extern "C" const char *QuorvelEngineVersion();
