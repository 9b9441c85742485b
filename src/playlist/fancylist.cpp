#include "playlist/fancylist.h"

#include "common/geometry.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTextOption>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace quorvel {

namespace {

// The face of the drawing surface; only its size is ours to choose.
constexpr int kDesignPointSize = 12;
// Gap between the scroll bar and the right edge.
constexpr int kScrollBarGap = 4;

QStringList DroppedFiles(const QMimeData *data)
{
    QStringList files;
    if (!data || !data->hasUrls())
        return files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile() && !url.toLocalFile().isEmpty())
            files << url.toLocalFile();
    }
    return files;
}

QColor Mix(const QColor &a, const QColor &b, double t)
{
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t),
                            float(a.greenF() + (b.greenF() - a.greenF()) * t),
                            float(a.blueF() + (b.blueF() - a.blueF()) * t));
}

} // namespace

void RenderThumb(QPainter &painter, const QImage &image, int X, int Y, int W, int H, bool noThumbBlack)
{
    const int pw = image.width();
    const int ph = image.height();
    if (!noThumbBlack)
        painter.fillRect(QRect(X, Y, W, H), Qt::black);
    if (image.isNull())
        return;
    const double s = FitScale(pw, ph, W, H);
    const int dw = int(std::lround(pw * s));
    const int dh = int(std::lround(ph * s));
    const int offY = dh < H ? int(std::lround((H - dh) / 2.0)) : 0;
    const int offX = dw < W ? int(std::lround((W - dw) / 2.0)) : 0;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(QRect(X + offX, Y + offY, dw, dh), image);
    painter.restore();
}

FancyListColours FancyListColours::fromPalette(const QPalette &palette)
{
    FancyListColours c;
    c.window = palette.color(QPalette::Base);
    c.text = palette.color(QPalette::Text);
    c.separator = palette.color(QPalette::Button);
    const int contrast = qAbs(c.separator.lightness() - c.window.lightness());
    if (contrast < 16) {
        // A separator as dark as the rows would vanish on a dark theme.
        c.separator = c.window.lightness() < 128 ? c.window.lighter(170) : c.window.darker(125);
    } else if (contrast > 64) {
        // A light button face under dark rows would cut the list into
        // bars; a quarter of the way towards it still reads as a line.
        c.separator = Mix(c.window, c.separator, 0.25);
    }
    c.highlight = palette.color(QPalette::Highlight);
    c.highlightText = palette.color(QPalette::HighlightedText);
    return c;
}

int PaintFancyList(QPainter &painter, const FancyListModel &model, const FancyListColours &colours, const QFont &font,
                   const FancyListPaint &how)
{
    const int width = how.surface.width();
    painter.fillRect(QRect(QPoint(0, 0), how.surface), colours.window);
    if (model.ItemHeight() <= 0)
        return 0;
    painter.setFont(font);
    const FancyListRows rows = model.visibleRows(how.scroll, how.surface.height());
    const int h = model.ItemHeight();
    for (int i = rows.first; i <= rows.last; ++i) {
        const int top = model.rowTop(i, how.scroll);
        const bool selected = i == model.SelectedItem();
        const QColor back = selected ? colours.highlight : colours.window;
        painter.fillRect(QRect(0, top, width, h - 1), back);
        if (!selected) {
            painter.setPen(colours.separator);
            painter.drawLine(0, top + h - 1, width, top + h - 1);
        } else if (how.focusFrame) {
            QColor frame = colours.highlightText;
            frame.setAlpha(140);
            painter.setPen(QPen(frame, 1, Qt::DotLine));
            painter.drawRect(QRect(1, top + 1, width - 3, h - 4));
        }
        const FancyListItem &item = model.item(i);
        const int usable = width - how.textRightInset;
        const bool stacked = model.isStacked(usable);
        if (!item.image.isNull() && model.Thumbnails()) {
            const QRect box = model.thumbRect(i, how.scroll, usable);
            RenderThumb(painter, item.image, box.x(), box.y(), box.width(), box.height(), model.NoThumbBlack());
        }
        const QRect text = model.textRect(i, how.scroll, usable);
        const Qt::Alignment across = stacked ? Qt::AlignHCenter : Qt::AlignLeft;
        painter.save();
        painter.setClipRect(text);
        painter.setPen(selected ? colours.highlightText : colours.text);
        // Plain text: an ampersand is shown as itself. Long titles wrap at
        // word boundaries inside the row; a word wider than the row would be
        // cut letter by letter, so such a title is shortened in the middle,
        // which keeps its start and its extension.
        const QFontMetrics fm(painter.font());
        if (text.width() < 3 * fm.averageCharWidth()) {
            painter.restore();
            continue; // too narrow for words: the title shows as the row's tooltip
        }
        bool wordsFit = true;
        for (const QString &word : item.text.split(u' ', Qt::SkipEmptyParts))
            wordsFit = wordsFit && fm.horizontalAdvance(word) <= text.width();
        if (wordsFit) {
            QTextOption option(across | Qt::AlignTop);
            option.setWrapMode(QTextOption::WordWrap);
            painter.drawText(QRectF(text), item.text, option);
        } else {
            painter.drawText(text, across | Qt::AlignTop | Qt::TextSingleLine,
                             fm.elidedText(item.text, Qt::ElideMiddle, text.width()));
        }
        painter.restore();
    }
    return rows.count();
}

FancyList::FancyList(QWidget *parent) : QWidget(parent)
{
    QFont design = font();
    design.setPointSize(kDesignPointSize);
    setFont(design);
    m_font = design;
    m_font.setPixelSize(qRound(design.pointSizeF()));
    m_font.setWeight(QFont::Normal);
    m_model.setTextLineHeight(QFontMetrics(m_font).lineSpacing());
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_scrollBar = new QScrollBar(Qt::Vertical, this);
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    m_scrollBar->setRange(0, 0);
    m_scrollBar->hide();
    connect(m_scrollBar, &QScrollBar::valueChanged, this, [this] { update(); });
    placeScrollBar();
}

FancyList::~FancyList() = default;

QImage FancyList::itemImage(int index) const
{
    return index >= 0 && index < Count() ? m_model.item(index).image : QImage();
}

void FancyList::setSelectedItem(int index)
{
    if (m_model.setSelectedItem(index))
        repaintIfRefresh();
}

void FancyList::setItemHeight(int h)
{
    m_model.setItemHeight(h);
    if (m_refresh) {
        updateScrollBar();
        update();
    }
}

void FancyList::setImageHeight(int h)
{
    m_model.setImageHeight(h);
    repaintIfRefresh();
}

void FancyList::setImageWidth(int w)
{
    m_model.setImageWidth(w);
    repaintIfRefresh();
}

void FancyList::setPadding(int p)
{
    m_model.setPadding(p);
    repaintIfRefresh();
}

void FancyList::setRefresh(bool on)
{
    m_refresh = on;
    updateScrollBar();
    update();
}

void FancyList::setNoThumbBlack(bool on)
{
    m_model.setNoThumbBlack(on);
    if (m_refresh) {
        updateScrollBar();
        update();
    }
}

int FancyList::AddItem(const QString &text, const QImage &image)
{
    m_model.AddItem(text, image);
    if (m_refresh) {
        updateScrollBar();
        update();
    }
    return 0;
}

void FancyList::RemoveItem(int index)
{
    if (index < 0 || index >= Count())
        return;
    m_model.RemoveItem(index);
    if (m_refresh) {
        updateScrollBar();
        update();
    }
}

void FancyList::Clear()
{
    m_model.Clear();
    if (m_refresh) {
        updateScrollBar();
        update();
    }
}

void FancyList::Scroll(int Delta)
{
    const int value = int(std::lround(m_scrollBar->value() - Delta / 16.0));
    m_scrollBar->setValue(std::clamp(value, 0, m_scrollBar->maximum()));
    update();
}

void FancyList::RenderThumb(QPainter &painter, const QImage &image, int X, int Y, int W, int H) const
{
    quorvel::RenderThumb(painter, image, X, Y, W, H, m_model.NoThumbBlack());
}

int FancyList::scrollValue() const
{
    return m_scrollBar->value();
}

int FancyList::scrollMaximum() const
{
    return m_scrollBar->maximum();
}

bool FancyList::isScrollBarShown() const
{
    return !m_scrollBar->isHidden();
}

bool FancyList::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(event);
        const int row = m_model.hitTest(help->pos().y(), scrollValue());
        if (row >= 0)
            QToolTip::showText(help->globalPos(), m_model.itemText(row), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

void FancyList::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    FancyListPaint how;
    how.scroll = m_scrollBar->value();
    how.surface = size();
    how.textRightInset = textRightInset();
    how.focusFrame = hasFocus();
    const FancyListColours colours = FancyListColours::fromPalette(palette());
    m_lastPaintedRows = PaintFancyList(painter, m_model, colours, m_font, how);
    if (m_model.Count() == 0 && !m_placeholder.isEmpty()) {
        QColor muted = colours.text;
        muted.setAlpha(110);
        painter.setPen(muted);
        painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
    }
}

void FancyList::resizeEvent(QResizeEvent *)
{
    placeScrollBar();
    updateScrollBar();
    update();
}

void FancyList::mousePressEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    if (event->button() == Qt::LeftButton) {
        m_leftPressed = true;
        m_model.clickAt(pos.y(), m_scrollBar->value());
        if (m_refresh)
            update();
    }
    emit MouseDown(event->button(), event->modifiers(), pos.x(), pos.y());
}

void FancyList::mouseReleaseEvent(QMouseEvent *event)
{
    const bool wasPressed = m_leftPressed;
    m_leftPressed = false;
    if (event->button() == Qt::LeftButton && wasPressed && rect().contains(event->position().toPoint()))
        emit Click();
}

void FancyList::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    if (event->button() != Qt::LeftButton) {
        emit MouseDown(event->button(), event->modifiers(), pos.x(), pos.y());
        return;
    }
    // The second press of a double-click selects like the first one did.
    m_model.clickAt(pos.y(), m_scrollBar->value());
    if (m_refresh)
        update();
    emit DblClick();
}

void FancyList::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    emit MouseMove(event->buttons(), event->modifiers(), pos.x(), pos.y());
}

void FancyList::wheelEvent(QWheelEvent *event)
{
    // Pixel deltas come from touchpads and follow the finger; a wheel notch
    // (120) moves one row.
    if (!event->pixelDelta().isNull())
        Scroll(event->pixelDelta().y() * 16);
    else
        Scroll(int(qint64(event->angleDelta().y()) * 16 * std::max(1, ItemHeight()) / 120));
    event->accept();
}

void FancyList::keyPressEvent(QKeyEvent *event)
{
    const int count = Count();
    const int page = std::max(1, height() / std::max(1, ItemHeight()));
    const int sel = SelectedItem();
    const bool none = sel < 0 || sel >= count;
    int target = -2;
    switch (event->key()) {
    case Qt::Key_Up:
        target = none ? (sel >= count ? count - 1 : 0) : sel - 1;
        break;
    case Qt::Key_Down:
        target = none ? (sel >= count ? count - 1 : 0) : sel + 1;
        break;
    case Qt::Key_PageUp:
        target = none ? 0 : sel - page;
        break;
    case Qt::Key_PageDown:
        target = none ? 0 : sel + page;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = count - 1;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit DblClick();
        event->accept();
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (count == 0)
        return;
    selectByKey(std::clamp(target, 0, count - 1));
}

void FancyList::keyReleaseEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat())
        return;
    emit KeyUp(event->key(), event->modifiers().testFlag(Qt::ShiftModifier));
}

void FancyList::dragEnterEvent(QDragEnterEvent *event)
{
    if (!DroppedFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else
        event->ignore();
}

void FancyList::dragMoveEvent(QDragMoveEvent *event)
{
    if (!DroppedFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else
        event->ignore();
}

void FancyList::dropEvent(QDropEvent *event)
{
    const QStringList files = DroppedFiles(event->mimeData());
    if (files.isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const QPoint pos = event->position().toPoint();
    emit OLEDragDrop(files, event->dropAction(), event->buttons(), event->modifiers(), pos.x(), pos.y());
}

void FancyList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        update();
    QWidget::changeEvent(event);
}

void FancyList::updateScrollBar()
{
    const int max = m_model.scrollMax(height());
    m_scrollBar->setRange(0, max);
    m_scrollBar->setPageStep(std::max(1, height()));
    m_scrollBar->setSingleStep(std::max(1, ItemHeight() / 4));
    m_scrollBar->setVisible(m_model.scrollBarVisible(height()));
}

void FancyList::placeScrollBar()
{
    const int w = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_scrollBar);
    m_scrollBar->setGeometry(width() - w - kScrollBarGap, kScrollBarGap / 2, w, std::max(0, height() - kScrollBarGap));
}

void FancyList::repaintIfRefresh()
{
    if (m_refresh)
        update();
}

void FancyList::selectByKey(int index)
{
    const bool changed = index != SelectedItem();
    m_model.setSelectedItem(index);
    m_scrollBar->setValue(m_model.scrollToShow(index, m_scrollBar->value(), height()));
    update();
    // A key that moves the selection acts as a click on the new row.
    if (changed)
        emit Click();
}

int FancyList::textRightInset() const
{
    return m_scrollBar->isHidden() ? 0 : m_scrollBar->width() + kScrollBarGap;
}

} // namespace quorvel
