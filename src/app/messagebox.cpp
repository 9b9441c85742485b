#include "app/messagebox.h"

#include "common/logging.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace quorvel {

namespace {

// A plain box grows with its text: many lines or a long path would make it
// taller or wider than the screen.
bool isLong(const QString &text)
{
    const QStringList lines = text.split(u'\n');
    return lines.size() > 12
           || std::any_of(lines.begin(), lines.end(), [](const QString &l) { return l.size() > 100; });
}

// The same message in a box of bounded size whose text scrolls and wraps
// anywhere, so it always fits on the screen.
QDialog *scrollingBox(QMessageBox::Icon icon, const QString &text, QWidget *parent)
{
    auto *box = new QDialog(parent);
    box->setWindowTitle(QStringLiteral("Quorvel"));
    auto *iconLabel = new QLabel(box);
    const int side = box->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, box);
    iconLabel->setPixmap(box->style()
                             ->standardIcon(icon == QMessageBox::Information ? QStyle::SP_MessageBoxInformation
                                            : icon == QMessageBox::Critical  ? QStyle::SP_MessageBoxCritical
                                                                             : QStyle::SP_MessageBoxWarning)
                             .pixmap(side, side));
    iconLabel->setAlignment(Qt::AlignTop);
    auto *body = new QPlainTextEdit(box);
    body->setObjectName(QStringLiteral("QuorvelMessageText"));
    body->setReadOnly(true);
    body->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    body->setPlainText(QString(text).remove(u'\r'));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, box);
    QObject::connect(buttons, &QDialogButtonBox::accepted, box, &QDialog::accept);
    auto *row = new QHBoxLayout;
    row->addWidget(iconLabel);
    row->addWidget(body, 1);
    auto *column = new QVBoxLayout(box);
    column->addLayout(row, 1);
    column->addWidget(buttons);

    const QScreen *screen = parent && parent->screen() ? parent->screen() : QGuiApplication::primaryScreen();
    const QRect room = screen ? screen->availableGeometry() : QRect(0, 0, 800, 600);
    const int lines = int(text.count(u'\n')) + 3;
    const int width = std::min(640, room.width() * 9 / 10);
    const int height = std::clamp(body->fontMetrics().lineSpacing() * lines + 80, 160, room.height() * 7 / 10);
    box->setMaximumSize(room.size());
    box->resize(width, height);
    return box;
}

} // namespace

void MessageBoxNotifier::notify(Icon icon, const QString &text)
{
    const QMessageBox::Icon kind = icon == Icon::Information ? QMessageBox::Information
                                   : icon == Icon::Critical  ? QMessageBox::Critical
                                                             : QMessageBox::Warning;
    QDialog *box = isLong(text) ? scrollingBox(kind, text, m_parent)
                                : new QMessageBox(kind, QStringLiteral("Quorvel"), text, QMessageBox::Ok, m_parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("QuorvelMessage"));
    qCDebug(lcApp).noquote() << "message shown:"
                             << QString(text).replace(QStringLiteral("\r\n"), QStringLiteral(" | "));
    box->open();
}

} // namespace quorvel
