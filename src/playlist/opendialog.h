#pragma once
// The open command: a file chooser filtered to the media extensions, several
// files at once, opening where the last choice was made; the chosen files are
// added in order and, unless appending, the first one plays.

#include <QString>
#include <QStringList>

class QWidget;

namespace quorvel {

class Playlist;

// Asks the user for files. Returns the chosen full paths in order, or
// nothing when cancelled.
class FileChooser {
public:
    virtual ~FileChooser() = default;
    virtual QStringList chooseFiles(const QString &title, const QStringList &filters, const QString &folder) = 0;
};

class DialogFileChooser final : public FileChooser {
public:
    explicit DialogFileChooser(QWidget *owner) : m_owner(owner) {}
    QStringList chooseFiles(const QString &title, const QStringList &filters, const QString &folder) override;

private:
    QWidget *m_owner;
};

// The 25 filter entries: "All Supported Formats (*.wav *.flv ...)" first,
// then one per extension ("WAV (*.wav)", ...), in table order.
QStringList OpenFileFilters();

class OpenFilesCommand {
public:
    OpenFilesCommand(FileChooser &chooser, Playlist &playlist) : m_chooser(chooser), m_playlist(playlist) {}

    // `OpenFiles(Append)`: returns the number of files chosen.
    int OpenFiles(bool append);
    QString lastOpenFolder() const { return m_lastFolder; }

private:
    FileChooser &m_chooser;
    Playlist &m_playlist;
    QString m_lastFolder; // empty at start: the chooser opens in its default folder
};

} // namespace quorvel
