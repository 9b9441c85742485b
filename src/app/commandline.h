#pragma once
// The command line as the shell split it: every argument is one file, kept
// character for character (quotes, blanks, '#' and a leading dash are part
// of Linux file names). The add-only marker "*Add" may stand anywhere among
// them. Each file is made absolute against the caller's working folder at
// once, so the running instance, whose folder is another, gets the same
// file, and the same file given relatively and absolutely is one entry.
// "file://" URIs, as desktops pass them, are files too.
//
// Options start with "--" (a single dash starts a file name, as "-reverse"
// must stay a file): --help, --version and --report FILE. An unknown one is
// an error rather than a file, so a mistyped option is told and not probed;
// after "--" every argument is a file, however it begins.

#include <QString>
#include <QStringList>

namespace quorvel {

struct CommandLine {
    enum class Action {
        Play,    // become the player or hand `files` over
        Help,    // print helpText() and end with success
        Version, // print the versions and end with success
        Report,  // print the media report of `reportFile`
        Invalid  // `error` says what; print it with usageText() and end with status 2
    };
    QStringList files;     // absolute paths, in the order given
    bool forcePlay = true; // false when the add-only marker was given
    Action action = Action::Play;
    QString reportFile = {}; // as given
    QString error = {};

    // `arguments` without the program name.
    static CommandLine parse(const QStringList &arguments, const QString &workingFolder);

    // The hand-off carries the whole list in one message (in consecutive
    // ones only when it outgrows the message limit).
    QString handOffText() const;
    // The files of a received message; empty when the text is not one.
    static QStringList filesOf(const QString &handOffText);

    static QString helpText();
    // The two lines that follow an error.
    static QString usageText();
};

// The caller's working folder as the user sees it: the shell's PWD when it
// names the current folder (through a symbolic link, say), else the real one.
QString CallerWorkingFolder();

} // namespace quorvel
