#include "existingfileprobe.h"

#include "common/paths.h"

#include <QFileInfo>

namespace quorvel {

ProbeResult ExistingFileProbe::probe(const QString &path)
{
    ProbeResult r;
    const QFileInfo info(path);
    if (!info.isFile() || !info.isReadable()) {
        r.error = QStringLiteral("The file does not exist or cannot be read.");
        return r;
    }
    if (!IsSupportedFile(path)) {
        r.error = QStringLiteral("The file type is not supported.");
        return r;
    }
    r.ok = true;
    r.thumb = m_defaultThumb;
    return r;
}

} // namespace quorvel
