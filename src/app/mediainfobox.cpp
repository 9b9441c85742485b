#include "mediainfobox.h"

#include "skin/theme.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace quorvel {

QVector<ReportRow> ReportRows(const QString &report)
{
    // A name is words without a slash before " :". The headings (the file,
    // each stream) begin with "Stream", whatever the file's name holds.
    static const QRegularExpression pair(QStringLiteral("^([A-Za-z][\\w ().-]*?)\\s+:\\s?(.*)$"));
    QVector<ReportRow> rows;
    for (const QString &raw : report.split(QRegularExpression(QStringLiteral("\r\n|\n|\r")))) {
        const QString line = raw.trimmed();
        if (line.isEmpty())
            continue;
        const QRegularExpressionMatch m = pair.match(line);
        if (m.hasMatch() && !line.startsWith(QLatin1String("Stream ")))
            rows.append({m.captured(1).trimmed(), m.captured(2).trimmed()});
        else
            rows.append({QString(), line});
    }
    return rows;
}

namespace {

QLabel *makeLabel(const QString &text, const char *role)
{
    auto *label = new QLabel(text);
    label->setProperty("role", QString::fromLatin1(role));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

MediaInfoBox::MediaInfoBox(const QString &report, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("MediaInfoBox"));
    setWindowTitle(QStringLiteral("Quorvel"));
    setStyleSheet(theme::reportStyleSheet());

    auto *grid = new QWidget;
    grid->setObjectName(QStringLiteral("reportGrid"));
    auto *cells = new QGridLayout(grid);
    cells->setHorizontalSpacing(14);
    cells->setVerticalSpacing(3);
    cells->setColumnStretch(1, 1);
    int row = 0;
    for (const ReportRow &r : ReportRows(report)) {
        if (r.isHeading()) {
            QLabel *heading = makeLabel(r.value, row == 0 ? "title" : "heading");
            heading->setWordWrap(true);
            cells->addWidget(heading, row++, 0, 1, 2);
        } else {
            cells->addWidget(makeLabel(r.label, "label"), row, 0, Qt::AlignRight | Qt::AlignTop);
            cells->addWidget(makeLabel(r.value, "value"), row++, 1, Qt::AlignLeft | Qt::AlignTop);
        }
    }
    cells->setRowStretch(row, 1);

    auto *scroll = new QScrollArea;
    scroll->setWidget(grid);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setIcon(QIcon());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 12);
    layout->addWidget(scroll);
    layout->addWidget(buttons);

    // As tall as the report needs, within the screen.
    const QSize wanted = grid->sizeHint() + QSize(14, 0); // room for a scroll bar
    const QRect screen = parent && parent->screen() ? parent->screen()->availableGeometry() : QRect(0, 0, 1024, 768);
    scroll->setMinimumSize(qMin(qMax(wanted.width(), 320), screen.width() * 3 / 4),
                           qMin(wanted.height(), screen.height() * 2 / 3));
}

} // namespace quorvel
