#pragma once
// The video area: a black frame holding the native surface the engine draws
// into. It takes dropped files, the right button and the double-click that
// leaves full screen; everything else is the window's.

#include <QMimeData>
#include <QStringList>
#include <QWidget>

namespace quorvel {

class VideoFrame : public QWidget {
    Q_OBJECT
public:
    explicit VideoFrame(QWidget *parent = nullptr);
    // The native child window handed to the engine.
    QWidget *surface() const { return m_surface; }
    // Items without a picture show the audio logo instead of a black frame.
    void setLogo(const QImage &logo) { m_logo = logo; }
    void showLogo(bool on);
    bool isShowingLogo() const { return m_showLogo; }

signals:
    void filesDropped(const QStringList &paths);
    void doubleClicked();
    void rightClicked(QPoint pos);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *m_surface;
    QImage m_logo;
    bool m_showLogo = false;
};

// Local file paths of a drag's data, in order.
QStringList DroppedPaths(const QMimeData *data);

} // namespace quorvel
