#pragma once
// What the playlist needs to know of a file before it takes it in.

#include <QImage>
#include <QString>
#include <QStringList>

namespace quorvel {

struct ProbeResult {
    bool ok = false;
    QImage thumb;        // the extracted frame or a default picture
    QString mediaInfo;   // the report the playlist keeps for the item
    QString error;       // why the file was refused (when !ok)
    QStringList notices; // things the user should be told even on success, in order
};

// Probes one file. Implementations must be safe to call from several worker
// threads at once: the playlist probes files in parallel and takes them in
// the order they were asked for.
class MediaProbe {
public:
    virtual ~MediaProbe() = default;
    virtual ProbeResult probe(const QString &path) = 0;
};

} // namespace quorvel
