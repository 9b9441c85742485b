#pragma once
// The user's settings: the 46 values kept in "Config.cfg", in file order.
// Flags are 16-bit integers where any non-zero value counts as set (the
// settings dialog stores -1, the defaults store 1).

#include "common/paths.h"

#include <QString>
#include <array>
#include <cstdint>

namespace quorvel {

struct Settings {
    QString Language;
    QString DefaultFolder;
    std::int32_t PlayMode = 1;
    std::int32_t RepeatMode = 2;
    std::int16_t AlwaysOnTop = 0;
    std::int16_t TitleMode = 1;
    std::int16_t KeepHistory = 0;
    std::int16_t LaunchFullScreen = 0;
    std::int16_t RememberLastPos = 0;
    std::int16_t RememberLastSize = 0;
    std::int16_t UseNewInstance = 0;
    std::int16_t DisableScreenSaver = 1;
    std::int16_t ShowInTray = 0;
    QString SnapshotFolder;
    QString SnapshotPrefix;
    std::int16_t SnapshotPreview = 1;
    std::int16_t SnapshotPNG = 0;
    std::array<std::int16_t, kMediaExtensionCount> AssocFlags{};
    // The window's place and size in pixels ("Config.cfg" holds them in twips).
    std::int32_t WindowLeft = 0;
    std::int32_t WindowTop = 0;
    std::int32_t WindowWidth = 0;
    std::int32_t WindowHeight = 0;
    std::int32_t PlaylistPosition = 0;

    bool operator==(const Settings &) const = default;
};

inline bool IsSet(std::int16_t flag)
{
    return flag != 0;
}

// The window's size at the first start, in pixels.
inline constexpr int kStartWidthPx = 388;
inline constexpr int kStartHeightPx = 515;

// What the defaults depend on outside the program.
struct SettingsEnvironment {
    QString desktopFolder;
    QString picturesFolder;
    int screenWidthPx = 1920;
    int screenHeightPx = 1080;

    static SettingsEnvironment fromSystem(); // needs a QGuiApplication for the screen
};

Settings DefaultSettings(const SettingsEnvironment &env);

} // namespace quorvel
