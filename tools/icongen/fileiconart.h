#pragma once
// The file-type icons of the media extensions and the "unknown" picture,
// drawn with vector painting at each size so small ones stay sharp.

#include <QImage>
#include <QString>

namespace quorvel::icongen {

enum class Kind { Audio, Video };

// A page with a folded corner, the kind's glyph and, from 32 pixels on, the
// extension written on a coloured label.
QImage FileTypeIcon(const QString &extension, Kind kind, int size);

// The picture shown for a file type without any icon: opaque, on the
// colour of the lists it stands in.
QImage UnknownPicture(int size);

} // namespace quorvel::icongen
