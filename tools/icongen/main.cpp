// icongen: draws Quorvel's icons into the program folder's "icons" folder.
//   icongen OUTPUT_ICONS_FOLDER [--sheet SHEET.png]
// It writes "Unkowen.bmp" and an icon theme tree "hicolor/<n>x<n>/" holding
// the program's icon (apps/quorvel.png) and one icon per media extension
// (mimetypes/quorvel-<extension>.png) at every size. The sheet shows them
// all for review.
#include "common/appname.h"
#include "common/paths.h"
#include "fileiconart.h"
#include "skinart.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeDatabase>
#include <QPainter>
#include <cstdio>

using namespace quorvel;

namespace {

constexpr int kSizes[] = {16, 24, 32, 48, 64, 128, 256};

bool save(const QImage &image, const QString &path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (image.save(path))
        return true;
    std::fprintf(stderr, "icongen: cannot write %s\n", qPrintable(path));
    return false;
}

icongen::Kind kindOf(const QString &extension)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(u"x."_qs + extension, QMimeDatabase::MatchExtension);
    return type.name().startsWith(u"audio/"_qs) ? icongen::Kind::Audio : icongen::Kind::Video;
}

// Every extension at four sizes on the list colour, then on white; below
// them the program's icon and the "unknown" picture.
QImage sheet()
{
    const int cellW = 230, cellH = 170, cols = 6;
    const int rows = (kMediaExtensionCount + cols - 1) / cols;
    QImage img(cols * cellW, rows * cellH * 2 + cellH, QImage::Format_ARGB32_Premultiplied);
    img.fill(QColor(0x1b, 0x20, 0x27));
    QPainter p(&img);
    for (int half = 0; half < 2; ++half) {
        const QRect area(0, half * rows * cellH, img.width(), rows * cellH);
        p.fillRect(area, half == 0 ? QColor(0x1b, 0x20, 0x27) : Qt::white);
        for (int i = 0; i < kMediaExtensionCount; ++i) {
            const QString ext = MediaExtensions()[i];
            const QPoint at = area.topLeft() + QPoint((i % cols) * cellW + 8, (i / cols) * cellH + 8);
            p.drawImage(at, icongen::FileTypeIcon(ext, kindOf(ext), 128));
            int y = at.y();
            for (int size : {48, 32, 16}) {
                p.drawImage(at.x() + 140, y, icongen::FileTypeIcon(ext, kindOf(ext), size));
                y += size + 8;
            }
            p.setPen(half == 0 ? Qt::white : Qt::black);
            p.drawText(at.x(), at.y() + 146, ext);
        }
    }
    int x = 8;
    for (int size : {128, 48, 32, 16}) {
        p.drawImage(x, img.height() - cellH + 8, skingen::ProgramIcon(size));
        x += size + 16;
    }
    p.drawImage(x + 32, img.height() - cellH + 8, icongen::UnknownPicture(32));
    return img;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: icongen OUTPUT_ICONS_FOLDER [--sheet SHEET.png]\n");
        return 2;
    }
    const QDir out(args.at(1));
    bool ok = save(icongen::UnknownPicture(32), out.filePath(u"Unkowen.bmp"_qs));
    for (int size : kSizes) {
        const QString folder = out.filePath(u"hicolor/%1x%1/"_qs.arg(size));
        ok = save(skingen::ProgramIcon(size), folder + u"apps/quorvel.png"_qs) && ok;
        for (const QString &ext : MediaExtensions()) {
            QImage icon = icongen::FileTypeIcon(ext, kindOf(ext), size);
            icon.setText(u"Description"_qs, kFileTypeIconMark);
            ok = save(icon, folder + u"mimetypes/quorvel-"_qs + ext + u".png"_qs) && ok;
        }
    }
    const qsizetype sheetAt = args.indexOf(u"--sheet"_qs);
    if (sheetAt > 0 && sheetAt + 1 < args.size())
        ok = save(sheet(), args.at(sheetAt + 1)) && ok;
    return ok ? 0 : 1;
}
