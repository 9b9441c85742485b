#include "configfile.h"

#include "common/logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <limits>

namespace quorvel {

namespace {

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
            const qsizetype close = m_text.indexOf('"', m_pos + 1);
            const qsizetype end = close < 0 ? m_text.size() : close;
            value = m_text.mid(m_pos + 1, end - m_pos - 1);
            m_pos = close < 0 ? m_text.size() : close + 1;
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

QString ConfigFile::locate(const QString &programFolder)
{
    const QString beside = programFolder + QStringLiteral("Config.cfg");
    const QFileInfo folder(programFolder);
    const QFileInfo existing(beside);
    if (folder.isWritable() && (!existing.exists() || existing.isWritable()))
        return beside;
    QString dir = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                  + QStringLiteral("/quorvel");
    QDir().mkpath(dir);
    return dir + QStringLiteral("/Config.cfg");
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
    return s;
}

QByteArray ConfigFile::serialize(const Settings &settings)
{
    QByteArray out;
    forEachValue(settings, [&](const auto &field) {
        using T = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<T, QString>) {
            // A line break inside a text would shift every later value.
            QByteArray text = field.toUtf8();
            text.replace('\r', ' ').replace('\n', ' ');
            out += text;
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

ConfigFile::LoadResult ConfigFile::load(const QString &path, const SettingsEnvironment &env)
{
    LoadResult result;
    std::optional<Settings> read;
    QFile file(path);
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
    qCInfo(lcApp) << "settings file missing or damaged, writing defaults:" << path;
    result.settings = DefaultSettings(env);
    result.usedDefaults = true;
    write(path, result.settings);
    return result;
}

bool ConfigFile::write(const QString &path, const Settings &settings)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(serialize(settings));
    return file.commit();
}

} // namespace quorvel
