#pragma once
// Reads and writes "Config.cfg": one value a line in a fixed order, CR LF
// line ends, no names. Texts are written as they are; numbers as " 1 " or
// "-1 ". A reader takes a value up to the next comma (or quote when it starts
// with one), so a text holding a comma is cut there and shifts the rest. Any
// damage (missing file, short file, a letter where a number is due) brings
// back every default and rewrites the file at once.

#include "app/settings.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace quorvel {

class ConfigFile {
public:
    static constexpr int kValueCount = 46;

    // Where the file lives: beside the program when that folder is writable
    // (portable use), otherwise in the user's configuration folder.
    static QString locate(const QString &programFolder);

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
    static LoadResult load(const QString &path, const SettingsEnvironment &env);

    // `WriteConfigurations`: writes to a temporary file and renames it over the
    // old one, so a failure never leaves a half-written file behind.
    static bool write(const QString &path, const Settings &settings);
};

} // namespace quorvel
