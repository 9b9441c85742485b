#include "playlist/filechooser.h"

#include <QFileDialog>

namespace quorvel::playlist {

DialogFileChooser::DialogFileChooser(QWidget *owner) : m_owner(owner) {}

QStringList DialogFileChooser::chooseFiles(const QString &title, const QStringList &nameFilters,
                                           const QString &initialFolder)
{
    QFileDialog dialog(m_owner, title, initialFolder);
    dialog.setObjectName(QStringLiteral("OpenFileDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(nameFilters);
    if (!nameFilters.isEmpty())
        dialog.selectNameFilter(nameFilters.first());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles();
}

} // namespace quorvel::playlist
