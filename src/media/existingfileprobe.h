#pragma once
// A probe that only checks that the file exists and has a media extension.

#include "media/mediaprobe.h"
#include "media/mediatables.h"

namespace quorvel {

class ExistingFileProbe final : public MediaProbe {
public:
    explicit ExistingFileProbe(QImage defaultThumb = {}) : m_defaultThumb(std::move(defaultThumb)) {}
    ProbeResult probe(const QString &path) override;

private:
    QImage m_defaultThumb;
};

} // namespace quorvel
