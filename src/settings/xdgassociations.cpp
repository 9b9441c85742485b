#include "settings/xdgassociations.h"

#include "common/logging.h"
#include "settings/filestore.h"
#include "settings/mimeappslist.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <utility>

namespace quorvel {

namespace {

// One argument of an Exec line: quoted only when it must be, since some
// tools take the first word of the line as the program unquoted.
QString execArgument(const QString &argument)
{
    static const QString reserved = u" \t\n\"'\\><~|&;$*?#()`"_qs;
    QString quoted = argument;
    if (std::any_of(argument.begin(), argument.end(), [](QChar c) { return reserved.contains(c); })) {
        quoted.clear();
        for (const QChar c : argument) {
            if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
                quoted += u'\\';
            quoted += c;
        }
        quoted = u'"' + quoted + u'"';
    }
    quoted.replace(u'%', u"%%"_qs);
    // The key file's own escapes come on top of the Exec quoting.
    quoted.replace(u'\\', u"\\\\"_qs);
    return quoted;
}

QString stringValue(const QString &text)
{
    QString value = text;
    return value.replace(u'\\', u"\\\\"_qs).replace(u'\n', u"\\n"_qs).replace(u'\t', u"\\t"_qs);
}

// Writes `content` unless the file already holds it; true when it changed.
bool writeIfChanged(const QString &path, const QByteArray &content)
{
    QFile current(path);
    if (current.open(QIODevice::ReadOnly) && current.readAll() == content)
        return false;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        qCWarning(lcApp) << "cannot write" << path << file.errorString();
        return false;
    }
    return true;
}

// Runs a desktop database tool when the system has it.
void runTool(const QString &tool, const QString &folder)
{
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        return;
    QProcess process;
    process.start(program, {folder});
    if (!process.waitForFinished(10000) || process.exitCode() != 0)
        qCWarning(lcApp) << tool << "failed on" << folder << process.readAllStandardError();
}

} // namespace

XdgAssociations::XdgAssociations(QString programPath, QString iconPath, QString configHome, QString dataHome)
    : m_programPath(std::move(programPath)), m_iconPath(std::move(iconPath)), m_configHome(std::move(configHome)),
      m_dataHome(std::move(dataHome))
{
    if (m_configHome.isEmpty())
        m_configHome = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (m_dataHome.isEmpty())
        m_dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QString XdgAssociations::handlerId() const
{
    return u"quorvel.desktop"_qs;
}

std::optional<QString> XdgAssociations::defaultHandler(const QString &mimeType) const
{
    QFile file(mimeAppsPath());
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const std::optional<QByteArray> value = mimeapps::defaultOf(file.readAll(), mimeType.toUtf8());
    if (!value)
        return std::nullopt;
    return QString::fromUtf8(*value);
}

bool XdgAssociations::setDefaultHandler(const QString &mimeType, const std::optional<QString> &handler)
{
    const QString path = mimeAppsPath();
    QByteArray text;
    if (QFileInfo::exists(path)) {
        // A list the user cannot write stays as it is: replacing it would
        // override the user's decision to protect it.
        // The owner's write bit counts too, for a user who may write anything.
        const QFileInfo info(path);
        QFile file(path);
        if (!info.isWritable() || !(info.permissions() & QFileDevice::WriteOwner) || !file.open(QIODevice::ReadOnly)) {
            qCWarning(lcApp) << path << "cannot be changed; the association of" << mimeType << "stays as it is";
            return false;
        }
        text = file.readAll();
        if (mimeapps::isDamaged(text)) {
            qCWarning(lcApp) << path << "is not a key file; left as it is";
            return false;
        }
    }
    const std::optional<QByteArray> value = handler ? std::optional<QByteArray>(handler->toUtf8()) : std::nullopt;
    const QByteArray changed = mimeapps::withDefault(text, mimeType.toUtf8(), value);
    return changed == text || writeIfChanged(path, changed);
}

QByteArray XdgAssociations::desktopEntry(const QString &programPath, const QString &iconPath,
                                         const QStringList &mimeTypes)
{
    const QString exec = execArgument(programPath);
    QString text = u"[Desktop Entry]\n"
                   "Type=Application\n"
                   "Name=Quorvel\n"
                   "GenericName=Media Player\n"
                   "Comment=Play audio and video files\n"_qs;
    text += u"Exec="_qs + exec + u" %F\n"_qs;
    text += u"TryExec="_qs + stringValue(programPath) + u'\n';
    if (!iconPath.isEmpty())
        text += u"Icon="_qs + stringValue(iconPath) + u'\n';
    text += u"Terminal=false\n"
            "Categories=AudioVideo;Audio;Video;Player;\n"_qs;
    text += u"MimeType="_qs + mimeTypes.join(u';') + u";\n"_qs;
    text += u"Actions=AddToPlaylist;\n"
            "\n"
            "[Desktop Action AddToPlaylist]\n"
            "Name=Add To Playlist\n"_qs;
    text += u"Exec="_qs + exec + u' ' + execArgument(u"*Add"_qs) + u" %F\n"_qs;
    return text.toUtf8();
}

void XdgAssociations::registerHandler(const QStringList &mimeTypes, const QMap<QString, QString> &extraGlobs)
{
    if (writeIfChanged(desktopEntryPath(), desktopEntry(m_programPath, m_iconPath, mimeTypes)))
        runTool(u"update-desktop-database"_qs, QFileInfo(desktopEntryPath()).absolutePath());
    if (extraGlobs.isEmpty())
        return;
    const QString mimeFolder = m_dataHome + u"/mime"_qs;
    if (writeIfChanged(mimeFolder + u"/packages/quorvel.xml"_qs, mimePackage(extraGlobs)))
        runTool(u"update-mime-database"_qs, mimeFolder);
}

QByteArray XdgAssociations::mimePackage(const QMap<QString, QString> &extraGlobs)
{
    QString package = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"_qs;
    for (auto glob = extraGlobs.begin(); glob != extraGlobs.end(); ++glob) {
        package += u"  <mime-type type=\""_qs + glob.value().toHtmlEscaped() + u"\">\n"_qs;
        package += u"    <glob pattern=\"*."_qs + glob.key().toHtmlEscaped() + u"\"/>\n  </mime-type>\n"_qs;
    }
    package += u"</mime-info>\n"_qs;
    return package.toUtf8();
}

void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &AssocFlags)
{
    FileStore store(FileStore::defaultPath());
    XdgAssociations desktop(QCoreApplication::applicationFilePath(), ProgramFolder() + u"images/About.png"_qs);
    FileAssociations(store, desktop).ApplyAssociations(AssocFlags);
}

} // namespace quorvel
