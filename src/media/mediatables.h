#pragma once
// Tables the probe reads, loaded once at start-up from the program folder.

#include <QHash>
#include <QImage>
#include <QString>

namespace quorvel {

struct MediaTables {
    QHash<QString, QString> audioCodecMap; // "audiomaps.txt"
    QHash<QString, QString> videoCodecMap; // "videomaps.txt"
    QImage defaultVideoThumb;              // "Video.JPG"
    QImage defaultAudioThumb;              // "Audio.JPG"
};

} // namespace quorvel
