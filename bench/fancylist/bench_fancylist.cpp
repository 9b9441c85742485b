// bench_fancylist: a paint of the thumbnail list must cost the same with
// 10,000 rows as with 10, because only the visible rows are drawn; and a row
// must cost about one thumbnail-sized picture, however large the frame it was
// given. Everything is printed as ratios against baselines of the same run.
#include "benchtiming.h"
#include "playlist/fancylist.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <vector>

using namespace quorvel;
using quorvel::bench::Measure;

namespace {

long ResidentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLong() * sysconf(_SC_PAGESIZE) : 0;
}

QImage Frame(int w, int h, int seed)
{
    QImage img(w, h, QImage::Format_RGB32);
    img.fill(QColor::fromHsv(seed * 37 % 360, 160, 200));
    QPainter p(&img);
    p.fillRect(QRect(0, h / 2, w, h / 2), QColor::fromHsv(seed * 91 % 360, 200, 90));
    return img;
}

void SetUp(FancyList &list, int rows, const QImage &picture)
{
    list.setImageWidth(64);
    list.setImageHeight(64);
    list.setItemHeight(80);
    list.resize(360, 600);
    list.show();
    list.setRefresh(false);
    for (int i = 0; i < rows; ++i)
        list.AddItem(QStringLiteral("clip number %1 with a title.mkv").arg(i), picture);
    list.setRefresh(true);
    list.setSelectedItem(rows / 2);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    // Paint: the same surface with 10 and with 10,000 rows, at the top and in
    // the middle of the long list.
    const QImage thumb = Frame(64, 48, 1);
    FancyList small;
    SetUp(small, 10, thumb);
    FancyList large;
    SetUp(large, 10000, thumb);
    QImage target(360, 600, QImage::Format_ARGB32_Premultiplied);
    // The rows only: the scroll bar's own drawing depends on its slider size,
    // which differs between the two lists and is not ours.
    auto paint = [&](FancyList &list) { list.render(&target, QPoint(), QRegion(), QWidget::DrawWindowBackground); };
    // Warm the glyph and picture caches so the baseline does not pay for them.
    for (int i = 0; i < 50; ++i) {
        paint(small);
        paint(large);
    }
    // The baseline is measured before and after, and the lower kept, so a
    // busy moment of the shared machine does not skew the ratio.
    double base = Measure([&](int) { paint(small); }, 200);
    const double top = Measure([&](int) { paint(large); }, 200);
    large.scrollBar()->setValue(large.scrollMaximum() / 2);
    const double middle = Measure([&](int) { paint(large); }, 200);
    base = std::min(base, Measure([&](int) { paint(small); }, 200));
    std::printf("%-28s %12s %8s %6s\n", "paint", "ns", "ratio", "rows");
    std::printf("%-28s %12.0f %8.2f %6d\n", "10 rows (baseline)", base, 1.0, small.lastPaintedRows());
    std::printf("%-28s %12.0f %8.2f %6d\n", "10,000 rows, top", top, top / base, large.lastPaintedRows());
    std::printf("%-28s %12.0f %8.2f %6d\n", "10,000 rows, middle", middle, middle / base, large.lastPaintedRows());

    // Memory: rows added from full 640 x 480 frames are kept as 64 x 48 pictures.
    const double rawThumb = 64.0 * 64.0 * 4.0;
    const double rawFrame = 640.0 * 480.0 * 4.0;
    std::vector<QImage> frames;
    for (int i = 0; i < 16; ++i)
        frames.push_back(Frame(640, 480, i));
    FancyList memory;
    memory.setImageWidth(64);
    memory.setImageHeight(64);
    memory.setRefresh(false);
    const long before = ResidentBytes();
    for (int i = 0; i < 10000; ++i)
        memory.AddItem(QStringLiteral("clip number %1 with a title.mkv").arg(i), frames[size_t(i) % frames.size()]);
    const long after = ResidentBytes();
    const double perItem = double(after - before) / 10000.0;
    std::printf("\n%-28s %12s %8s\n", "memory per row", "bytes", "ratio");
    std::printf("%-28s %12.0f %8.2f\n", "one raw 64x64 picture", rawThumb, 1.0);
    std::printf("%-28s %12.0f %8.2f\n", "one row (10,000 added)", perItem, perItem / rawThumb);
    std::printf("%-28s %12.0f %8.2f\n", "one raw 640x480 frame", rawFrame, rawFrame / rawThumb);
    return 0;
}
