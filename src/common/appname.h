#pragma once
// The names the program goes by: the organisation of Qt's settings store and
// the mark of the icons it puts into the user's icon theme.

#include <QLatin1StringView>

namespace quorvel {

inline constexpr QLatin1StringView kOrganizationName("Brenlow Quorvel");

// The text every file-type icon the build draws carries (a PNG text entry):
// an icon of the user's theme is only replaced or removed when it is ours.
inline constexpr QLatin1StringView kFileTypeIconMark("Quorvel file-type icon");

} // namespace quorvel
