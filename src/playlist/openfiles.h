#pragma once
// The open and add command: a chooser filtered to the media extensions,
// several files at once, opening where the last choice was made. The chosen
// files enter the playlist in the chooser's order; unless appending, the
// first one also plays.
//
// How the window uses it: it owns one FileOpener built with a
// DialogFileChooser and its `LoadThumb`; the open commands call
// `OpenFiles(false)`, the add-to-playlist commands `OpenFiles(true)`.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace quorvel::playlist {

class FileChooser;

// One filter entry: its caption and its patterns.
struct FileFilterEntry {
    QString caption;      // "All Supported Formats", "WAV", ...
    QStringList patterns; // "*.wav", ...
    bool operator==(const FileFilterEntry &) const = default;
};

// The 25 entries: "All Supported Formats" with every extension, then one
// entry per extension (upper-case caption), in table order.
QList<FileFilterEntry> OpenFileFilterEntries();
// The same as Qt name filters: "All Supported Formats (*.wav *.flv ...)", "WAV (*.wav)", ...
QStringList OpenFileNameFilters();
// The chooser's title, "Open Video File".
QString OpenFileDialogTitle();

struct OpenFileEntry {
    QString key;  // the name (several files) or the path after its first separator (one file)
    QString path; // the full path
    bool operator==(const OpenFileEntry &) const = default;
};

// The open command.
class FileOpener {
public:
    // `LoadThumb(FileTitle, fileName, fullScreen, forcePlay)`: the playlist's add.
    using LoadThumbFn
        = std::function<void(const QString &fileTitle, const QString &fileName, bool fullScreen, bool forcePlay)>;
    FileOpener(FileChooser &chooser, LoadThumbFn loadThumb);

    // `OpenFiles(Append)`: asks for files and adds them; returns how many
    // were chosen (0 when cancelled, which leaves the folder as it was).
    int OpenFiles(bool append);

    // `LastOpenFolder`: empty at start, so the first chooser opens in the
    // system's default folder.
    QString LastOpenFolder() const { return m_lastOpenFolder; }

    // The entries one choice gives, with the folder the next chooser opens in:
    // the chooser's files in its order. Several files from one folder are
    // keyed by their names; a single file, or files from several folders
    // (a chooser may allow typed paths), by the path after its first
    // separator. Either way the key's file title is the file's name. The
    // next chooser opens in the first file's folder ("/" for the root).
    struct Choice {
        QList<OpenFileEntry> entries;
        QString folder;
    };
    static Choice ParseChosenFiles(const QStringList &paths);

private:
    FileChooser &m_chooser;
    LoadThumbFn m_loadThumb;
    QString m_lastOpenFolder;
};

} // namespace quorvel::playlist
