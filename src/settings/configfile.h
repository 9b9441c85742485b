#pragma once
// Reads and writes "Config.cfg": one value a line in a fixed order, CR LF
// line ends, no names. Numbers are written as " 1 " or "-1 ". The reader
// takes a value up to the next comma, or up to the closing quote when it
// starts with one; so texts are written as they are unless they hold a
// comma, a quote, a line break or leading blanks, and then in quotes (a
// quote inside doubled). The window's place and size are kept in twips, 15
// to a pixel at 96 dpi, and are pixels everywhere else. Any damage (missing file, short file, a letter
// where a number is due) brings back every default and rewrites the file.

#include "settings/settings.h"

#include <QByteArray>
#include <QString>
#include <optional>

class QDebug;

namespace quorvel {

// Where the settings are read from and written to. They differ when the
// file beside the program is read-only: its values are read, and changes go
// to the user's configuration folder. An empty writePath means the settings
// cannot be saved anywhere.
struct ConfigLocation {
    QString readPath;
    QString writePath;
    bool operator==(const ConfigLocation &) const = default;
};
QDebug operator<<(QDebug debug, const ConfigLocation &location);

class ConfigFile {
public:
    static constexpr int kValueCount = 46;

    // Where the file lives: beside the program when it (or, with no file
    // yet, the folder) is writable, for portable use; otherwise in the
    // user's configuration folder. A read-only file beside the program is
    // read until the user's folder holds saved settings of its own; a
    // "Config.cfg" that is not a file is passed over. Says in the log when
    // the settings are not kept beside the program although a file is there.
    static ConfigLocation locate(const QString &programFolder);
    static ConfigLocation locate(const QString &programFolder, const QString &userFolder);
    // The user's configuration folder for Quorvel.
    static QString userFolder();

    // Parses file contents; nullopt when anything is missing or malformed.
    static std::optional<Settings> parse(const QByteArray &contents);
    static QByteArray serialize(const Settings &settings);

    struct LoadResult {
        Settings settings;
        bool usedDefaults = false; // the file was missing or damaged and has been rewritten
    };
    // `LoadConfigurations` without its follow-ups: reads `path`, falls back
    // to the defaults and rewrites a damaged file. An empty DefaultFolder is
    // replaced by the desktop folder.
    static LoadResult load(const ConfigLocation &where, const SettingsEnvironment &env);
    static LoadResult load(const QString &path, const SettingsEnvironment &env) { return load({path, path}, env); }

    // `WriteConfigurations`: writes to a temporary file and renames it over the
    // old one, so a failure never leaves a half-written file behind. Nothing
    // is written (and true returned) when the location has no write path.
    static bool write(const ConfigLocation &where, const Settings &settings);
    static bool write(const QString &path, const Settings &settings) { return write({path, path}, settings); }
};

} // namespace quorvel
