#include "app/windowstates.h"

namespace quorvel {

std::optional<WindowStates::Step> WindowStates::setFullScreen(bool on, const QRect &current, const QRect &screen,
                                                              bool listVisible)
{
    if (on == m_fullScreen)
        return std::nullopt;
    m_fullScreen = on;
    if (on) {
        m_beforeFullScreen = current;
        m_listBeforeFullScreen = listVisible;
        return Step{Show::FullScreen, screen, false};
    }
    return Step{Show::Normal, m_beforeFullScreen, m_listBeforeFullScreen};
}

WindowStates::Step WindowStates::toggleMaximize(const QRect &current, const QRect &available)
{
    m_maximized = !m_maximized;
    if (m_maximized) {
        m_beforeMaximize = current;
        return Step{Show::Maximized, available};
    }
    return Step{Show::Normal, m_beforeMaximize};
}

} // namespace quorvel
