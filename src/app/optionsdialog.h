#pragma once
// The "Options" dialog: the skinned frame with three tabs ("Player",
// "Assocciations", "SnapShot"), the controls of the player settings, the
// association list and the command buttons. Its state and rules are the
// OptionsModel's; the widgets mirror the model after every change.

#include "settings/optionsmodel.h"
#include "skin/skinneddialog.h"

#include <QIcon>
#include <functional>
#include <vector>

class QAbstractButton;
class QStackedWidget;
class QTreeWidget;

namespace quorvel {

class OptionsDialog : public SkinnedDialog {
    Q_OBJECT
public:
    // The icon of the program that opens files of an extension now.
    using FileTypeIcon = std::function<QIcon(const QString &extension)>;

    OptionsDialog(const SkinImages &images, Settings &settings, OptionsHost &host, FileTypeIcon icon, QWidget *parent);

    const OptionsModel &model() const { return m_model; }

protected:
    void paintRegions(QPainter &painter) override;
    void regionClicked(int region) override;
    void keyPressEvent(QKeyEvent *event) override;
    void done(int result) override;

private:
    QWidget *buildPlayerPage();
    QWidget *buildAssociationPage(const FileTypeIcon &icon);
    void refresh();
    QRect tabRect(int page) const;

    OptionsModel m_model;
    QStackedWidget *m_pages = nullptr;
    QTreeWidget *m_rows = nullptr;
    std::vector<QAbstractButton *> m_controls; // in the order of OptionsModel::PlayerControls()
    bool m_closed = false;
};

} // namespace quorvel
