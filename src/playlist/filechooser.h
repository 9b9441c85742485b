#pragma once
// The system's open-file dialog behind a small interface, so the open
// command can be tested with a chooser that answers at once.

#include <QPointer>
#include <QString>
#include <QStringList>

class QWidget;

namespace quorvel::playlist {

class FileChooser {
public:
    virtual ~FileChooser() = default;
    // Shows the chooser titled `title` with `nameFilters` (Qt form, the first
    // one selected), opening in `initialFolder` (the default folder when it
    // is empty), several existing files selectable. Returns the chosen full
    // paths in order, or an empty list when the user cancelled.
    virtual QStringList chooseFiles(const QString &title, const QStringList &nameFilters, const QString &initialFolder)
        = 0;
};

// What users get: a modal QFileDialog over the owner window.
class DialogFileChooser final : public FileChooser {
public:
    explicit DialogFileChooser(QWidget *owner);
    QStringList chooseFiles(const QString &title, const QStringList &nameFilters,
                            const QString &initialFolder) override;

private:
    QPointer<QWidget> m_owner;
};

} // namespace quorvel::playlist
