#include "dvdsourcedialog.h"

#include "playback/dvddrives.h"

namespace quorvel {

DvdSourceDialog::DvdSourceDialog(QWidget *owner, const QString &initialFolder)
    : QFileDialog(owner, QStringLiteral("Open DVD folder or image"), initialFolder)
{
    setObjectName(QStringLiteral("OpenDvdDialog"));
    // The folder test needs the dialog's own accept, which a desktop's
    // native dialog would bypass.
    setOption(QFileDialog::DontUseNativeDialog);
    setAcceptMode(QFileDialog::AcceptOpen);
    setFileMode(QFileDialog::ExistingFile);
    setNameFilters({QStringLiteral("DVD folders and images (*.iso *.ISO *.Iso VIDEO_TS.IFO video_ts.ifo)"),
                    QStringLiteral("All files (*)")});
    connect(this, &QFileDialog::directoryEntered, this, [this](const QString &folder) {
        if (take(folder))
            QDialog::accept();
    });
}

bool DvdSourceDialog::take(const QString &path)
{
    m_chosen = DvdSourceOf(path);
    return !m_chosen.isEmpty();
}

void DvdSourceDialog::accept()
{
    const QStringList files = selectedFiles();
    if (files.size() == 1 && take(files.first())) {
        QDialog::accept();
        return;
    }
    QFileDialog::accept();
}

QString DvdSourceDialog::choose(QWidget *owner, const QString &initialFolder)
{
    DvdSourceDialog dialog(owner, initialFolder);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    // Anything else the dialog let through is answered by the player.
    return dialog.m_chosen.isEmpty() ? dialog.selectedFiles().value(0) : dialog.m_chosen;
}

} // namespace quorvel
