#pragma once
// Where the tests find the project's skin and put the pictures they paint.

#include "skin/skinimages.h"

#include <QDir>
#include <QString>

namespace quorvel::test {

// The program folder whose "images" folder holds the committed skin.
inline QString SkinProgramFolder()
{
    return QStringLiteral(QUORVEL_SKIN_SOURCE_DATA "/");
}

// The committed skin, loaded once for all tests of a binary.
inline const SkinImages &CommittedSkin()
{
    static SkinImages images = [] {
        SkinImages i;
        i.LoadSkinImages(SkinProgramFolder());
        i.LoadProgressBack(SkinProgramFolder());
        return i;
    }();
    return images;
}

// Pictures painted by the tests, kept for reviewers.
inline QString SkinOutputFolder()
{
    const QString dir = QStringLiteral(QUORVEL_SKIN_TEST_OUTPUT);
    QDir().mkpath(dir);
    return dir + QLatin1Char('/');
}

} // namespace quorvel::test
