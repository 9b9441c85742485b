#pragma once
// Shortening a caption so that it fits its label on one line, with "..."
// either in the middle of a path (keeping the file name) or at the end.

#include <QFontMetrics>
#include <QString>

namespace quorvel {

enum EllipsisFlag : int {
    PathEllipsis = 16384, // "..." in the middle, the part after the last separator kept
    EndEllipsis = 32768,  // "..." replaces the end
};

// The text shortened to fit 96% of `labelWidth` pixels in the font of `fm`;
// a text that fits comes back unchanged.
QString FitTextEllipsis(const QFontMetrics &fm, const QString &text, int labelWidth, int flags);

} // namespace quorvel
