#include "settings/mimeappslist.h"

#include <QList>
#include <QStringDecoder>

namespace quorvel::mimeapps {

namespace {

const QByteArray kGroup = QByteArrayLiteral("[Default Applications]");

// Lines without their '\n'; a '\r' before it stays part of the line.
QList<QByteArray> linesOf(const QByteArray &text)
{
    QList<QByteArray> lines = text.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast(); // the text ended with a line break
    return lines;
}

bool isGroupHeader(const QByteArray &line)
{
    return line.trimmed().startsWith('[');
}

// The key of an entry line ("video/mp4" of "video/mp4 = x.desktop"), or empty.
QByteArray keyOf(const QByteArray &line)
{
    const QByteArray trimmed = line.trimmed();
    if (trimmed.startsWith('#'))
        return {};
    const qsizetype eq = trimmed.indexOf('=');
    return eq <= 0 ? QByteArray() : trimmed.left(eq).trimmed();
}

struct Place {
    qsizetype group = -1; // header line of [Default Applications]
    qsizetype entry = -1; // the entry's line
    qsizetype last = -1;  // last non-blank line of the group
};

Place find(const QList<QByteArray> &lines, const QByteArray &type, const QByteArray &group = kGroup)
{
    Place p;
    bool inGroup = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray &line = lines[i];
        if (isGroupHeader(line)) {
            if (inGroup)
                break;
            inGroup = line.trimmed() == group;
            if (inGroup)
                p.group = p.last = i;
            continue;
        }
        if (!inGroup)
            continue;
        if (!line.trimmed().isEmpty())
            p.last = i;
        if (p.entry < 0 && keyOf(line) == type)
            p.entry = i;
    }
    return p;
}

} // namespace

std::optional<QByteArray> defaultOf(const QByteArray &text, const QByteArray &type, const QByteArray &group)
{
    const QList<QByteArray> lines = linesOf(text);
    const Place p = find(lines, type, group.isEmpty() ? kGroup : group);
    if (p.entry < 0)
        return std::nullopt;
    const QByteArray &line = lines[p.entry];
    return line.mid(line.indexOf('=') + 1).trimmed();
}

QByteArray withDefault(const QByteArray &text, const QByteArray &type, const std::optional<QByteArray> &value)
{
    QList<QByteArray> lines = linesOf(text);
    const Place p = find(lines, type);
    const QByteArray entry = type + '=' + value.value_or(QByteArray());
    if (!value) {
        if (p.entry < 0)
            return text;
        lines.removeAt(p.entry);
    } else if (p.entry >= 0) {
        // Only the value changes: the blanks around it and the line's own
        // ending ("\r\n" files stay so) are kept, so that giving the old value
        // back restores the line byte for byte.
        QByteArray &line = lines[p.entry];
        qsizetype start = line.indexOf('=') + 1;
        while (start < line.size() && (line[start] == ' ' || line[start] == '\t'))
            ++start;
        qsizetype end = line.size();
        while (end > start && QByteArrayView(" \t\r").contains(line[end - 1]))
            --end;
        line = line.left(start) + *value + line.mid(end);
    } else if (p.group >= 0) {
        lines.insert(p.last + 1, entry + (lines[p.group].endsWith('\r') ? "\r" : ""));
    } else {
        lines << kGroup << entry;
    }
    QByteArray out = lines.join('\n');
    // A last line without a line break keeps lacking one.
    if (!out.isEmpty() && (text.isEmpty() || text.endsWith('\n') || p.group < 0))
        out += '\n';
    return out;
}

bool isDamaged(const QByteArray &text)
{
    if (text.contains('\0'))
        return true;
    QStringDecoder utf8(QStringDecoder::Utf8);
    [[maybe_unused]] const QString decoded = utf8(text);
    return utf8.hasError();
}

} // namespace quorvel::mimeapps
