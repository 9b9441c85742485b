#pragma once
// The chooser of "Open DVD folder or image...": a file dialog in which an
// ".iso" image is chosen like a file, and a DVD-Video folder (one holding
// VIDEO_TS, or VIDEO_TS itself) is taken as soon as it is chosen or entered.

#include <QFileDialog>

namespace quorvel {

class DvdSourceDialog : public QFileDialog {
    Q_OBJECT
public:
    DvdSourceDialog(QWidget *owner, const QString &initialFolder);
    // The folder or image chosen; empty when the user cancelled.
    QString chosen() const { return m_chosen; }

    // Shows the dialog modally; returns the choice, empty when cancelled.
    static QString choose(QWidget *owner, const QString &initialFolder);

public slots:
    void accept() override;

private:
    bool take(const QString &path);
    QString m_chosen;
};

} // namespace quorvel
