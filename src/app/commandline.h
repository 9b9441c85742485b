#pragma once
// The command line as one text: the program's arguments joined by single
// blanks with every double-quote character removed, so a path with blanks
// given as one argument (or quoted by a shell) stays whole. A trailing
// " *Add" asks to add the file without playing it.

#include <QString>
#include <QStringList>

namespace quorvel {

struct CommandLine {
    QString handOffText;   // what a second start sends to the running instance
    QString commandPath;   // the file path, marker cut off
    bool forcePlay = true; // false when the add-only marker was given

    static CommandLine parse(const QStringList &arguments); // arguments without the program name
    // Removes a trailing add-only marker from a received command.
    static QString stripAddMarker(const QString &command);
};

} // namespace quorvel
