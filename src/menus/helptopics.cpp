#include "helptopics.h"

namespace quorvel {

QUrl HelpTopicsUrl(const QString &programFolder)
{
    return QUrl::fromLocalFile(programFolder + QStringLiteral("help/index.html"));
}

} // namespace quorvel
