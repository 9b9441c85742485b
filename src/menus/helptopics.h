#pragma once
// "Help Topics" (F1): the user guide shipped in the program folder, opened in
// the desktop's browser.

#include <QString>
#include <QUrl>

namespace quorvel {

// The guide's address: "help/index.html" in the program folder.
QUrl HelpTopicsUrl(const QString &programFolder);

} // namespace quorvel
