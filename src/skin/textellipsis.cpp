#include "textellipsis.h"

#include "skinlayout.h"

namespace quorvel {
namespace {

const QString kDots = QStringLiteral("...");

// Longest prefix of `head` such that head' + suffix fits.
QString FitPrefix(const QFontMetrics &fm, const QString &head, const QString &suffix, int avail, bool *ok)
{
    int lo = 0, hi = int(head.size());
    if (fm.horizontalAdvance(suffix) > avail) {
        *ok = false;
        return suffix;
    }
    while (lo < hi) { // find the largest n with head.left(n) + suffix fitting
        const int mid = (lo + hi + 1) / 2;
        if (fm.horizontalAdvance(head.left(mid) + suffix) <= avail)
            lo = mid;
        else
            hi = mid - 1;
    }
    // never split a surrogate pair
    if (lo > 0 && head.at(lo - 1).isHighSurrogate())
        --lo;
    *ok = true;
    return head.left(lo) + suffix;
}

QString CutAtEnd(const QFontMetrics &fm, const QString &text, int avail)
{
    bool ok = false;
    const QString s = FitPrefix(fm, text, kDots, avail, &ok);
    return ok ? s : kDots;
}

} // namespace

QString FitTextEllipsis(const QFontMetrics &fm, const QString &text, int labelWidth, int flags)
{
    const int avail = RoundHalfEven(0.96 * labelWidth);
    if (fm.horizontalAdvance(text) <= avail)
        return text;
    if (flags & PathEllipsis) {
        const int sep = int(std::max(text.lastIndexOf(u'\\'), text.lastIndexOf(u'/')));
        if (sep >= 0) {
            bool ok = false;
            const QString s = FitPrefix(fm, text.left(sep), kDots + text.mid(sep), avail, &ok);
            if (ok)
                return s;
            // not even the file name fits: cut it at its end instead
            return CutAtEnd(fm, kDots + text.mid(sep), avail);
        }
    }
    return CutAtEnd(fm, text, avail);
}

} // namespace quorvel
