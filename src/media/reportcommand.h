#pragma once
// `quorvel --report FILE`: the media report of a file without any window.

#include <QString>

namespace quorvel {

// Prints the report to standard output and returns 0; a refused file prints
// its reason to standard error and returns 1. Messages go to standard error.
int RunReportCommand(const QString &file);

} // namespace quorvel
