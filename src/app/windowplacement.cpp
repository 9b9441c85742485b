#include "windowplacement.h"

#include "common/logging.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <limits>

namespace quorvel {

namespace {

qint64 area(const QRect &r)
{
    return r.isEmpty() ? 0 : qint64(r.width()) * r.height();
}

qint64 distance(const QRect &screen, QPoint p)
{
    const qint64 dx = p.x() < screen.left() ? screen.left() - p.x() : std::max(0, p.x() - screen.right());
    const qint64 dy = p.y() < screen.top() ? screen.top() - p.y() : std::max(0, p.y() - screen.bottom());
    return dx * dx + dy * dy;
}

// The screen holding most of the rectangle, or the nearest one to its
// top-left corner when it lies on none.
QRect screenFor(const QRect &r, const QList<QRect> &available)
{
    QRect best = available.first();
    qint64 bestArea = -1;
    qint64 bestDistance = std::numeric_limits<qint64>::max();
    for (const QRect &s : available) {
        const qint64 a = area(s.intersected(r));
        const qint64 d = distance(s, r.topLeft());
        if (a > bestArea || (a == bestArea && d < bestDistance)) {
            best = s;
            bestArea = a;
            bestDistance = d;
        }
    }
    return best;
}

} // namespace

QRect ClampToScreens(const QRect &wanted, const QList<QRect> &available, QSize minimum, int titleHeight)
{
    QSize size = wanted.size().expandedTo(minimum);
    if (available.isEmpty())
        return QRect(wanted.topLeft(), size);
    const QRect screen = screenFor(QRect(wanted.topLeft(), size), available);
    size = size.boundedTo(screen.size()).expandedTo(minimum);
    QRect placed(wanted.topLeft(), size);

    QRegion screens;
    for (const QRect &s : available)
        screens += s;
    const QRect titleBar(placed.topLeft(), QSize(size.width(), titleHeight));
    if (!QRegion(titleBar).subtracted(screens).isEmpty()) {
        const int x = std::clamp(placed.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - size.width()));
        const int y = std::clamp(placed.y(), screen.top(), std::max(screen.top(), screen.bottom() + 1 - size.height()));
        placed.moveTo(x, y);
    }
    return placed;
}

void RestoreWindowGeometry(QWidget &window, Settings &settings)
{
    QList<QRect> available;
    for (const QScreen *s : QGuiApplication::screens())
        available << s->availableGeometry();
    const QSize size = IsSet(settings.RememberLastSize) ? QSize(settings.WindowWidth, settings.WindowHeight)
                                                        : window.size();
    const QPoint pos = IsSet(settings.RememberLastPos) ? QPoint(settings.WindowLeft, settings.WindowTop) : window.pos();
    const QRect placed = ClampToScreens(QRect(pos, size), available, window.minimumSize(), 31);
    if (IsSet(settings.RememberLastSize))
        window.resize(placed.size());
    if (IsSet(settings.RememberLastPos))
        window.move(placed.topLeft());
    if (placed != QRect(pos, size))
        qCInfo(lcApp) << "stored window place" << QRect(pos, size) << "brought onto the screens as" << placed;
    // Stored values the window could not take are not written back.
    const QRect stored = ClampToScreens(
        QRect(settings.WindowLeft, settings.WindowTop, settings.WindowWidth, settings.WindowHeight), available,
        window.minimumSize(), 31);
    settings.WindowLeft = stored.x();
    settings.WindowTop = stored.y();
    settings.WindowWidth = stored.width();
    settings.WindowHeight = stored.height();
}

} // namespace quorvel
