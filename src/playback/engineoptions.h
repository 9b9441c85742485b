#pragma once
// The nine option strings every item is opened with.

#include "settings/settings.h"

#include <QStringList>

namespace quorvel {

// `SaveVLCOptions`: builds the list from the settings. Element 2 is a
// placeholder that each item start replaces with its own snapshot folder.
QStringList BuildEngineOptions(const Settings &settings);

// The snapshot folder option of one item: "<SnapshotFolder>/<file name> Images".
QString SnapshotPathOption(const QString &snapshotFolder, const QString &filePath);

inline constexpr int kSnapshotPathOptionIndex = 2;

} // namespace quorvel
