#include "skinpainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace quorvel {
namespace {

QFont SkinFont(int pixelSize, bool bold)
{
    QFont f;
    // Tahoma where installed; DejaVu Sans Condensed has nearly its widths
    f.setFamilies({QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans Condensed"), QStringLiteral("DejaVu Sans")});
    f.setPixelSize(pixelSize);
    f.setBold(bold);
    f.setHintingPreference(QFont::PreferFullHinting);
    return f;
}

const QColor kAccent(64, 170, 255);

struct ButtonDraw {
    int index;
    SkinSet set;
};

// Button paint order: window buttons, then the control area.
constexpr ButtonDraw kButtonOrder[] = {
    {BtnClose, SkinSet::Close},         {BtnMaxmize, SkinSet::Maxmize},
    {BtnMinimize, SkinSet::Minimize},   {BtnPlay, SkinSet::Play},
    {BtnPause, SkinSet::Pause},         {BtnStop, SkinSet::Stop},
    {BtnPrevious, SkinSet::Previous},   {BtnRewind, SkinSet::Rewind},
    {BtnNext, SkinSet::Next},           {BtnFF, SkinSet::ff},
    {BtnSnapShoot, SkinSet::SnapShoot}, {BtnFullScreen, SkinSet::FullScreen},
    {BtnPlayList, SkinSet::PlayList},   {BtnDvd, SkinSet::dvd},
    {BtnOpen, SkinSet::Open},           {BtnSound, SkinSet::SoundOn},
};

} // namespace

QFont SkinPainter::captionFont()
{
    return SkinFont(12, true);
}
QFont SkinPainter::statusFont()
{
    return SkinFont(12, true);
}
QFont SkinPainter::windowFont()
{
    return SkinFont(11, false);
}

SkinRects SkinPainter::paint(QPainter &p, const SkinPaintState &s) const
{
    const SkinLayout l = SkinLayout::Compute(s.size);
    const int W = l.width;
    SkinRects rects{};
    p.save();
    auto single = [&](SkinSingle which, const QRect &r) {
        return DrawSkinImage(p, m_images.single(which), r.x(), r.y(), r.width(), r.height());
    };
    single(SkinSingle::Menu, l.menuStrip);
    rects[BtnTitleBar] = single(SkinSingle::TitleBar, QRect(0, 0, W, 31));
    rects[BtnWindowIcon] = single(SkinSingle::WindowIcon, QRect(3, 3, 24, 24));
    single(SkinSingle::BGCC, l.videoArea);
    single(SkinSingle::BGCL, l.leftBorder);
    single(SkinSingle::BGCR, l.rightBorder);
    single(SkinSingle::BGDC, l.controlCentre);
    single(SkinSingle::BGDL, l.controlLeft);
    single(SkinSingle::BGDR, l.controlRight);
    for (const ButtonDraw &b : kButtonOrder) {
        SkinSet set = b.set;
        if (b.index == BtnSound && s.isMuted)
            set = SkinSet::SoundOFF;
        const QRect r = l.buttons[b.index].toQRect();
        rects[b.index] = DrawSkinImage(p, m_images.button(set, s.buttonStates[b.index]), r.x(), r.y(), r.width(),
                                       r.height());
    }
    rects = RaiseHitBottoms(rects);
    paintSeekBar(p, l, s);
    paintVolume(p, l, s);
    paintTexts(p, l, s);
    p.restore();
    return rects;
}

void SkinPainter::paintSeekBar(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const
{
    const QRect bar = l.seekBar;
    DrawSkinImage(p, m_images.progressBack(), bar.x(), bar.y(), bar.width(), bar.height());
    const QRect fill = l.fill(s.fillWidth);
    if (fill.width() <= 0)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setClipRect(bar);
    QLinearGradient g(0, fill.top(), 0, fill.bottom() + 1);
    g.setColorAt(0, QColor(120, 200, 255));
    g.setColorAt(1, QColor(30, 120, 215));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawRoundedRect(QRectF(fill).adjusted(0, 0.5, 0, -0.5), 4, 4);
    // the play head: a small bright disc riding the end of the fill
    const QPointF head(std::max<qreal>(fill.right() + 1 - 5.5, bar.left() + 5.5), bar.top() + 6.5);
    p.setBrush(QColor(0, 0, 0, 90));
    p.drawEllipse(head + QPointF(0, 0.8), 5.5, 5.5);
    QLinearGradient hg(0, head.y() - 5, 0, head.y() + 5);
    hg.setColorAt(0, QColor(250, 252, 255));
    hg.setColorAt(1, QColor(190, 205, 220));
    p.setBrush(hg);
    p.setPen(QPen(kAccent, 1.2));
    p.drawEllipse(head, 5, 5);
    p.restore();
}

void SkinPainter::paintVolume(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const
{
    const QRect t = l.volumeTrack;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF groove(t.left() + 0.5, t.top() + 3.5, t.width() - 1, 5);
    p.setPen(QPen(QColor(6, 7, 9), 1));
    p.setBrush(QColor(16, 18, 22));
    p.drawRoundedRect(groove, 2.5, 2.5);
    const QRect knob = l.knob(s.knobLeft);
    const qreal level = std::clamp<qreal>(knob.center().x() + 0.5, groove.left(), groove.right());
    if (level > groove.left() + 1) {
        QLinearGradient g(0, groove.top(), 0, groove.bottom());
        g.setColorAt(0, QColor(120, 200, 255));
        g.setColorAt(1, QColor(30, 120, 215));
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawRoundedRect(QRectF(groove.left() + 0.5, groove.top() + 0.5, level - groove.left(), groove.height() - 1),
                          2, 2);
    }
    QLinearGradient kg(0, knob.top(), 0, knob.bottom());
    kg.setColorAt(0, QColor(236, 240, 246));
    kg.setColorAt(1, QColor(150, 162, 176));
    p.setPen(QPen(QColor(10, 12, 15), 1));
    p.setBrush(kg);
    p.drawRoundedRect(QRectF(knob).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    p.setPen(QPen(QColor(110, 120, 134), 1));
    p.drawLine(QPointF(knob.left() + 3, knob.center().y() + 0.5), QPointF(knob.right() - 2, knob.center().y() + 0.5));
    p.restore();
}

void SkinPainter::paintTexts(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const
{
    p.save();
    p.setRenderHint(QPainter::TextAntialiasing);
    p.setFont(captionFont());
    p.setPen(Qt::white);
    p.drawText(l.caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, s.captionText);

    p.setFont(statusFont());
    p.setPen(QColor(64, 64, 64));
    const QFontMetrics sm(statusFont());
    const int timeWidth = sm.horizontalAdvance(s.timeText) + 2;
    p.drawText(QRect(l.timeLabelLeft(timeWidth), l.timeLabelTop, timeWidth, 14), Qt::AlignCenter, s.timeText);
    if (!s.rateText.isEmpty())
        p.drawText(QRect(l.rateLabel, QSize(sm.horizontalAdvance(s.rateText) + 2, 14)),
                   Qt::AlignLeft | Qt::AlignVCenter, s.rateText);

    p.setFont(windowFont());
    p.setPen(Qt::white);
    p.drawText(l.volumeLabel, Qt::AlignRight | Qt::AlignVCenter, s.volumeText);
    for (int i = 0; i < int(l.menuCaptions.size()) && i < s.menuCaptions.size(); ++i)
        p.drawText(l.menuCaptions[i], Qt::AlignLeft | Qt::AlignVCenter, s.menuCaptions.at(i));
    p.restore();
}

} // namespace quorvel
