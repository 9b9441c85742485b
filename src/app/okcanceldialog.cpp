#include "okcanceldialog.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace quorvel {

namespace {
constexpr int kMargin = 10;      // between the frame, the form and the buttons, as in "Options"
constexpr QSize kButton(75, 23); // the skin's text button
constexpr int kBottomEdge = 15;  // the frame's bottom corners
// From the right: Cancel on the outside, as the user knows it.
const std::pair<int, QString> kCommands[] = {{OkCancelDialog::RegionCancel, u"Cancel"_qs},
                                             {OkCancelDialog::RegionOK, u"OK"_qs}};
} // namespace

OkCancelDialog::OkCancelDialog(const SkinImages &images, const QString &caption, QWidget *parent)
    : SkinnedDialog(images, caption, RegionCount, RegionCaption, Bottom::Corners, parent)
{
    setWindowFlag(Qt::WindowStaysOnTopHint); // the main window may be always on top
    setFont(textFont());
}

void OkCancelDialog::setForm(QWidget *form)
{
    form->setParent(this);
    const QSize size = form->sizeHint().expandedTo(QSize(2 * kButton.width() + 8, 0));
    form->setGeometry(kLeftBorder + kMargin, kTitleHeight + kMargin, size.width(), size.height());
    setFixedSize(size.width() + 2 * (kLeftBorder + kMargin),
                 kTitleHeight + kMargin + size.height() + kMargin + kButton.height() + kMargin + kBottomEdge);
}

void OkCancelDialog::paintRegions(QPainter &p)
{
    int x = width() - kRightBorder - kMargin;
    for (const auto &[region, text] : kCommands) {
        x -= kButton.width();
        drawTextButton(p, region, QRect(QPoint(x, height() - kBottomEdge - kMargin - kButton.height()), kButton), text);
        x -= 8;
    }
}

void OkCancelDialog::regionClicked(int region)
{
    if (region == RegionOK)
        accept();
    else if (region == RegionCancel || region == RegionClose)
        reject();
}

void OkCancelDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        regionClicked(RegionOK);
    else
        SkinnedDialog::keyPressEvent(event); // Escape rejects: Cancel
}

} // namespace quorvel
