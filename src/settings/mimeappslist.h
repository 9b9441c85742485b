#pragma once
// Edits the default handlers of a freedesktop "mimeapps.list" as text. Only
// the entries of the [Default Applications] group that a caller names are
// read or changed; every other byte of the file (other groups, comments,
// blank lines, line endings, entries this program never wrote) stays as it
// was, so the user's own choices survive any number of changes.

#include <QByteArray>
#include <optional>

namespace quorvel::mimeapps {

// The value of `type` in [Default Applications] ("a.desktop;b.desktop;" as
// written), or nullopt when the group or the entry is missing. Another
// `group` ("[MIME Cache]" of a "mimeinfo.cache") is read the same way.
std::optional<QByteArray> defaultOf(const QByteArray &text, const QByteArray &type, const QByteArray &group = {});

// `text` with `type` set to `value` in [Default Applications], or with that
// entry removed when `value` is nullopt. A missing group is appended.
QByteArray withDefault(const QByteArray &text, const QByteArray &type, const std::optional<QByteArray> &value);

// A file that holds NUL bytes or is not UTF-8 is not a key file: it is
// left alone rather than edited.
bool isDamaged(const QByteArray &text);

} // namespace quorvel::mimeapps
