#include "thumbnail.h"

#include "common/paths.h"
#include "media/processrunner.h"

#include <QFile>

namespace quorvel {

QString OffsetText(float seconds)
{
    return QString::number(double(seconds), 'g', 7);
}

QStringList ThumbnailArguments(const QString &fileName, int width, int height, float offset, const QString &workFile)
{
    return {QStringLiteral("-hide_banner"),
            QStringLiteral("-loglevel"),
            QStringLiteral("error"),
            QStringLiteral("-analyzeduration"),
            QStringLiteral("5M"),
            QStringLiteral("-ss"),
            OffsetText(offset),
            QStringLiteral("-i"),
            fileName,
            QStringLiteral("-vframes"),
            QStringLiteral("1"),
            QStringLiteral("-sws_flags"),
            QStringLiteral("fast_bilinear"),
            QStringLiteral("-an"),
            QStringLiteral("-s"),
            QStringLiteral("%1x%2").arg(width).arg(height),
            QStringLiteral("-f"),
            QStringLiteral("image2"),
            QStringLiteral("-y"),
            workFile};
}

namespace {

QImage runForPicture(const QStringList &arguments, const QString &workFile)
{
    DeleteIfExists(workFile);
    if (!ShellExecuteWait(ToolPath(QStringLiteral("ffmpeg")), arguments))
        return {};
    QImage image;
    if (QFile::exists(workFile)) {
        image.load(workFile, "JPG");
        DeleteIfExists(workFile);
    }
    return image;
}

} // namespace

QImage ExtractThumbnail(const QString &fileName, int width, int height, float offset, const QString &workFile)
{
    return runForPicture(ThumbnailArguments(fileName, width, height, offset, workFile), workFile);
}

QImage ExtractCoverArt(const QString &fileName, int width, int height, const QString &workFile)
{
    QStringList arguments = ThumbnailArguments(fileName, width, height, 0, workFile);
    arguments.remove(arguments.indexOf(QStringLiteral("-ss")), 2);
    return runForPicture(arguments, workFile);
}

} // namespace quorvel
