#pragma once
// The open and add command: a chooser filtered to the media extensions,
// several files at once, opening where the last choice was made. The chosen
// files enter the playlist in the chooser's order; unless appending, the
// first one also plays.
//
// How the window uses it: it owns one FileOpener built with a
// DialogFileChooser and its `LoadThumb`; the open commands call
// `OpenFiles(false)`, the add-to-playlist commands `OpenFiles(true)`.
//
// The chosen files travel as one result text in the dialog's classic form:
// a single full path, or the folder, a NUL, then the names separated by NULs.
// `ParseOpenFileResult` turns that into (key, full path) entries whose key's
// file title is the file's name.

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
// The same as one text: "All Supported Formats|*.wav;*.flv;...;*.asf|WAV|*.wav|...|ASF|*.asf".
QString OpenFileFilterText();
// The same as Qt name filters: "All Supported Formats (*.wav *.flv ...)", "WAV (*.wav)", ...
QStringList OpenFileNameFilters();
// The chooser's title, "Open Video File".
QString OpenFileDialogTitle();

// The text without its trailing NUL characters; a text made only of NULs
// comes back unchanged.
QString TrimTrailingNulls(const QString &text);

struct OpenFileEntry {
    QString key;  // the name (several files) or the path after its first separator (one file)
    QString path; // the full path
    bool operator==(const OpenFileEntry &) const = default;
};

// One path (no NUL): one entry. Otherwise the folder (a separator added when
// it lacks one) joined to each NUL-separated name, in order. Empty names
// (doubled NULs) are skipped; an empty result gives no entries.
QList<OpenFileEntry> ParseOpenFileResult(const QString &result);

// The chooser's full paths as a result text: the path itself for one file,
// folder + NUL + names for several in one folder. Empty when the files do not
// share one folder (the classic form cannot say that).
QString JoinOpenFileResult(const QStringList &paths);

// The folder the next chooser opens in after this choice: for one file its
// folder, for several the part before the first NUL. The root folder stays "/".
QString FolderOfOpenFileResult(const QString &result);

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

    // The entries one choice gives, with the folder the next chooser opens in.
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
