// Caption fitting with path and end ellipses in the caption's own font.
#include "skin/skinpainter.h"
#include "skin/textellipsis.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {
const QString kCaption = QStringLiteral("Quorvel - (/home/user/Media/Very long folder name/clip.avi)");
}

TEST(TextEllipsis, PathKeepsTheFileNameAndEndCutsTheEnd)
{
    const QFontMetrics fm(SkinPainter::captionFont());
    const int full = fm.horizontalAdvance(kCaption);
    // a text that fits stays as it is, at 96% of the label
    EXPECT_EQ(FitTextEllipsis(fm, kCaption, full * 2, PathEllipsis), kCaption);
    EXPECT_EQ(FitTextEllipsis(fm, QStringLiteral("Quorvel"), 278, EndEllipsis), QStringLiteral("Quorvel"));
    const int narrow = 200;
    const QString path = FitTextEllipsis(fm, kCaption, narrow, PathEllipsis);
    EXPECT_TRUE(path.endsWith(QStringLiteral(".../clip.avi)"))) << path.toStdString();
    EXPECT_TRUE(path.startsWith(QStringLiteral("Quorvel - ("))) << path.toStdString();
    EXPECT_LE(fm.horizontalAdvance(path), RoundHalfEven(0.96 * narrow));
    const QString end = FitTextEllipsis(fm, kCaption, narrow, EndEllipsis);
    EXPECT_TRUE(end.endsWith(QStringLiteral("..."))) << end.toStdString();
    EXPECT_FALSE(end.contains(QStringLiteral("clip.avi")));
    EXPECT_TRUE(kCaption.startsWith(end.chopped(3)));
    EXPECT_LE(fm.horizontalAdvance(end), RoundHalfEven(0.96 * narrow));
    // the result uses as much of the room as it can
    EXPECT_GT(fm.horizontalAdvance(end), RoundHalfEven(0.96 * narrow) - 2 * fm.maxWidth());
}

TEST(TextEllipsis, BackslashPathsAndTextThatCannotFit)
{
    const QFontMetrics fm(SkinPainter::captionFont());
    const QString windows = QStringLiteral("Quorvel - (C:\\Media\\Very long folder name\\clip.avi)");
    const QString fitted = FitTextEllipsis(fm, windows, 200, PathEllipsis);
    EXPECT_TRUE(fitted.endsWith(QStringLiteral("...\\clip.avi)"))) << fitted.toStdString();
    // a path ellipsis on text without a separator cuts at the end
    const QString plain = QStringLiteral("Quorvel - (A rather long title without any folder at all)");
    EXPECT_TRUE(FitTextEllipsis(fm, plain, 150, PathEllipsis).endsWith(QStringLiteral("...")));
    // a label narrower than the file name still gives a short text, never a crash
    const QString tiny = FitTextEllipsis(fm, kCaption, 20, PathEllipsis);
    EXPECT_LE(tiny.size(), 4);
    EXPECT_EQ(FitTextEllipsis(fm, QString(), 0, EndEllipsis), QString());
    // surrogate pairs are never split
    const QString emoji = QStringLiteral("Quorvel - (") + QString::fromUtf8("\xF0\x9F\x8E\xB5").repeated(40) + ")";
    const QString cut = FitTextEllipsis(fm, emoji, 120, EndEllipsis);
    EXPECT_FALSE(cut.chopped(3).back().isHighSurrogate());
}
