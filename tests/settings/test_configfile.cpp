#include "settings/configfile.h"
#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

const SettingsEnvironment kEnv{u"/home/u/Desktop"_qs, u"/home/u/Pictures"_qs, 1280, 1024};

// Every value different from its default, and texts with blanks and letters
// beyond ASCII, so a swapped or dropped line shows.
Settings unusualSettings()
{
    Settings s;
    s.Language = u"Deutsch"_qs;
    s.DefaultFolder = u"/media/Filme und Serien/Müller"_qs;
    s.SnapshotFolder = u"/tmp/snaps"_qs;
    s.SnapshotPrefix = u"SHOT_"_qs;
    s.PlayMode = 2;
    s.RememberLastPos = 1;
    s.RepeatMode = s.TitleMode = s.DisableScreenSaver = s.SnapshotPreview = 0;
    s.AlwaysOnTop = s.KeepHistory = s.LaunchFullScreen = s.RememberLastSize = s.UseNewInstance = s.ShowInTray
        = s.SnapshotPNG = -1;
    for (int i = 0; i < kMediaExtensionCount; ++i)
        s.AssocFlags[i] = static_cast<std::int16_t>(i % 3 == 0 ? -1 : (i % 3 == 1 ? 1 : 0));
    s.WindowLeft = -20; // pixels: -300 twips in the file
    s.WindowTop = 3;
    s.WindowWidth = 800;
    s.WindowHeight = 600;
    s.PlaylistPosition = 3;
    return s;
}

} // namespace

TEST(ConfigFile, RoundTripsEveryValueInCrLfLines)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    const Settings s = unusualSettings();
    ASSERT_TRUE(ConfigFile::write(path, s));
    const QList<QByteArray> lines = test::readFile(path).split('\n');
    ASSERT_EQ(lines.size(), 47);                     // 46 lines and the empty rest after the last CR LF
    EXPECT_EQ(lines[2] + lines[41], " 2 \r-300 \r"); // PlayMode, WindowLeft: blanks around numbers
    const ConfigFile::LoadResult back = ConfigFile::load(path, kEnv);
    EXPECT_FALSE(back.usedDefaults);
    EXPECT_EQ(back.settings, s);
    EXPECT_EQ(test::readFile(path), ConfigFile::serialize(s)); // reading did not touch the file
}

TEST(ConfigFile, DamagedFilesGiveDefaultsAndAreRewritten)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    const QByteArray defaults = ConfigFile::serialize(DefaultSettings(kEnv));
    const QList<QByteArray> lines = ConfigFile::serialize(unusualSettings()).split('\n');

    // Cut after each line: every short file falls back.
    for (int keep = 0; keep < 46; ++keep) {
        ASSERT_TRUE(test::writeFile(path, lines.mid(0, keep).join('\n') + (keep ? "\n" : "")));
        const ConfigFile::LoadResult r = ConfigFile::load(path, kEnv);
        EXPECT_TRUE(r.usedDefaults && r.settings == DefaultSettings(kEnv)) << "kept " << keep << " lines";
        EXPECT_EQ(test::readFile(path), defaults) << "kept " << keep << " lines";
    }

    // A letter where a number is due (the texts read before it are lost too),
    // a 16-bit flag out of its range, binary rubbish, no file at all.
    QList<QByteArray> letter = lines, outOfRange = lines;
    letter[2] = "abc\r";
    outOfRange[4] = " 70000 \r";
    for (const QByteArray &data : {letter.join('\n'), outOfRange.join('\n'), QByteArray(5000, '\xff'), QByteArray()}) {
        ASSERT_TRUE(data.isEmpty() ? QFile::remove(path) : test::writeFile(path, data));
        EXPECT_TRUE(ConfigFile::load(path, kEnv).usedDefaults) << data.left(20).toStdString();
        EXPECT_EQ(test::readFile(path), defaults);
    }
}

TEST(ConfigFile, TextsRoundTripWhateverCharactersTheyHold)
{
    const QString texts[] = {
        u"/home/ho,me/Desktop"_qs, u"/m/say \"hi\".mp4"_qs,        u",\","_qs, u"  leading blanks"_qs,
        u"\tleading tab"_qs,       u"line\nbreak\r\nand, more"_qs, u"\"\""_qs, u"Müller, 東京"_qs};
    for (const QString &text : texts) {
        Settings s = unusualSettings();
        s.Language = s.DefaultFolder = s.SnapshotFolder = s.SnapshotPrefix = text;
        const std::optional<Settings> back = ConfigFile::parse(ConfigFile::serialize(s));
        ASSERT_TRUE(back.has_value()) << text.toStdString();
        EXPECT_EQ(*back, s) << text.toStdString();
    }
    // Plain texts stay unquoted, as the file has always held them.
    EXPECT_TRUE(ConfigFile::serialize(unusualSettings()).startsWith("Deutsch\r\n/media/Filme und Serien/Müller\r\n"));

    // A hand-written unquoted comma still cuts the text and shifts the rest.
    EXPECT_FALSE(ConfigFile::parse(ConfigFile::serialize(unusualSettings()).replace("Deutsch\r\n", "Deu,tsch\r\n")));
}

TEST(ConfigFile, EmptyDefaultFolderBecomesTheDesktopLooseNumbersAreReadAndAFailedWriteKeepsTheOldFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    Settings s = unusualSettings();
    s.DefaultFolder = u"   "_qs;
    s.AlwaysOnTop = 1;                           // flags count when non-zero
    QByteArray loose = ConfigFile::serialize(s); // blanks around numbers and LF-only lines
    loose.replace("\r\n", "\n").replace(" 2 \n", "   2\t\n");
    ASSERT_TRUE(test::writeFile(path, loose));
    const ConfigFile::LoadResult r = ConfigFile::load(path, kEnv);
    EXPECT_EQ(r.settings.DefaultFolder, u"/home/u/Desktop"_qs);
    EXPECT_TRUE(!r.usedDefaults && IsSet(r.settings.AlwaysOnTop) && r.settings.PlayMode == 2);

    const QByteArray before = test::readFile(path);
    EXPECT_FALSE(ConfigFile::write(dir.filePath(u"missing/Config.cfg"_qs), unusualSettings()));
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    const bool wrote = ConfigFile::write(path, DefaultSettings(kEnv));
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(wrote || test::readFile(path) == before); // root may write anyway
}

TEST(ConfigFile, ReadOnlyOrDirectoryBesideTheProgram)
{
    enum Beside { None, Writable, ReadOnly, Directory };
    struct Case {
        Beside beside;
        bool userSaved;    // the user's folder already holds saved settings
        bool readsBeside;  // else the user's folder
        bool writesBeside; // else the user's folder
    } const cases[] = {
        {None, false, true, true},      {Writable, true, true, true},     {ReadOnly, false, true, false},
        {ReadOnly, true, false, false}, {Directory, false, false, false},
    };
    for (const Case &c : cases) {
        QTemporaryDir dir;
        const QString program = dir.filePath(u"program/"_qs), user = dir.filePath(u"user"_qs);
        const QString beside = program + u"Config.cfg"_qs, userFile = user + u"/Config.cfg"_qs;
        QDir().mkpath(program);
        Settings mine = unusualSettings();
        ASSERT_TRUE(c.beside == None
                    || (c.beside == Directory ? QDir().mkpath(beside) : ConfigFile::write(beside, mine)));
        if (c.beside == ReadOnly)
            QFile::setPermissions(beside, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        ASSERT_TRUE(!c.userSaved || test::writeFile(userFile, ConfigFile::serialize(DefaultSettings(kEnv))));
        const ConfigLocation where = ConfigFile::locate(program, user);
        EXPECT_EQ(where.readPath, c.readsBeside ? beside : userFile) << int(c.beside) << c.userSaved;
        EXPECT_EQ(where.writePath, c.writesBeside ? beside : userFile) << int(c.beside) << c.userSaved;

        // A read-only file's values are the ones used, and it stays as it was.
        const ConfigFile::LoadResult loaded = ConfigFile::load(where, kEnv);
        if (c.beside == ReadOnly && !c.userSaved) {
            EXPECT_FALSE(loaded.usedDefaults);
            EXPECT_EQ(loaded.settings, mine);
            mine.PlayMode = 0;
            EXPECT_TRUE(ConfigFile::write(where, mine));
            EXPECT_EQ(test::readFile(beside), ConfigFile::serialize(unusualSettings()));
            EXPECT_EQ(ConfigFile::load(ConfigFile::locate(program, user), kEnv).settings, mine);
        }
        // Nowhere to write: nothing is written and nothing fails.
        EXPECT_TRUE(ConfigFile::write(ConfigLocation{where.readPath, QString()}, mine));
    }
}
