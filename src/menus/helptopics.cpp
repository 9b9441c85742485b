#include "helptopics.h"

#include "common/logging.h"

#include <QDesktopServices>

namespace quorvel {

QUrl HelpTopicsUrl(const QString &programFolder)
{
    return QUrl::fromLocalFile(programFolder + QStringLiteral("help/index.html"));
}

void ShowHelpTopics(const QString &programFolder)
{
    const QUrl url = HelpTopicsUrl(programFolder);
    const bool asked = QDesktopServices::openUrl(url);
    qCDebug(lcApp) << "help topics" << url.toString() << (asked ? "opened" : "could not be opened");
}

} // namespace quorvel
