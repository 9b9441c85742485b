#pragma once
// A borderless modal dialog drawn from the skin like the main window: the
// title bar with the caption and the close button, the side borders, a
// bottom edge and the background, and clickable regions with the four
// button states. A dialog built on it draws its regions in paintRegions()
// with drawRegion()/drawTextButton(), which record each region's hit
// rectangle, and runs their actions in regionClicked(). A press on the drag
// region moves the dialog; the child widgets live in contentRect().

#include "skinimages.h"

#include <QDialog>
#include <vector>

namespace quorvel {

class SkinnedDialog : public QDialog {
    Q_OBJECT
public:
    // The bottom edge: one band, or two corners with a band between them.
    enum class Bottom { Band, Corners };

    // Region 0 is the close button; `dragRegion` moves the dialog.
    SkinnedDialog(const SkinImages &images, const QString &caption, int regionCount, int dragRegion, Bottom bottom,
                  QWidget *parent);

    int regionState(int region) const { return m_states.at(region); }
    HitRect regionRect(int region) const { return m_rects.at(region); }

    static constexpr int kCloseRegion = 0;
    static constexpr int kTitleHeight = 31;
    static constexpr int kLeftBorder = 15;
    static constexpr int kRightBorder = 16;

protected:
    // The dialog's regions, drawn over the frame at every paint. Regions not
    // drawn in a paint cannot be hit until drawn again.
    virtual void paintRegions(QPainter &painter) = 0;
    // A click (press and release) on a region that is not disabled.
    virtual void regionClicked(int region) = 0;

    // The area inside the frame, below the title bar and above the bottom edge.
    QRect contentRect() const;
    const SkinImages &images() const { return m_images; }
    // Draws `image` into `r` as region `region`.
    void drawRegion(QPainter &painter, int region, const QImage &image, const QRect &r);
    // The skin's text button in the region's state, with its text centred.
    void drawTextButton(QPainter &painter, int region, const QRect &r, const QString &text);
    void setRegionEnabled(int region, bool enabled);
    static QFont textFont();

    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void done(int result) override;

private:
    void hover(int hit);

    const SkinImages &m_images;
    QString m_caption;
    Bottom m_bottom;
    int m_dragRegion;
    std::vector<HitRect> m_rects;
    std::vector<int> m_states;
    int m_pressed = -1; // the region the button went down on
    bool m_dragging = false;
    QPoint m_dragFrom;
};

} // namespace quorvel
