#include "folderscan.h"

#include "common/paths.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

namespace quorvel {

void SortNaturally(QStringList &names)
{
    // The C locale compares code points and ignores the numeric mode: a
    // session without a language set sorts as English does.
    QLocale locale;
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English, QLocale::UnitedStates);
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(names.begin(), names.end(), [&](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order != 0 ? order < 0 : a < b; // names that collate alike keep one fixed order
    });
}

QStringList MediaFilesIn(const QString &folder, bool subfolders)
{
    const QDir dir(folder);
    QStringList files;
    for (const QString &name : dir.entryList(QDir::Files | QDir::Readable)) {
        if (IsSupportedFile(name))
            files << name;
    }
    SortNaturally(files);
    for (QString &name : files)
        name = dir.filePath(name);
    if (subfolders) {
        QStringList folders = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
        SortNaturally(folders);
        for (const QString &sub : folders)
            files += MediaFilesIn(dir.filePath(sub), true);
    }
    return files;
}

QStringList ExpandFolders(const QStringList &paths, bool subfolders)
{
    QStringList files;
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir())
            files += MediaFilesIn(path, subfolders);
        else if (IsSupportedFile(path))
            files << path;
    }
    return files;
}

QString NextInFolder(const QString &path, const QStringList &skip)
{
    const QFileInfo file(path);
    const QStringList files = MediaFilesIn(file.absolutePath(), false);
    const qsizetype at = files.indexOf(file.absoluteFilePath());
    if (at < 0)
        return {};
    for (qsizetype i = at + 1; i < files.size(); ++i) {
        if (!skip.contains(files[i]))
            return files[i];
    }
    return {};
}

} // namespace quorvel
