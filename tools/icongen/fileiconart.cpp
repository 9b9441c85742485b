#include "fileiconart.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace quorvel::icongen {
namespace {

struct Palette {
    QColor light;
    QColor dark;
};

Palette KindColours(Kind kind)
{
    // Video in the skin's accent blue, audio in a warm orange beside it.
    return kind == Kind::Video ? Palette{QColor(76, 157, 255), QColor(28, 95, 196)}
                               : Palette{QColor(255, 168, 72), QColor(206, 104, 26)};
}

// The outline of a page whose top right corner is folded over.
QPainterPath PagePath(const QRectF &r, qreal fold, qreal round)
{
    QPainterPath path;
    path.moveTo(r.left() + round, r.top());
    path.lineTo(r.right() - fold, r.top());
    path.lineTo(r.right(), r.top() + fold);
    path.lineTo(r.right(), r.bottom() - round);
    path.quadTo(r.right(), r.bottom(), r.right() - round, r.bottom());
    path.lineTo(r.left() + round, r.bottom());
    path.quadTo(r.left(), r.bottom(), r.left(), r.bottom() - round);
    path.lineTo(r.left(), r.top() + round);
    path.quadTo(r.left(), r.top(), r.left() + round, r.top());
    path.closeSubpath();
    return path;
}

void PaintPage(QPainter &p, int size, const QColor &top, const QColor &bottom, const QColor &edge)
{
    const qreal s = size;
    const qreal line = std::max<qreal>(1.0, s / 40);
    const QRectF page(s * 0.17 + line / 2, s * 0.05 + line / 2, s * 0.66, s * 0.9 - line);
    const qreal fold = s * 0.2;
    QLinearGradient fill(page.topLeft(), page.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    p.setPen(QPen(edge, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(fill);
    p.drawPath(PagePath(page, fold, s * 0.05));
    QPainterPath corner;
    corner.moveTo(page.right() - fold, page.top());
    corner.lineTo(page.right() - fold, page.top() + fold - s * 0.03);
    corner.quadTo(page.right() - fold, page.top() + fold, page.right() - fold + s * 0.03, page.top() + fold);
    corner.lineTo(page.right(), page.top() + fold);
    corner.closeSubpath();
    p.setBrush(bottom.darker(115));
    p.drawPath(corner);
}

void PaintPlay(QPainter &p, QPointF c, qreal r, const Palette &colours)
{
    QRadialGradient disc(c - QPointF(r * 0.3, r * 0.4), r * 1.6);
    disc.setColorAt(0, colours.light);
    disc.setColorAt(1, colours.dark);
    p.setPen(Qt::NoPen);
    p.setBrush(disc);
    p.drawEllipse(c, r, r);
    const qreal t = r * 0.5;
    QPainterPath play;
    play.moveTo(c.x() - t * 0.7, c.y() - t);
    play.lineTo(c.x() + t, c.y());
    play.lineTo(c.x() - t * 0.7, c.y() + t);
    play.closeSubpath();
    p.setBrush(Qt::white);
    p.drawPath(play);
}

void PaintNote(QPainter &p, QPointF c, qreal r, const Palette &colours)
{
    // Two heads joined by a slanted beam, drawn in a box of 2r x 2r.
    const qreal head = r * 0.38;
    const QPointF left(c.x() - r * 0.45, c.y() + r * 0.62);
    const QPointF right(c.x() + r * 0.62, c.y() + r * 0.42);
    const qreal stem = std::max<qreal>(1.0, r * 0.18);
    QPainterPath note;
    note.addEllipse(left, head * 1.2, head);
    note.addEllipse(right, head * 1.2, head);
    note.addRect(QRectF(left.x() + head * 1.2 - stem, c.y() - r * 0.62, stem, left.y() - c.y() + r * 0.62));
    note.addRect(QRectF(right.x() + head * 1.2 - stem, c.y() - r * 0.82, stem, right.y() - c.y() + r * 0.82));
    QPainterPath beam;
    beam.moveTo(left.x() + head * 1.2 - stem, c.y() - r * 0.62);
    beam.lineTo(right.x() + head * 1.2, c.y() - r * 0.82);
    beam.lineTo(right.x() + head * 1.2, c.y() - r * 0.82 + r * 0.36);
    beam.lineTo(left.x() + head * 1.2 - stem, c.y() - r * 0.62 + r * 0.36);
    beam.closeSubpath();
    note = note.united(beam);
    QLinearGradient fill(c - QPointF(0, r), c + QPointF(0, r));
    fill.setColorAt(0, colours.light);
    fill.setColorAt(1, colours.dark);
    p.setPen(Qt::NoPen);
    p.setBrush(fill);
    p.drawPath(note);
}

void PaintLabel(QPainter &p, const QRectF &band, const QString &text, const Palette &colours)
{
    QLinearGradient fill(band.topLeft(), band.bottomLeft());
    fill.setColorAt(0, colours.light);
    fill.setColorAt(1, colours.dark);
    p.setPen(QPen(colours.dark.darker(130), std::max<qreal>(1.0, band.height() / 14)));
    p.setBrush(fill);
    p.drawRoundedRect(band, band.height() * 0.22, band.height() * 0.22);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setStyleStrategy(QFont::PreferAntialias);
    for (qreal px = band.height() * 0.74; px >= 4; px -= 0.5) {
        font.setPixelSize(int(px));
        if (QFontMetricsF(font).horizontalAdvance(text) <= band.width() * 0.88)
            break;
    }
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(band, Qt::AlignCenter, text);
}

QImage Canvas(int size, const QColor &background)
{
    QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
    img.fill(background);
    return img;
}

} // namespace

QImage FileTypeIcon(const QString &extension, Kind kind, int size)
{
    const Palette colours = KindColours(kind);
    const qreal s = size;
    QImage img = Canvas(size, Qt::transparent);
    QPainter p(&img);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    PaintPage(p, size, QColor(255, 255, 255), QColor(214, 222, 232), QColor(60, 72, 88));
    const auto glyph = kind == Kind::Video ? PaintPlay : PaintNote;
    if (size < 32) {
        glyph(p, QPointF(s * 0.5, s * 0.58), s * 0.25, colours);
        return img;
    }
    glyph(p, QPointF(s * 0.5, s * 0.37), s * 0.16, colours);
    PaintLabel(p, QRectF(s * 0.08, s * 0.6, s * 0.84, s * 0.24), extension.toUpper(), colours);
    return img;
}

QImage UnknownPicture(int size)
{
    const qreal s = size;
    QImage img = Canvas(size, QColor(0x1b, 0x20, 0x27));
    QPainter p(&img);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    PaintPage(p, size, QColor(201, 209, 217), QColor(154, 167, 180), QColor(12, 14, 17));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(int(s * 0.5));
    p.setFont(font);
    p.setPen(QColor(0x1b, 0x20, 0x27));
    p.drawText(QRectF(0, s * 0.12, s, s * 0.88), Qt::AlignCenter, QStringLiteral("?"));
    p.end();
    return img.convertToFormat(QImage::Format_RGB32);
}

} // namespace quorvel::icongen
