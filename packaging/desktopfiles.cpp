// desktopfiles: writes the files an installed Quorvel gives the desktop,
// below a "share" folder:
//   applications/quorvel.desktop   the same entry a user's associations
//                                  write, for the `quorvel` on the PATH
//   mime/packages/quorvel.xml      the extensions the MIME database lacks
//                                  (only when it lacks any)
//
//   desktopfiles SHARE_FOLDER
#include "settings/associations.h"
#include "settings/xdgassociations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

bool write(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size())
        return true;
    std::fprintf(stderr, "desktopfiles: cannot write %s\n", qPrintable(path));
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: desktopfiles SHARE_FOLDER\n");
        return 2;
    }
    const QString share = QFile::decodeName(argv[1]);
    const quorvel::FileAssociations::HandledTypes handled = quorvel::FileAssociations::AllHandledTypes();
    // The installed entry names the program and its icon as the desktop finds
    // them (PATH, icon theme) rather than by where this build put them.
    bool ok = write(share + u"/applications/quorvel.desktop"_qs,
                    quorvel::XdgAssociations::desktopEntry(u"quorvel"_qs, u"quorvel"_qs, handled.mimeTypes));
    if (!handled.extraGlobs.isEmpty())
        ok = write(share + u"/mime/packages/quorvel.xml"_qs, quorvel::XdgAssociations::mimePackage(handled.extraGlobs))
             && ok;
    return ok ? 0 : 1;
}
