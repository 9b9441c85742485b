#pragma once
// The "About Quorvel" dialog: skinned and borderless like the main window,
// with the program's description, its logo, the link to the engine makers'
// site, the versions of Quorvel and of the engine, a close and an OK button,
// and dragged by its title bar.

#include "skin/skinneddialog.h"

namespace quorvel {

class AboutDialog : public SkinnedDialog {
    Q_OBJECT
public:
    enum Region : int { RegionClose = kCloseRegion, RegionTitleBar, RegionOK, RegionCount };

    // `engineVersion` as the engine reports it.
    AboutDialog(const SkinImages &images, const QString &engineVersion, QWidget *parent);

    static QString version(); // Quorvel's own

protected:
    void paintRegions(QPainter &painter) override;
    void regionClicked(int region) override;
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace quorvel
