#include "notifier.h"

#include "common/logging.h"

#include <QMessageBox>
#include <cstdio>

namespace quorvel {

void MessageBoxNotifier::notify(Icon icon, const QString &text)
{
    qCDebug(lcApp).noquote() << "message:" << text;
    auto *box = new QMessageBox(icon == Icon::Information ? QMessageBox::Information
                                                          : QMessageBox::Warning,
                                QStringLiteral("Quorvel"), text, QMessageBox::Ok, m_parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("QuorvelMessage"));
    box->open();
}

void StderrNotifier::notify(Icon, const QString &text)
{
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stderr);
}

} // namespace quorvel
