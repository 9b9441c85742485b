#include "paths.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace quorvel {

const std::array<QString, kMediaExtensionCount> &MediaExtensions()
{
    static const std::array<QString, kMediaExtensionCount> table{
        u"wav"_qs, u"flv"_qs, u"mka"_qs,  u"mkv"_qs, u"mp3"_qs, u"mpg"_qs, u"mpe"_qs, u"mpeg"_qs,
        u"aac"_qs, u"mp4"_qs, u"m4v"_qs,  u"m4a"_qs, u"ogm"_qs, u"ogg"_qs, u"mov"_qs, u"hdmov"_qs,
        u"qt"_qs,  u"3gp"_qs, u"3gpp"_qs, u"3g2"_qs, u"avi"_qs, u"wma"_qs, u"wmv"_qs, u"asf"_qs};
    return table;
}

QString GetFileTitle(const QString &path)
{
    const qsizetype cut = path.lastIndexOf(kPathSeparator);
    return cut < 0 ? path : path.mid(cut + 1);
}

QString GetFolderOf(const QString &path)
{
    const qsizetype cut = path.lastIndexOf(kPathSeparator);
    return cut < 0 ? path : path.left(cut);
}

int MediaExtensionIndex(const QString &path)
{
    const QString name = GetFileTitle(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return -1;
    const QString ext = name.mid(dot + 1).toLower();
    if (ext.isEmpty())
        return -1;
    const auto &table = MediaExtensions();
    for (int i = 0; i < kMediaExtensionCount; ++i) {
        if (table[i] == ext)
            return i;
    }
    return -1;
}

bool IsSupportedFile(const QString &path)
{
    return MediaExtensionIndex(path) >= 0;
}

bool DeleteIfExists(const QString &path)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return true;
    return QFile::remove(path);
}

QString ProgramFolder()
{
    QString dir = QCoreApplication::applicationDirPath();
    if (!dir.endsWith(kPathSeparator))
        dir += kPathSeparator;
    return dir;
}

} // namespace quorvel
