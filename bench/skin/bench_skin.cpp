// bench_skin: how much a full paint of the skinned window costs compared with
// the cheapest possible repaint, one drawImage of a prepared picture of the
// whole window, measured in the same run on the same target.
//   bench_skin [PROGRAM_FOLDER]
#include "benchtiming.h"
#include "skin/skinpainter.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace quorvel;
using quorvel::bench::Measure;

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(QUORVEL_SKIN_SOURCE_DATA);
    SkinImages images;
    if (!images.LoadSkinImages(folder) || !images.isComplete()) {
        std::fprintf(stderr, "bench_skin: the skin in %s is incomplete\n", qPrintable(folder));
        return 1;
    }
    images.LoadProgressBack(folder);
    const SkinPainter painter(images);

    std::printf("%-12s %14s %14s %8s\n", "size", "baseline ns", "skin paint ns", "ratio");
    for (QSize size : {QSize(388, 515), QSize(1920, 1080)}) {
        QImage target(size, QImage::Format_RGB32);
        SkinPaintState state;
        state.size = size;
        state.fillWidth = (size.width() - 112) / 3;
        state.timeText = QStringLiteral("00:01:23 / 00:03:45");
        state.captionText = QStringLiteral("Quorvel - (clip.avi)");

        // the prepared picture: the skin painted once
        QImage prepared(size, QImage::Format_RGB32);
        {
            QPainter p(&prepared);
            painter.paint(p, state);
        }
        const int rounds = size.width() > 1000 ? 40 : 200;
        const double baseline = Measure(
            [&](int) {
                QPainter p(&target);
                p.drawImage(0, 0, prepared);
            },
            rounds);
        const double skin = Measure(
            [&](int i) {
                state.buttonStates[BtnPlay] = i % 2; // a hover flip, as a mouse move causes
                QPainter p(&target);
                painter.paint(p, state);
            },
            rounds);
        std::printf("%4dx%-7d %14.0f %14.0f %8.2f\n", size.width(), size.height(), baseline, skin, skin / baseline);
    }
    return 0;
}
