#include "commandline.h"

namespace quorvel {

namespace {
const QString kAddMarker = QStringLiteral("*Add");
}

CommandLine CommandLine::parse(const QStringList &arguments)
{
    CommandLine c;
    c.handOffText = arguments.join(u' ');
    c.handOffText.remove(u'"');
    c.commandPath = c.handOffText;
    if (c.commandPath.endsWith(kAddMarker)) {
        c.forcePlay = false;
        c.commandPath = stripAddMarker(c.commandPath);
    }
    return c;
}

QString CommandLine::stripAddMarker(const QString &command)
{
    // The marker comes with the blank before it: five characters in all.
    if (!command.endsWith(kAddMarker))
        return command;
    return command.left(qMax<qsizetype>(0, command.size() - kAddMarker.size() - 1));
}

} // namespace quorvel
