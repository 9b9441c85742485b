#include "engineoptions.h"

#include "common/paths.h"

namespace quorvel {

namespace {
QString flagOption(std::int16_t flag, const QString &name)
{
    return IsSet(flag) ? name : QStringLiteral("no-") + name;
}
} // namespace

QStringList BuildEngineOptions(const Settings &s)
{
    return {
        QStringLiteral("overlay"),
        QStringLiteral("snapshot-prefix=") + s.SnapshotPrefix,
        QStringLiteral("snapshot-path=") + QString(kPathSeparator),
        IsSet(s.SnapshotPNG) ? QStringLiteral("snapshot-format=PNG") : QStringLiteral("snapshot-format=JPG"),
        flagOption(s.SnapshotPreview, QStringLiteral("snapshot-preview")),
        QStringLiteral("snapshot-sequential"),
        flagOption(s.DisableScreenSaver, QStringLiteral("disable-screensaver")),
        QStringLiteral("snapshot-Width=640"),
        QStringLiteral("snapshot-Height=480"),
    };
}

QString SnapshotPathOption(const QString &snapshotFolder, const QString &filePath)
{
    // The folder is used as stored and a separator is always added.
    return QStringLiteral("snapshot-path=") + snapshotFolder + kPathSeparator + GetFileTitle(filePath)
           + QStringLiteral(" Images");
}

} // namespace quorvel
