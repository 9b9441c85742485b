#include "skinneddialog.h"

#include "skinpainter.h"
#include "theme.h"

#include "common/logging.h"
#include "common/tracelines.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace quorvel {

SkinnedDialog::SkinnedDialog(const SkinImages &images, const QString &caption, int regionCount, int dragRegion,
                             Bottom bottom, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_images(images), m_caption(caption), m_bottom(bottom),
      m_dragRegion(dragRegion), m_rects(size_t(regionCount)), m_states(size_t(regionCount), StateNormal)
{
    setWindowTitle(caption);
    setPalette(theme::dialogPalette(palette()));
    setStyleSheet(theme::dialogStyleSheet());
    setModal(true);
    setMouseTracking(true);
}

QRect SkinnedDialog::contentRect() const
{
    const int bottom = m_bottom == Bottom::Band ? 14 : 15;
    return QRect(kLeftBorder, kTitleHeight, width() - kLeftBorder - kRightBorder, height() - kTitleHeight - bottom);
}

QFont SkinnedDialog::textFont()
{
    QFont f = SkinPainter::windowFont();
    f.setPixelSize(12);
    return f;
}

void SkinnedDialog::drawRegion(QPainter &painter, int region, const QImage &image, const QRect &r)
{
    m_rects.at(region) = DrawSkinImage(painter, image, r.x(), r.y(), r.width(), r.height());
}

void SkinnedDialog::drawTextButton(QPainter &painter, int region, const QRect &r, const QString &text)
{
    const int state = m_states.at(region);
    drawRegion(painter, region, m_images.button(SkinSet::Button, state), r);
    painter.setFont(textFont());
    painter.setPen(state == StateDisabled ? QColor(125, 135, 146) : QColor(242, 255, 255));
    // The pressed picture sinks; its text goes down with it.
    painter.drawText(r.translated(0, state == StatePressed ? 1 : 0), Qt::AlignCenter, text);
}

void SkinnedDialog::setRegionEnabled(int region, bool enabled)
{
    m_states.at(region) = enabled ? StateNormal : StateDisabled;
}

void SkinnedDialog::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    const int W = width(), H = height();
    std::fill(m_rects.begin(), m_rects.end(), HitRect{});
    drawRegion(p, m_dragRegion, m_images.single(SkinSingle::TitleBar), QRect(0, 0, W, kTitleHeight));
    drawRegion(p, kCloseRegion, m_images.button(SkinSet::Close, m_states[kCloseRegion]), QRect(W - 30, 1, 23, 24));
    const int bottom = H - contentRect().bottom() - 1;
    DrawSkinImage(p, m_images.single(SkinSingle::BGCL), 0, kTitleHeight, kLeftBorder, H - kTitleHeight - bottom);
    DrawSkinImage(p, m_images.single(SkinSingle::BGCR), W - kRightBorder, kTitleHeight, kRightBorder,
                  H - kTitleHeight - bottom);
    if (m_bottom == Bottom::Band) {
        DrawSkinImage(p, m_images.single(SkinSingle::BGCd), 0, H - bottom, W, bottom);
    } else {
        DrawSkinImage(p, m_images.single(SkinSingle::BGBLCorner), 0, H - bottom, kLeftBorder, bottom);
        DrawSkinImage(p, m_images.single(SkinSingle::BGBCorner), kLeftBorder, H - bottom,
                      W - kLeftBorder - kRightBorder, bottom);
        DrawSkinImage(p, m_images.single(SkinSingle::BGBRCorner), W - kRightBorder, H - bottom, kRightBorder, bottom);
    }
    DrawSkinImage(p, m_images.single(SkinSingle::BGCC), kLeftBorder - 3, kTitleHeight,
                  W - kLeftBorder - kRightBorder + 4, H - kTitleHeight - bottom);
    p.setFont(SkinPainter::captionFont());
    p.setPen(Qt::white);
    p.drawText(QRect(12, 0, W - 50, kTitleHeight), Qt::AlignVCenter | Qt::AlignLeft, m_caption);
    paintRegions(p);
}

void SkinnedDialog::hover(int hit)
{
    bool changed = false;
    for (size_t i = 0; i < m_states.size(); ++i) {
        if (m_states[i] == StateDisabled)
            continue;
        const int wanted = int(i) == hit ? StateOver : StateNormal;
        changed |= m_states[i] != wanted;
        m_states[i] = wanted;
    }
    if (changed)
        update();
}

void SkinnedDialog::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging) {
        move(event->globalPosition().toPoint() - m_dragFrom);
        return;
    }
    if (event->buttons() == Qt::NoButton)
        hover(HitTestButtons(m_rects, event->position().toPoint()));
}

void SkinnedDialog::mousePressEvent(QMouseEvent *event)
{
    const int hit = HitTestButtons(m_rects, event->position().toPoint());
    for (int &state : m_states) {
        if (state != StateDisabled)
            state = StateNormal;
    }
    m_pressed = hit >= 0 && m_states[hit] != StateDisabled ? hit : -1;
    if (m_pressed >= 0)
        m_states[m_pressed] = StatePressed;
    update();
    if (hit == m_dragRegion && event->button() == Qt::LeftButton) {
        // The window system moves the dialog when it can; without one the
        // dialog follows the pointer itself.
        if (!(windowHandle() && windowHandle()->startSystemMove())) {
            m_dragging = true;
            m_dragFrom = event->globalPosition().toPoint() - frameGeometry().topLeft();
        }
    }
}

void SkinnedDialog::mouseReleaseEvent(QMouseEvent *event)
{
    m_dragging = false;
    const int pressed = std::exchange(m_pressed, -1);
    const int hit = HitTestButtons(m_rects, event->position().toPoint());
    // The pressed look stays until the pointer moves, as on the main window.
    if (pressed >= 0 && hit == pressed && pressed != m_dragRegion && event->button() == Qt::LeftButton) {
        regionClicked(hit);
        update();
    }
}

void SkinnedDialog::leaveEvent(QEvent *event)
{
    hover(-1);
    QDialog::leaveEvent(event);
}

void SkinnedDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    qCDebug(lcSkin) << trace::kDialogShown << m_caption;
}

void SkinnedDialog::done(int result)
{
    QDialog::done(result);
    qCDebug(lcSkin) << trace::kDialogClosed << m_caption << (result == Accepted ? "accepted" : "rejected");
}

} // namespace quorvel
