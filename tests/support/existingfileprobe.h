#pragma once
// A probe that only checks that the file exists and has a media extension.

#include "common/paths.h"
#include "media/mediaprobe.h"

#include <QFileInfo>
#include <QImage>

namespace quorvel::test {

class ExistingFileProbe final : public MediaProbe {
public:
    explicit ExistingFileProbe(QImage defaultThumb = {}) : m_defaultThumb(std::move(defaultThumb)) {}
    ProbeResult probe(const QString &path) override
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

private:
    QImage m_defaultThumb;
};

} // namespace quorvel::test
