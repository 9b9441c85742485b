#include "app/configfile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

SettingsEnvironment testEnvironment()
{
    SettingsEnvironment env;
    env.desktopFolder = QStringLiteral("/home/u/Desktop");
    env.picturesFolder = QStringLiteral("/home/u/Pictures");
    env.screenWidthPx = 1280;
    env.screenHeightPx = 1024;
    return env;
}

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void writeAll(const QString &path, const QByteArray &data)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(data);
}

// Every value different from its default, and texts with blanks and letters
// beyond ASCII, so a swapped or dropped line shows.
Settings unusualSettings()
{
    Settings s = DefaultSettings(testEnvironment());
    s.Language = QStringLiteral("Deutsch");
    s.DefaultFolder = QStringLiteral("/media/Filme und Serien/Müller");
    s.PlayMode = 2;
    s.RepeatMode = 0;
    s.AlwaysOnTop = -1;
    s.TitleMode = 0;
    s.KeepHistory = -1;
    s.LaunchFullScreen = -1;
    s.RememberLastPos = 1;
    s.RememberLastSize = -1;
    s.UseNewInstance = -1;
    s.DisableScreenSaver = 0;
    s.ShowInTray = -1;
    s.SnapshotFolder = QStringLiteral("/tmp/snaps");
    s.SnapshotPrefix = QStringLiteral("SHOT_");
    s.SnapshotPreview = 0;
    s.SnapshotPNG = -1;
    for (int i = 0; i < kMediaExtensionCount; ++i)
        s.AssocFlags[i] = static_cast<std::int16_t>(i % 3 == 0 ? -1 : (i % 3 == 1 ? 1 : 0));
    s.WindowLeft = -300;
    s.WindowTop = 45;
    s.WindowWidth = 12000;
    s.WindowHeight = 9000;
    s.PlaylistPosition = 3;
    return s;
}

} // namespace

TEST(ConfigFile, DefaultsMatchTheDocumentedValues)
{
    const Settings d = DefaultSettings(testEnvironment());
    EXPECT_EQ(d.Language, u"English"_qs);
    EXPECT_EQ(d.DefaultFolder, u"/home/u/Desktop"_qs);
    EXPECT_EQ(d.PlayMode, 1);
    EXPECT_EQ(d.RepeatMode, 2);
    EXPECT_EQ(d.TitleMode, 1);
    EXPECT_TRUE(IsSet(d.DisableScreenSaver));
    EXPECT_TRUE(IsSet(d.SnapshotPreview));
    EXPECT_FALSE(IsSet(d.SnapshotPNG));
    EXPECT_EQ(d.SnapshotPrefix, u"IMG_"_qs);
    EXPECT_EQ(d.WindowWidth, 388 * 15);
    EXPECT_EQ(d.WindowHeight, 515 * 15);
    // Centred on a 1280 x 1024 screen.
    EXPECT_EQ(d.WindowLeft, (1280 - 388) / 2 * 15);
    EXPECT_EQ(d.WindowTop, (1024 - 515) / 2 * 15);
    EXPECT_EQ(d.PlaylistPosition, 0);
}

TEST(ConfigFile, WritesFortySixCrLfLinesWithBlanksAroundNumbers)
{
    const QByteArray text = ConfigFile::serialize(unusualSettings());
    const QList<QByteArray> lines = text.split('\n');
    ASSERT_EQ(lines.size(), 47); // 46 lines and the empty rest after the last CR LF
    EXPECT_TRUE(lines.last().isEmpty());
    for (int i = 0; i < 46; ++i)
        EXPECT_TRUE(lines[i].endsWith('\r')) << "line " << i + 1;
    EXPECT_EQ(lines[0], "Deutsch\r");
    EXPECT_EQ(lines[2], " 2 \r");   // PlayMode
    EXPECT_EQ(lines[4], "-1 \r");   // AlwaysOnTop stored by the dialog
    EXPECT_EQ(lines[8], " 1 \r");   // RememberLastPos stored as a default
    EXPECT_EQ(lines[41], "-300 \r"); // WindowLeft
}

TEST(ConfigFile, RoundTripsEveryValue)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    const Settings s = unusualSettings();
    ASSERT_TRUE(ConfigFile::write(path, s));
    const ConfigFile::LoadResult back = ConfigFile::load(path, testEnvironment());
    EXPECT_FALSE(back.usedDefaults);
    EXPECT_EQ(back.settings, s);
    // Reading did not touch the file.
    EXPECT_EQ(readAll(path), ConfigFile::serialize(s));
}

TEST(ConfigFile, DamagedFilesGiveDefaultsAndAreRewritten)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    const SettingsEnvironment env = testEnvironment();
    const QByteArray good = ConfigFile::serialize(unusualSettings());
    const QByteArray defaults = ConfigFile::serialize(DefaultSettings(env));
    const QList<QByteArray> lines = good.split('\n');

    // Cut after each line: every short file falls back.
    for (int keep = 0; keep < 46; ++keep) {
        writeAll(path, lines.mid(0, keep).join('\n') + (keep ? "\n" : ""));
        const ConfigFile::LoadResult r = ConfigFile::load(path, env);
        EXPECT_TRUE(r.usedDefaults) << "kept " << keep << " lines";
        EXPECT_EQ(r.settings, DefaultSettings(env));
        EXPECT_EQ(readAll(path), defaults) << "kept " << keep << " lines";
    }

    // A letter where a number is due: the texts read before it are lost too.
    QList<QByteArray> bad = lines;
    bad[2] = "abc\r";
    writeAll(path, bad.join('\n'));
    EXPECT_TRUE(ConfigFile::load(path, env).usedDefaults);
    EXPECT_EQ(readAll(path).split('\n').size(), 47);

    // A 16-bit flag out of its range is damage as well.
    bad = lines;
    bad[4] = " 70000 \r";
    writeAll(path, bad.join('\n'));
    EXPECT_TRUE(ConfigFile::load(path, env).usedDefaults);

    // No file at all.
    QFile::remove(path);
    EXPECT_TRUE(ConfigFile::load(path, env).usedDefaults);
    EXPECT_EQ(readAll(path), defaults);

    // Binary rubbish.
    writeAll(path, QByteArray(5000, '\xff'));
    EXPECT_TRUE(ConfigFile::load(path, env).usedDefaults);
}

TEST(ConfigFile, ATextWithACommaIsCutAndShiftsTheRest)
{
    Settings s = unusualSettings();
    s.SnapshotFolder = QStringLiteral("/a,b");
    const std::optional<Settings> shifted = ConfigFile::parse(ConfigFile::serialize(s));
    // "/a" and "b" take two places, so the prefix line lands on a number: damage.
    EXPECT_FALSE(shifted.has_value());

    // Where only texts follow, the cut shows directly.
    const QByteArray start = "Eng,lish\r\n";
    const std::optional<Settings> cut = ConfigFile::parse(start + ConfigFile::serialize(s).mid(9));
    EXPECT_FALSE(cut.has_value());

    QByteArray quoted = ConfigFile::serialize(unusualSettings());
    quoted.replace("Deutsch\r\n", "\"Deu,tsch\"\r\n");
    const std::optional<Settings> q = ConfigFile::parse(quoted);
    ASSERT_TRUE(q.has_value());
    EXPECT_EQ(q->Language, u"Deu,tsch"_qs);
}

TEST(ConfigFile, EmptyDefaultFolderBecomesTheDesktopAndFlagsCountWhenNonZero)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    Settings s = unusualSettings();
    s.DefaultFolder = QStringLiteral("   ");
    s.AlwaysOnTop = 1;
    s.ShowInTray = -1;
    ASSERT_TRUE(ConfigFile::write(path, s));
    const ConfigFile::LoadResult r = ConfigFile::load(path, testEnvironment());
    EXPECT_FALSE(r.usedDefaults);
    EXPECT_EQ(r.settings.DefaultFolder, u"/home/u/Desktop"_qs);
    EXPECT_TRUE(IsSet(r.settings.AlwaysOnTop));
    EXPECT_TRUE(IsSet(r.settings.ShowInTray));
    // Blanks around numbers and a LF-only file are read as well.
    QByteArray loose = ConfigFile::serialize(s);
    loose.replace("\r\n", "\n").replace(" 2 \n", "   2\t\n");
    EXPECT_TRUE(ConfigFile::parse(loose).has_value());
}

TEST(ConfigFile, AFailedWriteKeepsTheOldFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Config.cfg"_qs);
    ASSERT_TRUE(ConfigFile::write(path, unusualSettings()));
    const QByteArray before = readAll(path);
    EXPECT_FALSE(ConfigFile::write(dir.filePath(u"missing/Config.cfg"_qs), unusualSettings()));
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    const bool wrote = ConfigFile::write(path, DefaultSettings(testEnvironment()));
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (!wrote) // root may write anyway
        EXPECT_EQ(readAll(path), before);
}

TEST(ConfigFile, LivesBesideAWritableProgramFolder)
{
    QTemporaryDir dir;
    const QString folder = dir.path() + u'/';
    EXPECT_EQ(ConfigFile::locate(folder), folder + u"Config.cfg"_qs);
}
