#include "playlist/openfiles.h"

#include "common/logging.h"
#include "common/paths.h"
#include "playlist/filechooser.h"

#include <algorithm>
#include <exception>

namespace quorvel::playlist {

namespace {

// The folder part of a full path ("/" for a file in the root), or a null
// string when the path names no folder at all.
QString folderPart(const QString &path)
{
    const qsizetype i = path.lastIndexOf(kPathSeparator);
    if (i < 0)
        return {};
    return i == 0 ? QString(kPathSeparator) : path.left(i);
}

OpenFileEntry singleFileEntry(const QString &path)
{
    // The key is the path after its first separator, so that its file
    // title is the file's name whatever the folder.
    return {path.mid(path.indexOf(kPathSeparator) + 1), path};
}
} // namespace

QList<FileFilterEntry> OpenFileFilterEntries()
{
    QList<FileFilterEntry> entries;
    FileFilterEntry all{QStringLiteral("All Supported Formats"), {}};
    for (const QString &ext : MediaExtensions()) {
        all.patterns << QStringLiteral("*.") + ext;
        entries.append({ext.toUpper(), {QStringLiteral("*.") + ext}});
    }
    entries.prepend(all);
    return entries;
}

QStringList OpenFileNameFilters()
{
    QStringList filters;
    for (const FileFilterEntry &entry : OpenFileFilterEntries())
        filters << entry.caption + QStringLiteral(" (") + entry.patterns.join(u' ') + u')';
    return filters;
}

QString OpenFileDialogTitle()
{
    return QStringLiteral("Open Video File");
}

FileOpener::FileOpener(FileChooser &chooser, LoadThumbFn loadThumb)
    : m_chooser(chooser), m_loadThumb(std::move(loadThumb))
{
}

FileOpener::Choice FileOpener::ParseChosenFiles(const QStringList &paths)
{
    Choice choice;
    if (paths.isEmpty())
        return choice;
    const QString folder = folderPart(paths.first());
    const bool oneFolder = paths.size() > 1 && !folder.isNull()
                           && std::all_of(paths.begin(), paths.end(),
                                          [&](const QString &path) { return folderPart(path) == folder; });
    for (const QString &path : paths) {
        if (!oneFolder) {
            choice.entries.append(singleFileEntry(path));
        } else if (const QString name = GetFileTitle(path); !name.isEmpty()) {
            choice.entries.append({name, path});
        }
    }
    choice.folder = folder.isNull() ? GetFolderOf(paths.first()) : folder;
    return choice;
}

int FileOpener::OpenFiles(bool append)
{
    const QStringList chosen = m_chooser.chooseFiles(OpenFileDialogTitle(), OpenFileNameFilters(), m_lastOpenFolder);
    if (chosen.isEmpty())
        return 0; // cancelled: the folder stays as it was
    const Choice choice = ParseChosenFiles(chosen);
    m_lastOpenFolder = choice.folder;
    bool first = true;
    for (const OpenFileEntry &entry : choice.entries) {
        const bool forcePlay = first && !append;
        first = false;
        if (!m_loadThumb)
            continue;
        // Each file has its own add with its own messages; one that fails in
        // an unexpected way must not keep the files after it out.
        try {
            m_loadThumb(GetFileTitle(entry.key), entry.path, false, forcePlay);
        } catch (const std::exception &e) {
            qCWarning(lcPlaylist) << "adding" << entry.path << "failed:" << e.what();
        } catch (...) {
            qCWarning(lcPlaylist) << "adding" << entry.path << "failed";
        }
    }
    return static_cast<int>(choice.entries.size());
}

} // namespace quorvel::playlist
