#include "opendialog.h"

#include "common/paths.h"
#include "playlist/playlist.h"

#include <QFileDialog>

namespace quorvel {

QStringList DialogFileChooser::chooseFiles(const QString &title, const QStringList &filters, const QString &folder)
{
    QFileDialog dialog(m_owner, title, folder);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(0));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles();
}

QStringList OpenFileFilters()
{
    QStringList all;
    QStringList each;
    for (const QString &ext : MediaExtensions()) {
        all << QStringLiteral("*.") + ext;
        each << ext.toUpper() + QStringLiteral(" (*.") + ext + u')';
    }
    return QStringList{QStringLiteral("All Supported Formats (") + all.join(u' ') + u')'} + each;
}

int OpenFilesCommand::OpenFiles(bool append)
{
    const QStringList chosen = m_chooser.chooseFiles(QStringLiteral("Open Video File"), OpenFileFilters(), m_lastFolder);
    if (chosen.isEmpty())
        return 0;
    m_lastFolder = GetFolderOf(chosen.first());
    m_playlist.addFiles(chosen, !append);
    return static_cast<int>(chosen.size());
}

} // namespace quorvel
