// skingen: draws Quorvel's skin and writes it into an "images" folder.
//   skingen OUTPUT_IMAGES_FOLDER [--sheet SHEET.png]
// The pictures are drawn with code at their drawing sizes; the sheet shows
// every picture at twice its size for review.
#include "skinart.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: skingen OUTPUT_IMAGES_FOLDER [--sheet SHEET.png]\n");
        return 2;
    }
    const QDir out(args.at(1));
    const auto files = quorvel::skingen::DrawSkin();
    for (const auto &f : files) {
        const QString path = out.filePath(f.relativePath);
        QDir().mkpath(QFileInfo(path).absolutePath());
        const bool jpeg = path.endsWith(".jpg", Qt::CaseInsensitive);
        if (!f.image.save(path, jpeg ? "JPG" : "PNG", jpeg ? 97 : -1)) {
            std::fprintf(stderr, "skingen: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    const int sheetAt = int(args.indexOf("--sheet"));
    if (sheetAt > 0 && sheetAt + 1 < args.size()) {
        if (!quorvel::skingen::ContactSheet(files, 2).save(args.at(sheetAt + 1))) {
            std::fprintf(stderr, "skingen: cannot write the sheet\n");
            return 1;
        }
    }
    std::printf("skingen: wrote %d files into %s\n", int(files.size()), qPrintable(out.absolutePath()));
    return 0;
}
