#pragma once
// A small skinned dialog of the "Options" family: a form of controls inside
// the skinned frame and the skin's "OK" and "Cancel" buttons at its foot.
// Return is OK; Escape, Cancel and the close button are Cancel; the caption
// drags it. The form decides the dialog's size.

#include "skin/skinneddialog.h"

namespace quorvel {

class OkCancelDialog : public SkinnedDialog {
    Q_OBJECT
public:
    enum Region : int { RegionClose = kCloseRegion, RegionCaption, RegionOK, RegionCancel, RegionCount };

    OkCancelDialog(const SkinImages &images, const QString &caption, QWidget *parent);

protected:
    // Puts `form` (owned by the dialog from now) inside the frame and fits
    // the dialog around it.
    void setForm(QWidget *form);

    void paintRegions(QPainter &painter) override;
    void regionClicked(int region) override;
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace quorvel
