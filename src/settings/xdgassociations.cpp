#include "settings/xdgassociations.h"

#include "common/appname.h"
#include "common/logging.h"
#include "settings/filestore.h"
#include "settings/mimeappslist.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#endif

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

// The name the program's icon goes by in the icon theme and the desktop entry.
const QString kProgramIcon = u"quorvel"_qs;

// The size folders ("48x48", ...) of an icon theme tree.
QStringList sizeFolders(const QString &theme)
{
    return QDir(theme).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

bool isPlayersIcon(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(QByteArray(kFileTypeIconMark.data()));
}

// Desktops re-read an icon theme whose folder's time changed.
void touchFolder(const QString &path)
{
#ifdef Q_OS_UNIX
    ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), nullptr, 0);
#else
    Q_UNUSED(path);
#endif
}

} // namespace

XdgAssociations::XdgAssociations(QString programPath, QString iconFolder, QString configHome, QString dataHome)
    : m_programPath(std::move(programPath)), m_iconFolder(std::move(iconFolder)), m_configHome(std::move(configHome)),
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

QString XdgAssociations::currentHandler(const QString &mimeType) const
{
    const auto firstOf = [](const std::optional<QByteArray> &handlers) {
        return handlers ? QString::fromUtf8(handlers->split(';').constFirst().trimmed()) : QString();
    };
    const auto valueIn = [&](const QString &path, const QByteArray &group = {}) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? firstOf(mimeapps::defaultOf(file.readAll(), mimeType.toUtf8(), group))
                                              : QString();
    };
    // The lists in the order the desktop reads them, a desktop's own list first.
    QStringList lists;
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts);
    const auto addLists = [&](const QString &folder) {
        for (const QString &desktop : desktops)
            lists << folder + u'/' + desktop + u"-mimeapps.list"_qs;
        lists << folder + u"/mimeapps.list"_qs;
    };
    addLists(m_configHome);
    for (const QString &dir : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation).mid(1))
        addLists(dir);
    const QStringList dataDirs = QStringList{m_dataHome}
                                 + QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation).mid(1);
    for (const QString &dir : dataDirs)
        addLists(dir + u"/applications"_qs);
    for (const QString &list : lists) {
        if (const QString handler = valueIn(list); !handler.isEmpty())
            return handler;
    }
    for (const QString &dir : dataDirs) {
        if (const QString handler = valueIn(dir + u"/applications/mimeinfo.cache"_qs, "[MIME Cache]");
            !handler.isEmpty())
            return handler;
    }
    return {};
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

QByteArray XdgAssociations::desktopEntry(const QString &programPath, const QString &icon, const QStringList &mimeTypes)
{
    const QString exec = execArgument(programPath);
    QString text = u"[Desktop Entry]\n"
                   "Type=Application\n"
                   "Name=Quorvel\n"
                   "GenericName=Media Player\n"
                   "Comment=Play audio and video files\n"_qs;
    text += u"Exec="_qs + exec + u" %F\n"_qs;
    text += u"TryExec="_qs + stringValue(programPath) + u'\n';
    if (!icon.isEmpty())
        text += u"Icon="_qs + stringValue(icon) + u'\n';
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

void XdgAssociations::installProgramIcon()
{
    const QString source = m_iconFolder + u"/hicolor"_qs;
    bool changed = false;
    for (const QString &size : sizeFolders(source)) {
        const QString relative = u'/' + size + u"/apps/"_qs + kProgramIcon + u".png"_qs;
        QFile icon(source + relative);
        if (icon.open(QIODevice::ReadOnly))
            changed = writeIfChanged(themePath() + relative, icon.readAll()) || changed;
    }
    if (changed)
        touchFolder(themePath());
}

void XdgAssociations::showTypeIcon(const QString &mimeType, const QString &extension, bool shown)
{
    const QMimeType type = QMimeDatabase().mimeTypeForName(mimeType);
    const QString name = (type.isValid() ? type.iconName() : QString(mimeType).replace(u'/', u'-')) + u".png"_qs;
    const QString source = m_iconFolder + u"/hicolor/"_qs;
    bool changed = false;
    for (const QString &size : sizeFolders(shown ? source : themePath())) {
        const QString target = themePath() + u'/' + size + u"/mimetypes/"_qs + name;
        // An icon of that name that the player did not install is the user's own.
        if (QFileInfo::exists(target) && !isPlayersIcon(target))
            continue;
        QFile icon(source + size + u"/mimetypes/quorvel-"_qs + extension + u".png"_qs);
        if (shown && icon.open(QIODevice::ReadOnly))
            changed = writeIfChanged(target, icon.readAll()) || changed;
        else if (!shown && QFile::remove(target))
            changed = true;
    }
    if (changed) {
        touchFolder(themePath());
        qCDebug(lcApp) << (shown ? "showing" : "removed") << "the player's icon for" << mimeType;
    }
}

void XdgAssociations::registerHandler(const QStringList &mimeTypes, const QMap<QString, QString> &extraGlobs)
{
    installProgramIcon();
    if (writeIfChanged(desktopEntryPath(), desktopEntry(m_programPath, kProgramIcon, mimeTypes)))
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
    XdgAssociations desktop(QCoreApplication::applicationFilePath(), ProgramFolder() + u"icons"_qs);
    FileAssociations(store, desktop).ApplyAssociations(AssocFlags);
}

} // namespace quorvel
