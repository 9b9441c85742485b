#pragma once
// The artwork of Quorvel's own skin, drawn with vector painting. Every
// picture is produced at the exact size the window draws it, so nothing is
// blurred by scaling; stretchable pieces vary only along the axis that is not
// stretched, so they join without seams at any window size.

#include <QImage>
#include <QString>
#include <vector>

namespace quorvel::skingen {

struct SkinFile {
    QString relativePath; // below "images/", with "/" separators
    QImage image;
};

// Every file of the skin: the singles, each button set in the four state
// folders, and the seek bar background.
std::vector<SkinFile> DrawSkin();

// The program's icon ("About.png" at 24 x 24) at any size.
QImage ProgramIcon(int size);

// A sheet of all pictures at the given zoom, labelled, for reviewing them.
QImage ContactSheet(const std::vector<SkinFile> &files, int zoom);

} // namespace quorvel::skingen
