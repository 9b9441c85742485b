#pragma once
// FancyList: the owner-drawn thumbnail list that shows the playlist. Rows of
// a thumbnail and a title, one selected row in the highlight colours, and a
// scroll bar at the right edge that shows only while the rows do not fit.
// The rules live in FancyListModel; this widget draws, scrolls and turns
// mouse, keyboard and drop input into its events.

#include "playlist/fancylistmodel.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPalette>
#include <QStringList>
#include <QWidget>

class QPainter;
class QScrollBar;

namespace quorvel {

// Draws image fitted into the box (X, Y, W, H), centred, on a black box
// unless noThumbBlack is set. Small pictures are enlarged.
void RenderThumb(QPainter &painter, const QImage &image, int X, int Y, int W, int H, bool noThumbBlack = false);

// The colours a paint uses, taken from a palette so a dark theme stays dark.
struct FancyListColours {
    QColor window;        // row background
    QColor text;          // row text
    QColor separator;     // line under each unselected row
    QColor highlight;     // selected row background
    QColor highlightText; // selected row text
    static FancyListColours fromPalette(const QPalette &palette);
};

struct FancyListPaint {
    int scroll = 0;
    QSize surface;
    // Pixels at the right kept free for the scroll bar.
    int textRightInset = 0;
    bool focusFrame = false;
};

// Paints the visible rows of model onto painter; returns how many rows it drew.
int PaintFancyList(QPainter &painter, const FancyListModel &model, const FancyListColours &colours, const QFont &font,
                   const FancyListPaint &how);

class FancyList : public QWidget {
    Q_OBJECT
public:
    explicit FancyList(QWidget *parent = nullptr);
    ~FancyList() override;

    // The text font: the surface's face with a cell height in pixels equal
    // to its point size.
    QFont Font() const { return m_font; }

    int Count() const { return m_model.Count(); }
    int SelectedItem() const { return m_model.SelectedItem(); }
    // Ignored unless 0 <= index < Count.
    void setSelectedItem(int index);
    QString SelectedText() const { return m_model.SelectedText(); }
    QString itemText(int index) const { return m_model.itemText(index); }
    // The stored picture of a row (already fitted to the thumbnail box).
    QImage itemImage(int index) const;

    int ItemHeight() const { return m_model.ItemHeight(); }
    void setItemHeight(int h);
    int ImageHeight() const { return m_model.ImageHeight(); }
    void setImageHeight(int h);
    int ImageWidth() const { return m_model.ImageWidth(); }
    void setImageWidth(int w);
    int Padding() const { return m_model.Padding(); }
    void setPadding(int p);
    bool Refresh() const { return m_refresh; }
    // While false, changes are kept without drawing; setting it redraws.
    void setRefresh(bool on);
    bool Thumbnails() const { return m_model.Thumbnails(); }
    void setThumbnails(bool on) { m_model.setThumbnails(on); }
    bool NoThumbBlack() const { return m_model.NoThumbBlack(); }
    void setNoThumbBlack(bool on);

    // A hint drawn while the list is empty.
    void setPlaceholderText(const QString &text)
    {
        m_placeholder = text;
        update();
    }

    // Appends a row; the selection does not change. Returns 0.
    int AddItem(const QString &text, const QImage &image = QImage());
    // Removes a row; the selection stays at index (see FancyListModel).
    void RemoveItem(int index);
    void Clear();
    // Scrolls by Delta / 16 pixels, upwards for a positive Delta.
    void Scroll(int Delta);
    void RenderThumb(QPainter &painter, const QImage &image, int X, int Y, int W, int H) const;

    // Scroll position in pixels, its range and the bar itself.
    int scrollValue() const;
    int scrollMaximum() const;
    bool isScrollBarShown() const;
    QScrollBar *scrollBar() const { return m_scrollBar; }
    // The rows and rules, read-only, for painting elsewhere (a drag picture,
    // the benchmark).
    const FancyListModel &model() const { return m_model; }

    // Rows drawn by the last paint, so tests and the benchmark can see that
    // only the visible rows are drawn.
    int lastPaintedRows() const { return m_lastPaintedRows; }

signals:
    void Click();
    void DblClick();
    // Local files dropped on the list, in the order of the drop.
    void OLEDragDrop(const QStringList &files, Qt::DropAction effect, Qt::MouseButtons button,
                     Qt::KeyboardModifiers shift, int x, int y);
    void KeyUp(int keyCode, bool shift);
    void MouseMove(Qt::MouseButtons button, Qt::KeyboardModifiers shift, int x, int y);
    // Raised after a left press has updated the selection, for every button.
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);

protected:
    // Shows the title of the row under the pointer, whole.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void updateScrollBar();
    void placeScrollBar();
    void repaintIfRefresh();
    void selectByKey(int index);
    int textRightInset() const;

    FancyListModel m_model;
    QScrollBar *m_scrollBar = nullptr;
    QFont m_font;
    bool m_refresh = true;
    QString m_placeholder;
    bool m_leftPressed = false;
    int m_lastPaintedRows = 0;
};

} // namespace quorvel
