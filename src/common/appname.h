#pragma once
// The name the program files its per-user settings under: the organisation
// of Qt's settings store and the application title.

#include <QLatin1StringView>

namespace quorvel {

inline constexpr QLatin1StringView kOrganizationName("Brenlow Quorvel");

} // namespace quorvel
