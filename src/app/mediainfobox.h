#pragma once
// The media information of a playlist item, shown in the skin's colours:
// the report's "name : value" lines as a two-column grid under the headings
// of the file and of each stream. Window-modal but non-blocking, like every
// message of the program, and never taller than the screen.

#include <QDialog>
#include <QString>
#include <QVector>

namespace quorvel {

struct ReportRow {
    QString label; // empty for a heading
    QString value; // the heading's text for a heading
    bool isHeading() const { return label.isEmpty(); }
};

// Splits a report into rows: "Name : value" lines become a label and a
// value, any other non-empty line a heading.
QVector<ReportRow> ReportRows(const QString &report);

class MediaInfoBox : public QDialog {
    Q_OBJECT
public:
    MediaInfoBox(const QString &report, QWidget *parent);
};

} // namespace quorvel
