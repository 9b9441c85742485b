#include "skinart.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <functional>

namespace quorvel::skingen {
namespace {

// Sizes of the control area and of the frame, as the window lays them out.
constexpr int kControlHeight = 147;
constexpr int kTitleHeight = 31;
constexpr int kMenuHeight = 26;
constexpr int kLeftBorder = 15;
constexpr int kRightBorder = 16;
constexpr int kCornerPiece = 58;

// Rows of the control area (counted from its top) that hold the display
// band with the time text and the seek groove.
constexpr int kBandTop = 11;
constexpr int kBandHeight = 21;
constexpr int kBandLeft = 44; // in the left piece; mirrored in the right piece
constexpr int kSeekTop = 38;
constexpr int kSeekHeight = 14;
constexpr int kSeekLeft = 56;

enum State { Normal, Over, Press, Disabled };
const char *const kStateFolders[] = {"Normal", "Over", "Press", "Disabel"};

const QColor kAccent(64, 170, 255);
const QColor kAccentDark(28, 110, 196);
const QColor kEdge(56, 63, 74);
const QColor kFrame(27, 31, 38);
const QColor kShadow(12, 14, 17);

QColor Mix(const QColor &a, const QColor &b, double t)
{
    t = std::clamp(t, 0.0, 1.0);
    return QColor::fromRgbF(
        float(a.redF() + (b.redF() - a.redF()) * t), float(a.greenF() + (b.greenF() - a.greenF()) * t),
        float(a.blueF() + (b.blueF() - a.blueF()) * t), float(a.alphaF() + (b.alphaF() - a.alphaF()) * t));
}

QColor WithAlpha(QColor c, int alpha)
{
    c.setAlpha(alpha);
    return c;
}

// ---- row colours shared by stretchable pieces and the buttons on them ----

QColor TitleRow(int y)
{
    if (y <= 0)
        return QColor(64, 72, 85);
    if (y >= kTitleHeight - 1)
        return QColor(14, 16, 20);
    return Mix(QColor(46, 52, 62), QColor(29, 33, 40), (y - 1) / double(kTitleHeight - 3));
}

QColor MenuRow(int y)
{
    if (y <= 0)
        return QColor(40, 45, 54);
    if (y >= kMenuHeight - 2)
        return QColor(15, 17, 21);
    return Mix(QColor(33, 38, 46), QColor(25, 29, 35), (y - 1) / double(kMenuHeight - 3));
}

QColor ControlRow(int y)
{
    if (y <= 0)
        return kShadow;
    if (y == 1)
        return QColor(58, 65, 77);
    if (y >= kControlHeight - 1)
        return QColor(10, 11, 14);
    return Mix(QColor(38, 43, 52), QColor(20, 23, 28), (y - 2) / double(kControlHeight - 4));
}

QImage Blank(int w, int h, bool alpha = false)
{
    QImage img(w, h, alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    img.fill(alpha ? Qt::transparent : Qt::black);
    return img;
}

void FillRows(QImage &img, const std::function<QColor(int)> &rowColour, int firstRow)
{
    QPainter p(&img);
    for (int y = 0; y < img.height(); ++y)
        p.fillRect(0, y, img.width(), 1, rowColour(firstRow + y));
}

void Antialias(QPainter &p)
{
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
}

// ---- the display band and the seek groove, drawn across the joints ----

void PaintBand(QPainter &p, qreal left, qreal right)
{
    Antialias(p);
    const QRectF outer(left, kBandTop, right - left, kBandHeight);
    QPainterPath rim;
    rim.addRoundedRect(outer, 6, 6);
    p.fillPath(rim, QColor(9, 10, 13));
    const QRectF inner = outer.adjusted(1, 1, -1, -1);
    QLinearGradient g(0, inner.top(), 0, inner.bottom());
    g.setColorAt(0, QColor(132, 152, 163));
    g.setColorAt(0.12, QColor(150, 170, 180));
    g.setColorAt(1, QColor(182, 199, 207));
    QPainterPath face;
    face.addRoundedRect(inner, 5, 5);
    p.fillPath(face, g);
    // a faint highlight just below the band makes it read as recessed
    QPainterPath lip;
    lip.addRoundedRect(outer.adjusted(0, 1, 0, 1), 6, 6);
    p.save();
    p.setClipPath(lip.subtracted(rim));
    p.fillRect(outer.adjusted(-2, 0, 2, 3), QColor(70, 78, 92));
    p.restore();
}

void PaintSeekGroove(QPainter &p, qreal left, qreal right, qreal top)
{
    Antialias(p);
    const QRectF outer(left, top + 1, right - left, 11);
    QPainterPath below;
    below.addRoundedRect(outer.adjusted(0, 1, 0, 1), 5.5, 5.5);
    p.fillPath(below, QColor(62, 70, 82));
    QPainterPath rim;
    rim.addRoundedRect(outer, 5.5, 5.5);
    p.fillPath(rim, QColor(6, 7, 9));
    const QRectF inner = outer.adjusted(1, 1, -1, -1);
    QLinearGradient g(0, inner.top(), 0, inner.bottom());
    g.setColorAt(0, QColor(12, 14, 17));
    g.setColorAt(1, QColor(24, 27, 33));
    QPainterPath trough;
    trough.addRoundedRect(inner, 4.5, 4.5);
    p.fillPath(trough, g);
}

// ---- icons ----

enum class Icon {
    Play,
    Pause,
    Stop,
    Previous,
    Next,
    Rewind,
    Forward,
    Info,
    FullScreen,
    PlayList,
    Disc,
    Folder,
    SoundOn,
    SoundOff,
    Minimize,
    Maximize,
    Close
};

QPainterPath Triangle(QPointF a, QPointF b, QPointF c)
{
    QPainterPath path;
    path.moveTo(a);
    path.lineTo(b);
    path.lineTo(c);
    path.closeSubpath();
    return path;
}

// Fills a shape with slightly rounded corners, the way modern icon sets do.
void FillSoft(QPainter &p, const QPainterPath &path, const QColor &c, qreal round)
{
    p.setPen(QPen(c, round, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(c);
    p.drawPath(path);
}

void DrawIcon(QPainter &p, Icon icon, QPointF c, qreal s, const QColor &col)
{
    p.save();
    Antialias(p);
    const qreal h = s / 2;
    const qreal round = std::max(1.0, s * 0.09);
    auto stroke = [&](qreal width) {
        p.setPen(QPen(col, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
    };
    switch (icon) {
    case Icon::Play: {
        const qreal x0 = c.x() - h * 0.62, x1 = c.x() + h * 0.88;
        FillSoft(p, Triangle({x0, c.y() - h * 0.86}, {x1, c.y()}, {x0, c.y() + h * 0.86}), col, round);
        break;
    }
    case Icon::Pause: {
        const qreal bw = s * 0.27, bh = s * 0.86, gap = s * 0.2;
        p.setPen(Qt::NoPen);
        p.setBrush(col);
        p.drawRoundedRect(QRectF(c.x() - gap / 2 - bw, c.y() - bh / 2, bw, bh), bw * 0.3, bw * 0.3);
        p.drawRoundedRect(QRectF(c.x() + gap / 2, c.y() - bh / 2, bw, bh), bw * 0.3, bw * 0.3);
        break;
    }
    case Icon::Stop: {
        const qreal e = s * 0.76;
        p.setPen(Qt::NoPen);
        p.setBrush(col);
        p.drawRoundedRect(QRectF(c.x() - e / 2, c.y() - e / 2, e, e), e * 0.18, e * 0.18);
        break;
    }
    case Icon::Previous:
    case Icon::Next: {
        const qreal dir = icon == Icon::Next ? 1 : -1;
        const qreal bar = s * 0.16;
        const qreal th = h * 0.8;
        const qreal tipX = c.x() + dir * h * 0.55;
        const qreal baseX = c.x() - dir * h * 0.75;
        FillSoft(p, Triangle({baseX, c.y() - th}, {tipX, c.y()}, {baseX, c.y() + th}), col, round);
        p.setPen(Qt::NoPen);
        p.setBrush(col);
        const qreal barX = dir > 0 ? tipX + s * 0.02 : tipX - s * 0.02 - bar;
        p.drawRoundedRect(QRectF(barX, c.y() - th - round / 2, bar, 2 * th + round), bar * 0.3, bar * 0.3);
        break;
    }
    case Icon::Rewind:
    case Icon::Forward: {
        const qreal dir = icon == Icon::Forward ? 1 : -1;
        const qreal th = h * 0.72;
        for (int k = 0; k < 2; ++k) {
            const qreal tip = c.x() + dir * (h * 0.95 - k * h * 0.9);
            const qreal base = tip - dir * h * 0.92;
            FillSoft(p, Triangle({base, c.y() - th}, {tip, c.y()}, {base, c.y() + th}), col, round);
        }
        break;
    }
    case Icon::Info: {
        stroke(std::max(1.4, s * 0.1));
        p.drawEllipse(c, h * 0.9, h * 0.9);
        p.setPen(Qt::NoPen);
        p.setBrush(col);
        p.drawEllipse(QPointF(c.x(), c.y() - h * 0.42), s * 0.075, s * 0.075);
        p.drawRoundedRect(QRectF(c.x() - s * 0.065, c.y() - h * 0.16, s * 0.13, h * 0.66), s * 0.05, s * 0.05);
        break;
    }
    case Icon::FullScreen: {
        stroke(std::max(1.6, s * 0.11));
        const qreal e = h * 0.82, a = h * 0.42;
        for (int sx : {-1, 1})
            for (int sy : {-1, 1}) {
                const QPointF corner(c.x() + sx * e, c.y() + sy * e);
                QPainterPath l;
                l.moveTo(corner.x() - sx * a, corner.y());
                l.lineTo(corner);
                l.lineTo(corner.x(), corner.y() - sy * a);
                p.drawPath(l);
            }
        break;
    }
    case Icon::PlayList: {
        stroke(std::max(1.6, s * 0.11));
        const qreal l = c.x() - h * 0.85;
        p.drawLine(QPointF(l, c.y() - h * 0.6), QPointF(c.x() + h * 0.85, c.y() - h * 0.6));
        p.drawLine(QPointF(l, c.y()), QPointF(c.x() + h * 0.85, c.y()));
        p.drawLine(QPointF(l, c.y() + h * 0.6), QPointF(c.x() + h * 0.05, c.y() + h * 0.6));
        FillSoft(p,
                 Triangle({c.x() + h * 0.38, c.y() + h * 0.3}, {c.x() + h * 0.92, c.y() + h * 0.62},
                          {c.x() + h * 0.38, c.y() + h * 0.94}),
                 col, round * 0.6);
        break;
    }
    case Icon::Disc: {
        QPainterPath disc;
        disc.addEllipse(c, h * 0.9, h * 0.9);
        QPainterPath hole;
        hole.addEllipse(c, h * 0.2, h * 0.2);
        p.fillPath(disc.subtracted(hole), WithAlpha(col, 70));
        stroke(std::max(1.3, s * 0.085));
        p.drawEllipse(c, h * 0.86, h * 0.86);
        p.drawEllipse(c, h * 0.34, h * 0.34);
        p.setPen(QPen(col, std::max(1.0, s * 0.06), Qt::SolidLine, Qt::RoundCap));
        p.drawArc(QRectF(c.x() - h * 0.6, c.y() - h * 0.6, h * 1.2, h * 1.2), 100 * 16, 60 * 16);
        break;
    }
    case Icon::Folder: {
        QPainterPath back;
        const qreal l = c.x() - h * 0.9, r = c.x() + h * 0.9, t = c.y() - h * 0.7, b = c.y() + h * 0.75;
        back.moveTo(l, b);
        back.lineTo(l, t);
        back.lineTo(l + h * 0.62, t);
        back.lineTo(l + h * 0.82, t + h * 0.22);
        back.lineTo(r - h * 0.1, t + h * 0.22);
        back.lineTo(r - h * 0.1, c.y() - h * 0.15);
        stroke(std::max(1.4, s * 0.095));
        p.drawPath(back);
        QPainterPath front;
        front.moveTo(l, b);
        front.lineTo(l + h * 0.3, c.y() - h * 0.15);
        front.lineTo(r + h * 0.1, c.y() - h * 0.15);
        front.lineTo(r - h * 0.2, b);
        front.closeSubpath();
        FillSoft(p, front, col, round * 0.8);
        break;
    }
    case Icon::SoundOn:
    case Icon::SoundOff: {
        const qreal left = c.x() - h * 0.95;
        QPainterPath body;
        body.moveTo(left, c.y() - h * 0.3);
        body.lineTo(left + h * 0.38, c.y() - h * 0.3);
        body.lineTo(left + h * 0.9, c.y() - h * 0.78);
        body.lineTo(left + h * 0.9, c.y() + h * 0.78);
        body.lineTo(left + h * 0.38, c.y() + h * 0.3);
        body.lineTo(left, c.y() + h * 0.3);
        body.closeSubpath();
        FillSoft(p, body, col, round * 0.8);
        if (icon == Icon::SoundOn) {
            p.setPen(QPen(col, std::max(1.3, s * 0.09), Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            for (qreal rr : {h * 0.5, h * 0.95}) {
                const QPointF o(left + h * 0.55, c.y());
                p.drawArc(QRectF(o.x() - rr, o.y() - rr, 2 * rr, 2 * rr), -45 * 16, 90 * 16);
            }
        } else {
            stroke(std::max(1.4, s * 0.1));
            const QPointF o(c.x() + h * 0.55, c.y());
            const qreal e = h * 0.32;
            p.drawLine(o + QPointF(-e, -e), o + QPointF(e, e));
            p.drawLine(o + QPointF(-e, e), o + QPointF(e, -e));
        }
        break;
    }
    case Icon::Minimize:
        p.setPen(Qt::NoPen);
        p.setBrush(col);
        p.drawRect(QRectF(std::round(c.x() - h), std::round(c.y() + h * 0.3), std::round(s), 1.5));
        break;
    case Icon::Maximize: {
        p.setRenderHint(QPainter::Antialiasing, false);
        p.setPen(QPen(col, 1));
        p.setBrush(Qt::NoBrush);
        const int x = int(std::round(c.x() - h)), y = int(std::round(c.y() - h));
        const int e = int(std::round(s)) - 1;
        p.drawRect(x, y, e, e);
        p.drawLine(x, y + 1, x + e, y + 1);
        break;
    }
    case Icon::Close:
        stroke(1.5);
        p.drawLine(QPointF(c.x() - h, c.y() - h), QPointF(c.x() + h, c.y() + h));
        p.drawLine(QPointF(c.x() - h, c.y() + h), QPointF(c.x() + h, c.y() - h));
        break;
    }
    p.restore();
}

// ---- buttons ----

// A round transport button: a soft dome that lights up with the accent
// colour under the pointer and sinks when pressed.
void PaintRoundButton(QPainter &p, QPointF c, qreal r, State st, bool primary, Icon icon, qreal iconSize)
{
    Antialias(p);
    if (st != Disabled) {
        QRadialGradient shadow(c + QPointF(0, 2.5), r + 4);
        shadow.setColorAt(r / (r + 4) * 0.85, QColor(0, 0, 0, 110));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(shadow);
        p.drawEllipse(c + QPointF(0, 2.5), r + 4, r + 4);
    }
    if (st == Over) {
        // the glow fades out before the picture's edges, so no cut shows
        const qreal w = p.device()->width(), h = p.device()->height();
        const qreal g = std::min({r + 6, c.x(), w - c.x(), c.y(), h - c.y()});
        if (g > r) {
            QRadialGradient glow(c, g);
            glow.setColorAt(r / g, WithAlpha(kAccent, 150));
            glow.setColorAt(1, WithAlpha(kAccent, 0));
            p.setBrush(glow);
            p.drawEllipse(c, g, g);
        }
    }

    QColor top, bottom, rim, iconColour;
    if (primary) {
        switch (st) {
        case Normal:
            top = QColor(92, 190, 255);
            bottom = QColor(30, 122, 214);
            rim = QColor(150, 214, 255);
            iconColour = Qt::white;
            break;
        case Over:
            top = QColor(128, 208, 255);
            bottom = QColor(44, 146, 240);
            rim = QColor(200, 235, 255);
            iconColour = Qt::white;
            break;
        case Press:
            top = QColor(22, 92, 168);
            bottom = QColor(40, 128, 214);
            rim = QColor(14, 60, 110);
            iconColour = QColor(214, 234, 255);
            break;
        case Disabled:
            top = QColor(52, 58, 68);
            bottom = QColor(40, 45, 53);
            rim = QColor(60, 66, 76);
            iconColour = QColor(88, 96, 108);
            break;
        }
    } else {
        switch (st) {
        case Normal:
            top = QColor(64, 72, 85);
            bottom = QColor(36, 41, 49);
            rim = QColor(88, 97, 112);
            iconColour = QColor(222, 228, 236);
            break;
        case Over:
            top = QColor(76, 86, 101);
            bottom = QColor(44, 50, 60);
            rim = kAccent;
            iconColour = Qt::white;
            break;
        case Press:
            top = QColor(22, 25, 30);
            bottom = QColor(40, 45, 54);
            rim = kAccentDark;
            iconColour = kAccent;
            break;
        case Disabled:
            top = QColor(40, 45, 53);
            bottom = QColor(34, 38, 45);
            rim = QColor(46, 51, 60);
            iconColour = QColor(78, 86, 97);
            break;
        }
    }
    QLinearGradient face(c.x(), c.y() - r, c.x(), c.y() + r);
    face.setColorAt(0, top);
    face.setColorAt(1, bottom);
    p.setBrush(face);
    p.setPen(QPen(rim, st == Over && !primary ? 1.6 : 1.0));
    p.drawEllipse(c, r - 0.5, r - 0.5);
    if (st == Press) {
        // inner shadow along the top edge: the button is pushed in
        QRadialGradient inset(c + QPointF(0, r * 0.35), r * 1.25);
        inset.setColorAt(0.7, QColor(0, 0, 0, 0));
        inset.setColorAt(1, QColor(0, 0, 0, 150));
        p.setPen(Qt::NoPen);
        p.setBrush(inset);
        p.drawEllipse(c, r - 1, r - 1);
    } else if (st != Disabled) {
        // gloss on the upper half
        QLinearGradient gloss(c.x(), c.y() - r, c.x(), c.y());
        gloss.setColorAt(0, QColor(255, 255, 255, primary ? 70 : 34));
        gloss.setColorAt(1, QColor(255, 255, 255, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(gloss);
        p.drawEllipse(QRectF(c.x() - r * 0.78, c.y() - r + 1.5, r * 1.56, r * 1.05));
    }
    const QPointF shift = st == Press ? QPointF(0, 1) : QPointF(0, 0);
    if (st != Disabled && st != Press) {
        DrawIcon(p, icon, c + shift + QPointF(0, 1), iconSize, QColor(0, 0, 0, 90));
    }
    DrawIcon(p, icon, c + shift, iconSize, iconColour);
}

// A flat tool button: just the icon; a rounded plate appears under the
// pointer and sinks when pressed.
void PaintToolButton(QPainter &p, QPointF c, QSizeF plate, State st, Icon icon, qreal iconSize)
{
    Antialias(p);
    const QRectF pr(c.x() - plate.width() / 2, c.y() - plate.height() / 2, plate.width(), plate.height());
    QColor iconColour;
    switch (st) {
    case Normal:
        iconColour = QColor(200, 208, 219);
        break;
    case Over: {
        QLinearGradient g(0, pr.top(), 0, pr.bottom());
        g.setColorAt(0, QColor(74, 84, 99));
        g.setColorAt(1, QColor(50, 57, 68));
        p.setBrush(g);
        p.setPen(QPen(WithAlpha(kAccent, 200), 1));
        p.drawRoundedRect(pr.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        iconColour = QColor(150, 212, 255);
        break;
    }
    case Press: {
        QLinearGradient g(0, pr.top(), 0, pr.bottom());
        g.setColorAt(0, QColor(10, 12, 15));
        g.setColorAt(1, QColor(28, 32, 39));
        p.setBrush(g);
        p.setPen(QPen(QColor(6, 7, 9), 1));
        p.drawRoundedRect(pr.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        iconColour = kAccent;
        break;
    }
    case Disabled:
        iconColour = QColor(72, 80, 91);
        break;
    }
    const QPointF shift = st == Press ? QPointF(0, 1) : QPointF(0, 0);
    if (st == Normal || st == Over)
        DrawIcon(p, icon, c + QPointF(0, 1), iconSize, QColor(0, 0, 0, 110));
    DrawIcon(p, icon, c + shift, iconSize, iconColour);
}

void PaintTitleButton(QPainter &p, QSizeF size, State st, Icon icon)
{
    Antialias(p);
    const QRectF plate(1, 2, size.width() - 2, size.height() - 4);
    const bool close = icon == Icon::Close;
    QColor glyph(184, 192, 203);
    if (st == Over) {
        p.setPen(Qt::NoPen);
        p.setBrush(close ? QColor(222, 52, 62) : QColor(255, 255, 255, 36));
        p.drawRoundedRect(plate, 4, 4);
        glyph = Qt::white;
    } else if (st == Press) {
        p.setPen(Qt::NoPen);
        p.setBrush(close ? QColor(150, 26, 36) : QColor(0, 0, 0, 90));
        p.drawRoundedRect(plate, 4, 4);
        glyph = close ? QColor(255, 220, 222) : QColor(150, 160, 172);
    } else if (st == Disabled) {
        glyph = QColor(78, 86, 98);
    }
    const QPointF c(size.width() / 2.0, size.height() / 2.0);
    DrawIcon(p, icon, c, icon == Icon::Close ? 8 : 9, glyph);
}

// ---- assembled pictures ----

QImage ControlPiece(int width, int piece) // piece: 0 left, 1 centre, 2 right
{
    QImage img = Blank(width, kControlHeight);
    FillRows(img, ControlRow, 0);
    QPainter p(&img);
    const int w = width;
    if (piece == 0) {
        PaintBand(p, kBandLeft, w + 40);
        PaintSeekGroove(p, kSeekLeft - 6, w + 40, kSeekTop);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.fillRect(0, 1, 1, kControlHeight - 2, kEdge);
    } else if (piece == 1) {
        PaintBand(p, -40, w + 40);
        PaintSeekGroove(p, -40, w + 40, kSeekTop);
    } else {
        PaintBand(p, -40, w - kBandLeft);
        PaintSeekGroove(p, -40, w - kSeekLeft + 6, kSeekTop);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.fillRect(w - 1, 1, 1, kControlHeight - 2, kEdge);
    }
    return img;
}

QImage SideBorder(bool left, int height)
{
    const int w = left ? kLeftBorder : kRightBorder;
    QImage img = Blank(w, height);
    QPainter p(&img);
    for (int x = 0; x < w; ++x) {
        const int fromInner = left ? w - 1 - x : x;
        const int fromOuter = left ? x : w - 1 - x;
        QColor c = kFrame;
        if (fromOuter == 0)
            c = kEdge;
        else if (fromInner == 0)
            c = QColor(8, 9, 11);
        else if (fromInner == 1)
            c = QColor(19, 22, 27);
        p.fillRect(x, 0, 1, height, c);
    }
    return img;
}

// The control-area background under a button drawn at `row` of that area.
QImage ControlButtonBase(int w, int h, int row)
{
    QImage img = Blank(w, h);
    FillRows(img, ControlRow, row);
    return img;
}

struct RoundSpec {
    QString file;
    QSize size;
    int row; // top of the button in the control area
    QPointF centre;
    qreal radius;
    bool primary;
    Icon icon;
    qreal iconSize;
};

struct ToolSpec {
    QString file;
    QSize size;
    int row;
    QPointF centre;
    Icon icon;
};

// The hit area of a control-area button ends 2/7 of its height above its
// drawn bottom, so every icon sits in the upper part of its picture.
const RoundSpec kRoundButtons[] = {
    {"Play.jpg", {69, 83}, 60, {34.5, 30}, 25, true, Icon::Play, 22},
    {"Pause.jpg", {35, 44}, 90, {17.5, 17}, 13, false, Icon::Pause, 11},
    {"Stop.jpg", {36, 47}, 90, {18, 17}, 13, false, Icon::Stop, 10},
    {"Previous.jpg", {29, 37}, 63, {14.5, 14}, 11, false, Icon::Previous, 10},
    {"Rewind.jpg", {30, 37}, 65, {15, 12}, 11, false, Icon::Rewind, 10},
    {"Next.jpg", {28, 34}, 63, {13.5, 14}, 11, false, Icon::Next, 10},
    {"ff.jpg", {29, 37}, 64, {14.5, 13}, 11, false, Icon::Forward, 10},
};

const ToolSpec kToolButtons[] = {
    {"SnapShoot.jpg", {29, 39}, 32, {14.5, 13.5}, Icon::Info},
    {"FullScreen.jpg", {30, 39}, 32, {15, 13.5}, Icon::FullScreen},
    {"PlayList.jpg", {25, 31}, 114, {12.5, 11}, Icon::PlayList},
    {"dvd.jpg", {25, 32}, 113, {12.5, 11.5}, Icon::Disc},
    {"Open.jpg", {26, 30}, 114, {13, 10.5}, Icon::Folder},
    {"SoundOn.jpg", {23, 31}, 115, {11.5, 11}, Icon::SoundOn},
    {"SoundOFF.jpg", {23, 31}, 115, {11.5, 11}, Icon::SoundOff},
};

QImage AppIcon(int size)
{
    QImage img = Blank(size, size, true);
    QPainter p(&img);
    Antialias(p);
    const QRectF r(1, 1, size - 2, size - 2);
    QLinearGradient g(r.topLeft(), r.bottomRight());
    g.setColorAt(0, QColor(110, 200, 255));
    g.setColorAt(1, QColor(24, 104, 200));
    p.setPen(QPen(QColor(10, 40, 80, 160), 1));
    p.setBrush(g);
    p.drawRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), size * 0.24, size * 0.24);
    QLinearGradient gloss(0, r.top(), 0, r.center().y());
    gloss.setColorAt(0, QColor(255, 255, 255, 90));
    gloss.setColorAt(1, QColor(255, 255, 255, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(gloss);
    p.drawRoundedRect(QRectF(r.left() + 1.5, r.top() + 1.5, r.width() - 3, r.height() * 0.5), size * 0.2, size * 0.2);
    DrawIcon(p, Icon::Play, r.center() + QPointF(size * 0.04, 0), size * 0.5, Qt::white);
    return img;
}

QImage TextButton(State st)
{
    QImage img = Blank(75, 23, true);
    QPainter p(&img);
    Antialias(p);
    const QRectF r(0.5, 0.5, 74, 22);
    QColor top, bottom, border;
    switch (st) {
    case Normal:
        top = QColor(66, 74, 87);
        bottom = QColor(44, 50, 60);
        border = QColor(14, 16, 20);
        break;
    case Over:
        top = QColor(80, 90, 106);
        bottom = QColor(52, 60, 72);
        border = kAccent;
        break;
    case Press:
        top = QColor(24, 28, 34);
        bottom = QColor(40, 46, 55);
        border = kAccentDark;
        break;
    case Disabled:
        top = QColor(38, 43, 51);
        bottom = QColor(34, 38, 45);
        border = QColor(30, 34, 40);
        break;
    }
    QLinearGradient g(0, r.top(), 0, r.bottom());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.setPen(QPen(border, 1));
    p.setBrush(g);
    p.drawRoundedRect(r, 5, 5);
    if (st == Normal || st == Over) {
        p.setPen(QPen(QColor(255, 255, 255, 40), 1));
        p.drawLine(QPointF(5, 1.5), QPointF(70, 1.5));
    }
    return img;
}

QImage TabButton()
{
    QImage img = Blank(90, 24, true);
    QPainter p(&img);
    Antialias(p);
    QPainterPath tab;
    tab.addRoundedRect(QRectF(0.5, 0.5, 89, 30), 6, 6);
    QLinearGradient g(0, 0, 0, 24);
    g.setColorAt(0, QColor(62, 70, 83));
    g.setColorAt(1, QColor(38, 43, 52));
    p.setClipRect(0, 0, 90, 24);
    p.setPen(QPen(QColor(14, 16, 20), 1));
    p.setBrush(g);
    p.drawPath(tab);
    p.setPen(QPen(kAccent, 2));
    p.drawLine(QPointF(6, 1.5), QPointF(84, 1.5));
    return img;
}

QImage Corner(int which)
{
    // rounded outer corners of a frame, transparent outside the curve
    QImage img = Blank(8, 8, true);
    QPainter p(&img);
    Antialias(p);
    const bool right = which == 1 || which == 3;
    const bool bottom = which >= 2;
    QPainterPath path;
    path.addRoundedRect(QRectF(right ? -8 : 0, bottom ? -8 : 0, 16, 16), 6, 6);
    p.fillPath(path, bottom ? ControlRow(kControlHeight - 2) : TitleRow(3));
    p.setPen(QPen(kEdge, 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(right ? -8.5 : 0.5, bottom ? -8.5 : 0.5, 16, 16), 6, 6);
    return img;
}

QImage Line(bool horizontal)
{
    QImage img = horizontal ? Blank(100, 2) : Blank(2, 100);
    QPainter p(&img);
    if (horizontal) {
        p.fillRect(0, 0, 100, 1, QColor(10, 12, 15));
        p.fillRect(0, 1, 100, 1, QColor(62, 70, 82));
    } else {
        p.fillRect(0, 0, 1, 100, QColor(10, 12, 15));
        p.fillRect(1, 0, 1, 100, QColor(62, 70, 82));
    }
    return img;
}

QImage DialogBottom(int kind) // 0 left corner, 1 right corner, 2 middle
{
    const int w = kind == 0 ? kLeftBorder : kind == 1 ? kRightBorder : 64;
    QImage img = Blank(w, 15);
    QPainter p(&img);
    for (int y = 0; y < 15; ++y)
        p.fillRect(0, y, w, 1, y == 14 ? QColor(10, 11, 14) : y == 0 ? QColor(8, 9, 11) : kFrame);
    if (kind == 0)
        p.fillRect(0, 0, 1, 14, kEdge);
    if (kind == 1)
        p.fillRect(w - 1, 0, 1, 14, kEdge);
    return img;
}

QImage VideoBackground(int w, int h)
{
    QImage img = Blank(w, h);
    img.fill(QColor(10, 11, 14));
    return img;
}

QImage AboutBackground()
{
    QImage img = Blank(64, 64);
    FillRows(
        img, [](int y) { return Mix(QColor(34, 39, 47), QColor(20, 23, 28), y / 63.0); }, 0);
    return img;
}

QImage SeekBarBack()
{
    QImage img = Blank(64, kSeekHeight);
    FillRows(img, ControlRow, kSeekTop);
    QPainter p(&img);
    PaintSeekGroove(p, -40, 104, 0);
    return img;
}

QImage PlaylistGlyph()
{
    QImage img = Blank(16, 16, true);
    QPainter p(&img);
    DrawIcon(p, Icon::PlayList, {8, 8}, 13, QColor(200, 208, 219));
    return img;
}

QImage MenuButtonPicture()
{
    QImage img = Blank(45, 20);
    FillRows(
        img, [](int y) { return MenuRow(y + 3); }, 0);
    QPainter p(&img);
    Antialias(p);
    p.setPen(QPen(WithAlpha(kAccent, 180), 1));
    p.setBrush(QColor(255, 255, 255, 24));
    p.drawRoundedRect(QRectF(0.5, 0.5, 44, 19), 4, 4);
    return img;
}

} // namespace

QImage ProgramIcon(int size)
{
    return AppIcon(size);
}

std::vector<SkinFile> DrawSkin()
{
    std::vector<SkinFile> out;
    auto add = [&](const QString &path, QImage img) { out.push_back({path, std::move(img)}); };

    add("TLCorner.png", Corner(0));
    add("TRCorner.png", Corner(1));
    add("BLCorner.png", Corner(2));
    add("BRCorner.png", Corner(3));
    add("HLine.png", Line(true));
    add("VLine.png", Line(false));
    add("TabButton.png", TabButton());
    add("playlist.png", PlaylistGlyph());
    add("BGDC.jpg", ControlPiece(64, 1));
    add("BGDL.jpg", ControlPiece(kCornerPiece, 0));
    add("BGDR.jpg", ControlPiece(kCornerPiece, 2));
    add("BGBLCorner.jpg", DialogBottom(0));
    add("BGBRCorner.jpg", DialogBottom(1));
    add("BGBCorner.jpg", DialogBottom(2));
    add("BGCL.jpg", SideBorder(true, 64));
    add("BGCC.jpg", VideoBackground(64, 64));
    add("BGCR.jpg", SideBorder(false, 64));
    add("BGCd.jpg", AboutBackground());
    {
        QImage title = Blank(64, kTitleHeight);
        FillRows(title, TitleRow, 0);
        add("TitleBar.jpg", title);
    }
    add("About.png", AppIcon(24));
    {
        QImage menu = Blank(64, kMenuHeight);
        FillRows(menu, MenuRow, 0);
        add("menu.jpg", menu);
        add("Menubar.jpg", menu);
    }
    add("MenuButton.jpg", MenuButtonPicture());
    add("ProgressBarBack.jpg", SeekBarBack());

    for (int s = 0; s < 4; ++s) {
        const State st = State(s);
        const QString folder = QString::fromLatin1(kStateFolders[s]) + "/";
        struct TitleSpec {
            const char *file;
            int width;
            Icon icon;
        };
        for (const TitleSpec &t :
             {TitleSpec{"Minimize.jpg", 22, Icon::Minimize}, TitleSpec{"Maxmize.jpg", 23, Icon::Maximize},
              TitleSpec{"Close.jpg", 23, Icon::Close}}) {
            QImage img = Blank(t.width, 24);
            FillRows(img, TitleRow, 1);
            QPainter p(&img);
            PaintTitleButton(p, QSizeF(t.width, 24), st, t.icon);
            p.end();
            add(folder + t.file, img);
        }
        for (const RoundSpec &b : kRoundButtons) {
            QImage img = ControlButtonBase(b.size.width(), b.size.height(), b.row);
            QPainter p(&img);
            PaintRoundButton(p, b.centre, b.radius, st, b.primary, b.icon, b.iconSize);
            p.end();
            add(folder + b.file, img);
        }
        for (const ToolSpec &b : kToolButtons) {
            QImage img = ControlButtonBase(b.size.width(), b.size.height(), b.row);
            QPainter p(&img);
            PaintToolButton(p, b.centre, QSizeF(23, 22), st, b.icon, 15);
            p.end();
            add(folder + b.file, img);
        }
        add(folder + "Button.png", TextButton(st));
    }
    return out;
}

QImage ContactSheet(const std::vector<SkinFile> &files, int zoom)
{
    const int cellW = 200, cellH = 200, cols = 8;
    const int rows = int((files.size() + cols - 1) / cols);
    QImage sheet(cols * cellW, rows * cellH, QImage::Format_RGB32);
    sheet.fill(QColor(90, 90, 96));
    QPainter p(&sheet);
    QFont f = p.font();
    f.setPixelSize(11);
    p.setFont(f);
    for (size_t i = 0; i < files.size(); ++i) {
        const int cx = int(i % cols) * cellW, cy = int(i / cols) * cellH;
        const QImage &img = files[i].image;
        QSize sz = img.size() * zoom;
        if (sz.width() > cellW - 8 || sz.height() > cellH - 24)
            sz.scale(cellW - 8, cellH - 24, Qt::KeepAspectRatio);
        // the label above its picture; magenta hatching shows transparency
        p.fillRect(cx + 4, cy + 20, sz.width(), sz.height(), QBrush(QColor(200, 0, 200), Qt::Dense4Pattern));
        p.drawImage(QRect(QPoint(cx + 4, cy + 20), sz), img);
        p.setPen(Qt::white);
        p.drawText(QRect(cx + 2, cy + 2, cellW - 4, 16), Qt::AlignLeft,
                   QString("%1 %2x%3").arg(files[i].relativePath).arg(img.width()).arg(img.height()));
    }
    return sheet;
}

} // namespace quorvel::skingen
