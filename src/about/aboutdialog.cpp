#include "aboutdialog.h"

#include "common/logging.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>

namespace quorvel {

namespace {

constexpr QSize kSize(440, 250);
constexpr QRect kLogo(20, 51, 80, 80);
const QUrl kEngineSite(u"https://www.videolan.org/"_qs);

QLabel *textLabel(const QString &text, const char *role = nullptr)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    if (role)
        label->setProperty("role", QString::fromLatin1(role));
    return label;
}

} // namespace

QString AboutDialog::version()
{
    return QStringLiteral(QUORVEL_VERSION);
}

AboutDialog::AboutDialog(const SkinImages &images, const QString &engineVersion, QWidget *parent)
    : SkinnedDialog(images, u"About Quorvel"_qs, RegionCount, RegionTitleBar, Bottom::Band, parent)
{
    setFont(textFont());
    setFixedSize(kSize);

    auto *text = new QWidget(this);
    const int left = kLogo.right() + 16;
    text->setGeometry(left, kLogo.top() - 4, kSize.width() - left - kRightBorder - 10,
                      kSize.height() - kLogo.top() - 50);
    auto *column = new QVBoxLayout(text);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(10);
    column->addWidget(textLabel(u"Quorvel is an easy-to-use program with amazing interface to play almost all media "
                                "files with an easy-to-use playlist; The player can also play DVD-Video discs and "
                                "Video-CD discs."_qs));
    QLabel *credit = textLabel(
        u"Quorvel is based on <a href=\"%1\" style=\"color: #59b4ff\">VideoLan</a>"_qs.arg(kEngineSite.toString()));
    credit->setTextFormat(Qt::RichText);
    credit->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(credit, &QLabel::linkActivated, this, [](const QString &link) {
        const bool asked = QDesktopServices::openUrl(QUrl(link));
        qCDebug(lcApp) << "open" << link << (asked ? "asked of the desktop" : "refused by the desktop");
    });
    column->addWidget(credit);
    column->addWidget(textLabel(u"Quorvel %1\nlibVLC %2"_qs.arg(version(), engineVersion), "muted"));
    column->addStretch();
}

void AboutDialog::paintRegions(QPainter &p)
{
    const int W = width(), H = height();
    DrawSkinImage(p, images().single(SkinSingle::AboutLogo), kLogo.x(), kLogo.y(), kLogo.width(), kLogo.height());
    drawTextButton(p, RegionOK, QRect(W - 75, H - 45, 60, 30), u"OK"_qs);
}

void AboutDialog::regionClicked(int region)
{
    if (region == RegionClose || region == RegionOK)
        done(region == RegionOK ? Accepted : Rejected);
}

void AboutDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        regionClicked(RegionOK);
    else
        SkinnedDialog::keyPressEvent(event);
}

} // namespace quorvel
