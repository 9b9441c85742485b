#include "settings/configfile.h"

#include "common/logging.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <algorithm>
#include <limits>
#include <utility>

namespace quorvel {

namespace {

// The file keeps the window's place and size in twips.
constexpr int kTwipsPerPixel = 15;

// A place or size no screen has (a damaged or hand-edited file) is cut to a
// million pixels, so the arithmetic on it cannot overflow.
std::int32_t twipsToPixels(std::int32_t twips)
{
    return static_cast<std::int32_t>(std::clamp(twips / kTwipsPerPixel, -1'000'000, 1'000'000));
}

std::int32_t pixelsToTwips(std::int32_t pixels)
{
    return static_cast<std::int32_t>(std::clamp<qint64>(qint64(pixels) * kTwipsPerPixel,
                                                        std::numeric_limits<std::int32_t>::min(),
                                                        std::numeric_limits<std::int32_t>::max()));
}

template <typename Convert>
Settings withWindowIn(Settings s, Convert convert)
{
    for (std::int32_t *v : {&s.WindowLeft, &s.WindowTop, &s.WindowWidth, &s.WindowHeight})
        *v = convert(*v);
    return s;
}

// Visits the settings in file order. The reader and the writer both walk
// this one list, so they cannot disagree about the order.
template <typename S, typename Visitor>
void forEachValue(S &s, Visitor &&v)
{
    v(s.Language);
    v(s.DefaultFolder);
    v(s.PlayMode);
    v(s.RepeatMode);
    v(s.AlwaysOnTop);
    v(s.TitleMode);
    v(s.KeepHistory);
    v(s.LaunchFullScreen);
    v(s.RememberLastPos);
    v(s.RememberLastSize);
    v(s.UseNewInstance);
    v(s.DisableScreenSaver);
    v(s.ShowInTray);
    v(s.SnapshotFolder);
    v(s.SnapshotPrefix);
    v(s.SnapshotPreview);
    v(s.SnapshotPNG);
    for (auto &flag : s.AssocFlags)
        v(flag);
    v(s.WindowLeft);
    v(s.WindowTop);
    v(s.WindowWidth);
    v(s.WindowHeight);
    v(s.PlaylistPosition);
}

// Reads values the way the file was always read: blanks before a value are
// skipped; a value in quotes runs to the closing quote; any other value runs
// to the next comma or line end; the delimiter is consumed.
class ValueReader {
public:
    explicit ValueReader(const QByteArray &text) : m_text(text) {}

    std::optional<QByteArray> next()
    {
        while (m_pos < m_text.size() && (m_text[m_pos] == ' ' || m_text[m_pos] == '\t'))
            ++m_pos;
        if (m_pos >= m_text.size())
            return std::nullopt;
        QByteArray value;
        if (m_text[m_pos] == '"') {
            // A doubled quote inside quotes stands for one quote character.
            ++m_pos;
            while (m_pos < m_text.size()) {
                const qsizetype close = m_text.indexOf('"', m_pos);
                const qsizetype end = close < 0 ? m_text.size() : close;
                value += m_text.mid(m_pos, end - m_pos);
                m_pos = close < 0 ? m_text.size() : close + 1;
                if (close < 0 || m_pos >= m_text.size() || m_text[m_pos] != '"')
                    break;
                value += '"';
                ++m_pos;
            }
            // Whatever follows the closing quote up to the delimiter is dropped.
            while (m_pos < m_text.size() && !isDelimiter(m_text[m_pos]))
                ++m_pos;
        } else {
            const qsizetype start = m_pos;
            while (m_pos < m_text.size() && !isDelimiter(m_text[m_pos]))
                ++m_pos;
            value = m_text.mid(start, m_pos - start);
        }
        skipDelimiter();
        return value;
    }

private:
    static bool isDelimiter(char c) { return c == ',' || c == '\r' || c == '\n'; }
    void skipDelimiter()
    {
        if (m_pos >= m_text.size())
            return;
        if (m_text[m_pos] == ',') {
            ++m_pos;
        } else if (m_text[m_pos] == '\r') {
            ++m_pos;
            if (m_pos < m_text.size() && m_text[m_pos] == '\n')
                ++m_pos;
        } else if (m_text[m_pos] == '\n') {
            ++m_pos;
        }
    }

    const QByteArray &m_text;
    qsizetype m_pos = 0;
};

// A text is written as it is unless reading it back would change it: a
// comma or a line break would end it early, a leading quote would be taken
// for quoting and leading blanks would be skipped. Such a text goes in
// quotes, with its own quotes doubled.
QByteArray quotedWhereNeeded(QByteArray text)
{
    const bool plain = !text.contains(',') && !text.contains('"') && !text.contains('\r') && !text.contains('\n')
                       && !text.startsWith(' ') && !text.startsWith('\t');
    if (plain)
        return text;
    return '"' + text.replace("\"", "\"\"") + '"';
}

template <typename Int>
bool parseInteger(const QByteArray &raw, Int &out)
{
    const QByteArray t = raw.trimmed();
    bool ok = false;
    const qlonglong v = t.toLongLong(&ok);
    if (!ok || v < std::numeric_limits<Int>::min() || v > std::numeric_limits<Int>::max())
        return false;
    out = static_cast<Int>(v);
    return true;
}

} // namespace

namespace {

// The write bits count, not only access(2): a file the user made read-only
// stays unwritten even for a user whom the system would let write it.
bool isWritableFile(const QFileInfo &info)
{
    constexpr QFile::Permissions anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && info.permissions().testAnyFlags(anyWrite);
}

} // namespace

QDebug operator<<(QDebug debug, const ConfigLocation &location)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "read " << location.readPath << ", write "
                    << (location.writePath.isEmpty() ? QStringLiteral("nowhere") : location.writePath);
    return debug;
}

QString ConfigFile::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/quorvel");
}

ConfigLocation ConfigFile::locate(const QString &programFolder)
{
    return locate(programFolder, userFolder());
}

ConfigLocation ConfigFile::locate(const QString &programFolder, const QString &userFolder)
{
    const QString beside = programFolder + QStringLiteral("Config.cfg");
    const QString user = userFolder + QStringLiteral("/Config.cfg");
    const QFileInfo besideInfo(beside);
    const bool besideIsFile = besideInfo.exists() && besideInfo.isFile();
    if (besideIsFile && isWritableFile(besideInfo))
        return {beside, beside};
    if (!besideInfo.exists() && QFileInfo(programFolder).isWritable())
        return {beside, beside};

    const bool userFolderUsable = QDir().mkpath(userFolder) && QFileInfo(userFolder).isWritable();
    const QFileInfo userInfo(user);
    ConfigLocation where;
    where.writePath = userFolderUsable && !(userInfo.exists() && !userInfo.isFile()) ? user : QString();
    // Settings saved in the user's folder before win over a read-only file
    // beside the program; until then that file's values are the user's.
    const bool userHasSaved = userInfo.isFile() && userInfo.isReadable();
    where.readPath = besideIsFile && besideInfo.isReadable() && !userHasSaved ? beside : user;
    // Said once: start-up asks before the window does.
    static bool told = false;
    if (besideInfo.exists() && !std::exchange(told, true))
        qCWarning(lcApp).noquote() << (besideIsFile ? "the settings file beside the program is read-only;"
                                                    : "the settings file beside the program is not a file;")
                                   << where;
    return where;
}

std::optional<Settings> ConfigFile::parse(const QByteArray &contents)
{
    Settings s;
    ValueReader reader(contents);
    bool ok = true;
    forEachValue(s, [&](auto &field) {
        if (!ok)
            return;
        const std::optional<QByteArray> raw = reader.next();
        if (!raw) {
            ok = false;
            return;
        }
        using T = std::remove_reference_t<decltype(field)>;
        if constexpr (std::is_same_v<T, QString>)
            field = QString::fromUtf8(*raw);
        else
            ok = parseInteger(*raw, field);
    });
    if (!ok)
        return std::nullopt;
    return withWindowIn(s, twipsToPixels);
}

QByteArray ConfigFile::serialize(const Settings &settings)
{
    const Settings inFile = withWindowIn(settings, pixelsToTwips);
    QByteArray out;
    forEachValue(inFile, [&](const auto &field) {
        using T = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<T, QString>) {
            out += quotedWhereNeeded(field.toUtf8());
        } else {
            if (field >= 0)
                out += ' ';
            out += QByteArray::number(static_cast<qlonglong>(field));
            out += ' ';
        }
        out += "\r\n";
    });
    return out;
}

ConfigFile::LoadResult ConfigFile::load(const ConfigLocation &where, const SettingsEnvironment &env)
{
    LoadResult result;
    std::optional<Settings> read;
    QFile file(where.readPath);
    if (file.open(QIODevice::ReadOnly)) {
        // A settings file is small; anything huge is not ours.
        if (file.size() <= 1 << 20)
            read = parse(file.readAll());
        file.close();
    }
    if (read) {
        result.settings = *read;
        if (result.settings.DefaultFolder.trimmed().isEmpty())
            result.settings.DefaultFolder = env.desktopFolder;
        return result;
    }
    qCInfo(lcApp) << "settings file missing or damaged, using defaults:" << where;
    result.settings = DefaultSettings(env);
    result.usedDefaults = true;
    write(where, result.settings);
    return result;
}

bool ConfigFile::write(const ConfigLocation &where, const Settings &settings)
{
    if (where.writePath.isEmpty())
        return true; // said once when the place was chosen
    QSaveFile file(where.writePath);
    // A writable file in a folder that takes no new files is written in place.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(serialize(settings));
    return file.commit();
}

} // namespace quorvel
